// The texts of the image information view.
#include <doctest/doctest.h>

#include "analysis/image_info_texts.h"

using namespace pixora;

namespace {

ImageBuffer Image(ImageFileKind kind, std::uint32_t bits, std::uint32_t valid_bits, const wchar_t* format) {
    ImageBuffer image;
    image.source_path = L"C:\\pictures\\line 3\\sample.tif";
    image.file_name = L"sample.tif";
    image.file_kind = kind;
    image.bits_per_sample = bits;
    image.valid_bits = valid_bits;
    image.pixel_format = format;
    image.width = 640;
    image.height = 480;
    return image;
}

ImageInfoLines WithPath(const std::wstring& folder, const std::wstring& name) {
    ImageBuffer image;
    image.source_path = folder + name;
    image.file_name = name;
    return LinesOf(image);
}

}  // namespace

TEST_CASE("the image information's title begins with its viewer's number") {
    CHECK(ImageInfoTitle(0) == L" [1 ]  Image info. ");
    CHECK(ImageInfoTitle(7) == L" [8 ]  Image info. ");
    CHECK(ImageInfoTitle(std::nullopt) == L"Image info.");
}

TEST_CASE("the image information lists folder, name, format and size") {
    CHECK(LinesOf(Image(ImageFileKind::bmp, 8, 8, L"RGB8")) ==
          ImageInfoLines{L"C:\\pictures\\line 3\\", L"sample.tif", L"File Format:  RGB8",
                         L"Image Size (HxV): 640 x 480", L"Total Number of Pixels:  307,200"});
}

TEST_CASE("a 16-bit TIFF tells its valid bits, even when they are 16") {
    CHECK(ValidBitNote(Image(ImageFileKind::tiff_little, 16, 12, L"Mono16")) == L" (Upper 12 bits Valid)");
    CHECK(ValidBitNote(Image(ImageFileKind::tiff_big, 16, 10, L"Mono16")) == L" (Upper 10 bits Valid)");
    CHECK(ValidBitNote(Image(ImageFileKind::tiff_big, 16, 16, L"Mono16")) == L" (Upper 16 bits Valid)");
    CHECK(LinesOf(Image(ImageFileKind::tiff_little, 16, 12, L"RGB16")).format ==
          L"File Format:  RGB16 (Upper 12 bits Valid)");
}

TEST_CASE("no other image tells valid bits") {
    CHECK(ValidBitNote(Image(ImageFileKind::tiff_little, 8, 8, L"Mono8")).empty());
    CHECK(ValidBitNote(Image(ImageFileKind::tiff_little, 12, 12, L"Mono12")).empty());
    CHECK(ValidBitNote(Image(ImageFileKind::bmp, 16, 16, L"Mono16")).empty());
    CHECK(LinesOf(Image(ImageFileKind::tiff_big, 12, 12, L"Mono12")).format == L"File Format:  Mono12");
}

TEST_CASE("a viewer without a number speaks of its pixels' format") {
    CHECK(FormatLine(Image(ImageFileKind::tiff_little, 16, 12, L"Mono16"), false) ==
          L"Pixel Format:  Mono16 (Upper 12 bits Valid)");
}

TEST_CASE("a record that counts something yields a note of it") {
    ImageBuffer image;
    CHECK(CountNote(image).empty());
    image.state_64[0] = 25;
    CHECK(CountNote(image) == L" (25)");
}

// A shortened one has the character that crosses the limit, too.
TEST_CASE("names of 45 columns are shown whole, longer ones are shortened in the middle") {
    CHECK(WithPath(L"C:\\", L"0123456789012345678901234567890123456789a.tif").name ==
          L"0123456789012345678901234567890123456789a.tif");
    CHECK(WithPath(L"C:\\", L"0123456789012345678901234567890123456789ab.tif").name ==
          L"01234.....012345678901234567890123456789ab.tif");
}

TEST_CASE("folders are shortened like names") {
    CHECK(WithPath(L"C:\\0123456789012345678901234567890123456789a\\", L"a.bmp").folder ==
          L"C:\\0123456789012345678901234567890123456789a\\");
    CHECK(WithPath(L"C:\\0123456789012345678901234567890123456789ab\\", L"a.bmp").folder ==
          L"C:\\01.....789012345678901234567890123456789ab\\");
}

TEST_CASE("Japanese characters count two columns") {
    // 20 characters and 5 columns more are 45, 6 more are 46.
    const std::wstring twenty(20, L'\u753B');
    CHECK(WithPath(L"C:\\", twenty + L"1.bmp").name == twenty + L"1.bmp");
    CHECK(WithPath(L"C:\\", twenty + L"12.bmp").name ==
          std::wstring(5, L'\u753B') + L"....." + std::wstring(13, L'\u753B') + L"12.bmp");
}

TEST_CASE("an image in no folder has an empty folder line") {
    CHECK(WithPath(L"", L"a.bmp").folder.empty());
}

TEST_CASE("the number of pixels has separators up to a thousand millions") {
    ImageBuffer image;
    image.width = 31250;
    image.height = 32000;
    CHECK(LinesOf(image).pixels == L"Total Number of Pixels:  1,000,000,000");
    image.height = 32001;
    CHECK(LinesOf(image).pixels == L"Total Number of Pixels:  ---");
    image.width = image.height = 65535;
    CHECK(LinesOf(image).pixels == L"Total Number of Pixels:  ---");
    CHECK(LinesOf(image).size == L"Image Size (HxV): 65535 x 65535");
    image.width = image.height = 1;
    CHECK(LinesOf(image).pixels == L"Total Number of Pixels:  1");
}

TEST_CASE("the region has two lines while it shows and none while it is hidden") {
    CHECK(RegionInfo({10, 20, 109, 69}, true) ==
          RegionInfoLines{L"Reigion (HxV) :100 x 50", L"Reigion (Total) : 5,000"});
    CHECK(RegionInfo({5, 6, 5, 6}, true) == RegionInfoLines{L"Reigion (HxV) :1 x 1", L"Reigion (Total) : 1"});
    CHECK(RegionInfo({10, 20, 109, 69}, false) == RegionInfoLines{});
}

TEST_CASE("a region that is crossed shows its size as it is and counts in 32 bits") {
    CHECK(RegionInfo({10, 10, 8, 12}, true) ==
          RegionInfoLines{L"Reigion (HxV) :-1 x 3", L"Reigion (Total) : ---"});
    CHECK(RegionInfo({10, 10, 9, 12}, true) ==
          RegionInfoLines{L"Reigion (HxV) :0 x 3", L"Reigion (Total) : 0"});
}

TEST_CASE("the image information tells the display size in percent") {
    CHECK(DisplaySizeInfo(L"150%") == L"Display Size: 150%");
}
