#include "viewer/temporary_copies.h"

#include <doctest/doctest.h>

using namespace pixora;

TEST_CASE("a viewer deletes its two copies and nothing else") {
    ImageBuffer image;
    image.source_path = L"C:\\pictures\\a.tif";
    image.display_copy = "data/import_img_03.bmp";
    image.data_copy = "data/import_img_03.bin";
    CHECK(TemporaryCopiesOf(image) ==
          std::vector<std::filesystem::path>{"data/import_img_03.bmp", "data/import_img_03.bin"});
}

TEST_CASE("an image without a data copy has one copy to delete") {
    ImageBuffer image;
    image.display_copy = "data/import_img_00.bmp";
    CHECK(TemporaryCopiesOf(image) == std::vector<std::filesystem::path>{"data/import_img_00.bmp"});
    CHECK(TemporaryCopiesOf(ImageBuffer{}).empty());
}

TEST_CASE("a copy that cannot be deleted is reported with the system's error") {
    CHECK(DeleteFailureText("import_img_00.bmp", 32) ==
          L"Failed to delete file: import_img_00.bmp (Error code: 32)");
    CHECK(DeleteFailureText("x", 4294967295u) == L"Failed to delete file: x (Error code: 4294967295)");
}
