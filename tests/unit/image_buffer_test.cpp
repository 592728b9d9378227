#include "image/image_buffer.h"

#include <doctest/doctest.h>

#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

void TakeAllSlots(const ScratchFolder& folder) {
    for (char slot = '0'; slot < '8'; ++slot) folder.Write(std::string("import_img_0") + slot + ".bmp", "x");
}

}  // namespace

TEST_CASE("a new record holds the defaults") {
    const ImageBuffer record;
    CHECK(record.slot == 0);
    CHECK(record.file_name.empty());
    CHECK(record.display_copy.empty());
    CHECK(record.pixel_format == L"Mono8");
    CHECK(record.bits_per_sample == 8);
    CHECK(record.valid_bits == 0);
    CHECK(record.stored_bits == 0);
    CHECK(record.spare_text.empty());
    CHECK(record.spare_flag == 0);
    for (const auto value : record.state_16) CHECK(value == 0);
    for (const auto value : record.state_64) CHECK(value == 0);
}

TEST_CASE("the first free slot is the lowest whose display copy does not exist") {
    const ScratchFolder folder;
    CHECK(FindFreeSlot(folder.Path()) == 0);
    TakeAllSlots(folder);
    CHECK_FALSE(FindFreeSlot(folder.Path()).has_value());
    std::filesystem::remove(folder / "import_img_03.bmp");
    CHECK(FindFreeSlot(folder.Path()) == 3);
    std::filesystem::remove(folder / "import_img_04.bmp");
    CHECK(FindFreeSlot(folder.Path()) == 3);
}

TEST_CASE("a folder of a display copy's name does not take its slot") {
    const ScratchFolder folder;
    TakeAllSlots(folder);
    std::filesystem::remove(folder / "import_img_02.bmp");
    std::filesystem::create_directory(folder / "import_img_02.bmp");
    CHECK(FindFreeSlot(folder.Path()) == 2);
}

TEST_CASE("without a data folder the first slot is free") {
    CHECK(FindFreeSlot("no such folder") == 0);
}

TEST_CASE("the copies of a slot are named by its two digits") {
    CHECK(DisplayCopyPath("data", 7) == std::filesystem::path("data") / "import_img_07.bmp");
    CHECK(DataCopyPath("data", 0, ".bin") == std::filesystem::path("data") / "import_img_00.bin");
    CHECK(DataCopyPath("data", 1, ".tiff") == std::filesystem::path("data") / "import_img_01.tiff");
}

TEST_CASE("the file name is what follows the last separator, cut at 259 characters") {
    CHECK(FileNameOf(L"C:\\pics\\a.bmp") == L"a.bmp");
    CHECK(FileNameOf(L"a.bmp") == L"a.bmp");
    CHECK(FileNameOf(L"C:\\pics\\").empty());
    CHECK(FileNameOf(L"a/b\\c/d") == L"c/d");
    CHECK(FileNameOf(L"/home/a.bmp", L'/') == L"a.bmp");
    CHECK(FileNameOf(std::wstring(300, L'x')).size() == 259);
}

TEST_CASE("temporary copies are told by their name and deleted, write-protected ones too") {
    CHECK(IsTemporaryCopyName(L"import_img_00.bmp"));
    CHECK(IsTemporaryCopyName(L"import_img_0X.anything"));
    CHECK(IsTemporaryCopyName(L"IMPORT_Img_00.BMP"));
    CHECK(IsTemporaryCopyName(L"import_img_00.bmp.tmp0"));
    CHECK_FALSE(IsTemporaryCopyName(L"import_img_10.bmp"));
    CHECK_FALSE(IsTemporaryCopyName(L"import_img_0.bmp"));
    CHECK_FALSE(IsTemporaryCopyName(L"my import_img_00.bmp"));

    const ScratchFolder folder;
    for (const char* name : {"import_img_00.bmp", "import_img_05.bin", "import_img_0a.tiff",
                             "Import_img_07.BMP", "import_img_10.bmp", "Pixora.ini"})
        folder.Write(name, "x");
    std::filesystem::permissions(folder / "import_img_05.bin", std::filesystem::perms::owner_read);
    std::filesystem::create_directory(folder / "import_img_03.bmp");
    DeleteTemporaryCopies(folder.Path());
    CHECK(folder.Names() == "Pixora.ini import_img_03.bmp import_img_10.bmp");
}

TEST_CASE("measurements work with the valid bits of raw data, else with the bits per sample") {
    ImageBuffer record;
    record.bits_per_sample = 16;
    record.valid_bits = 12;
    CHECK(EffectiveBits(record) == 16);
    record.raw_data = 1;
    CHECK(EffectiveBits(record) == 12);
}
