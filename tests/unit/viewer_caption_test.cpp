#include <doctest/doctest.h>
#include "viewer/caption.h"

using namespace pixora;

namespace {

ImageBuffer Tiff(std::uint32_t bits, bool raw, std::uint32_t valid) {
    ImageBuffer image;
    image.slot = 2;
    image.file_name = L"sample.tif";
    image.source_path = L"C:\\pictures\\sample.tif";
    image.file_kind = ImageFileKind::tiff_little;
    image.bits_per_sample = bits;
    image.raw_data = raw ? 1 : 0;
    image.valid_bits = valid;
    return image;
}

std::wstring Caption(const ImageBuffer& image) {
    return ViewerCaption(image, L"SIMPLE", L"0.50");
}

}  // namespace

TEST_CASE("a caption holds number, display size, name and bits") {
    CHECK(Caption(Tiff(16, true, 12)) == L"[3 ]  (50%) File Name : sample.tif   (Upper 12bit / 16bit)");
}

TEST_CASE("the caption of 16 valid bits leaves its parenthesis open") {
    CHECK(Caption(Tiff(16, true, 16)) == L"[3 ]  (50%) File Name : sample.tif   (16bit");
}

TEST_CASE("the caption tells the other valid bits and the stored bits") {
    CHECK(Caption(Tiff(16, true, 14)) == L"[3 ]  (50%) File Name : sample.tif   (Upper 14bit / 16bit)");
    CHECK(Caption(Tiff(16, true, 10)) == L"[3 ]  (50%) File Name : sample.tif   (Upper 10bit / 16bit)");
    CHECK(Caption(Tiff(16, true, 8)) == L"[3 ]  (50%) File Name : sample.tif   (Upper 8bit / 16bit)");
    CHECK(Caption(Tiff(16, true, 11)) == L"[3 ]  (50%) File Name : sample.tif");
}

TEST_CASE("the caption of an image without valid bits tells the stored bits alone") {
    CHECK(Caption(Tiff(12, false, 12)) == L"[3 ]  (50%) File Name : sample.tif  (12bit)");
    ImageBuffer image = Tiff(8, false, 8);
    image.file_kind = ImageFileKind::tiff_big;
    CHECK(Caption(image) == L"[3 ]  (50%) File Name : sample.tif  (8bit)");
}

TEST_CASE("the caption of a BMP has no bits") {
    ImageBuffer image = Tiff(8, false, 0);
    image.file_kind = ImageFileKind::bmp;
    image.slot = 0;
    image.file_name = L"a.bmp";
    CHECK(Caption(image) == L"[1 ]  (50%) File Name : a.bmp");
}

TEST_CASE("the caption style FULL shows the path, any other the file name") {
    const ImageBuffer image = Tiff(8, false, 8);
    CHECK(ViewerCaption(image, L"FULL", L"1.00") ==
          L"[3 ]  (100%) File Name : C:\\pictures\\sample.tif  (8bit)");
    CHECK(ViewerCaption(image, L"full", L"0.123") == L"[3 ]  (12.3%) File Name : sample.tif  (8bit)");
    CHECK(ViewerCaption(image, L"", L"10") == L"[3 ]  (1000%) File Name : sample.tif  (8bit)");
}

TEST_CASE("a name wider than 50 is shortened in the caption") {
    ImageBuffer image = Tiff(8, false, 8);
    image.file_name = L"01234567890123456789012345678901234567890123456789";
    CHECK(Caption(image) ==
          L"[3 ]  (50%) File Name : 01234567890123456789012345678901234567890123456789  (8bit)");
    image.file_name = L"012345678901234567890123456789012345678901234567890";
    // Five characters, five dots and as many from the end as first exceed the 40 that are left.
    CHECK(Caption(image) ==
          L"[3 ]  (50%) File Name : 01234.....01234567890123456789012345678901234567890  (8bit)");
}

TEST_CASE("a path wider than 50 is shortened in the caption, like a name") {
    ImageBuffer image = Tiff(8, false, 8);
    image.source_path = L"C:\\pictures\\of\\the\\year\\2026\\holiday\\sample_01.tif";
    REQUIRE(image.source_path.size() == 50);
    CHECK(ViewerCaption(image, L"FULL", L"1.00") ==
          L"[3 ]  (100%) File Name : C:\\pictures\\of\\the\\year\\2026\\holiday\\sample_01.tif  (8bit)");
    image.source_path = L"C:\\pictures\\of\\the\\year\\2026\\holidays\\sample_01.tif";
    CHECK(ViewerCaption(image, L"FULL", L"1.00") ==
          L"[3 ]  (100%) File Name : C:\\pi.....s\\of\\the\\year\\2026\\holidays\\sample_01.tif  (8bit)");
}

TEST_CASE("a full-width character takes two of the 50 in the caption") {
    ImageBuffer image = Tiff(8, false, 8);
    image.file_name = std::wstring(25, L'\u3042');
    CHECK(Caption(image) == L"[3 ]  (50%) File Name : " + std::wstring(25, L'\u3042') + L"  (8bit)");
    image.file_name = std::wstring(26, L'\u3042');
    // Five characters and five dots are 15 wide; eighteen characters first exceed the 35 that are left.
    CHECK(Caption(image) == L"[3 ]  (50%) File Name : " + std::wstring(5, L'\u3042') + L"....." +
                                std::wstring(18, L'\u3042') + L"  (8bit)");
}
