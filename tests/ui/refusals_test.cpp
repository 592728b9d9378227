// Files that cannot be opened: each with its own words, and nothing changed.
#include <doctest/doctest.h>

#include <optional>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr wchar_t kCaption[] = L"Pixora  : Error   ";
constexpr wchar_t kFormatError[] = L"File Format Error";
constexpr wchar_t kInvalid[] = L"This image file is invalid.";
constexpr wchar_t kNotSupported[] = L"This file is not supported.";
constexpr wchar_t kCompressed[] = L"Compressed files are not supported.";
constexpr wchar_t kCorrupt[] = L"This file is invalid or corrupt.";
constexpr wchar_t kUnknown[] = L"This is an unsupported or invalid image file.";
constexpr wchar_t kDepths[] = L"Only 8, 12, and 16-bit formats are supported.";

struct Refusal {
    const wchar_t* name;
    std::string bytes;
    std::wstring line1, line2;
};

/// Drops each file on a program that shows a good one, and sees that the box is the only thing that happens.
void CheckRefusals(const std::vector<Refusal>& refusals) {
    Program program;
    program.Open(ScratchFile(L"good.bmp", BmpBytes(Chart(40, 30), 24)));
    const std::wstring path = program.Item(kPathBox).Text();
    for (const Refusal& refusal : refusals) {
        CAPTURE(std::wstring(refusal.name));
        const std::filesystem::path file = ScratchFile(refusal.name, refusal.bytes);
        program.Drop({file});
        CHECK(DismissErrorBox(program) == ErrorTexts{kCaption, refusal.line1, refusal.line2, L""});
        CHECK(program.Item(kPathBox).Text() == path);
        CHECK_FALSE(std::filesystem::exists(DataFolder() / L"import_img_01.bmp"));
        CHECK((ReadBytes(file) == refusal.bytes));
    }
    CHECK(program.Viewers() == std::vector<std::wstring>{L"[1 ]  (100%) File Name : good.bmp"});
    // No refusal took a slot.
    program.Open(ScratchFile(L"next.bmp", BmpBytes(Chart(30, 30), 24)), 2);
    program.Exit();
}

std::string Bmp(BmpFile file, std::size_t pixel_bytes = 4096) {
    file.pixels = std::string(pixel_bytes, '\x55');
    return Bytes(file);
}

std::string Tiff(TiffFile file) {
    file.pixels = BlankPixels(file);
    return Bytes(file);
}

std::string Palette(std::size_t entries) {
    return std::string(entries * 4, '\x40');
}

}  // namespace

TEST_CASE("files that are no images are refused") {
    CheckRefusals({
        {L"text.txt", "This is no image.", L"File: text.txt", kUnknown},
        {L"empty.bmp", "", L"File: empty.bmp", kUnknown},
        {L"one byte.tif", "I", L"File: one byte.tif", kUnknown},
        {L"other.png", "\x89PNG\r\n\x1A\n", L"File: other.png", kUnknown},
        {L"number 43.tif", std::string("II\x2B\0\x08\0\0\0", 8), L"File: number 43.tif", kUnknown},
        // The name is shortened to 38 characters; the one that crosses the limit stays.
        {L"a text file with a name that is longer than the box.bmp", "none",
         L"File: a tex.....at is longer than the box.bmp", kUnknown},
        // Japanese letters count twice: nineteen of them and the extension are too many.
        {L"\x30AB\x30E1\x30E9\x306E\x753B\x50CF\x30D5\x30A1\x30A4\x30EB\x306E\x9577\x3044\x540D\x524D\x306E"
         L"\x4F8B\x3067\x3059.bmp",
         "none",
         L"File: "
         L"\x30AB\x30E1\x30E9\x306E\x753B.....\x30EB\x306E\x9577\x3044\x540D\x524D\x306E\x4F8B\x3067\x3059."
         L"bmp",
         kUnknown},
    });
}

TEST_CASE("files that cannot be read are refused") {
    Program program;
    program.Open(ScratchFile(L"good.bmp", BmpBytes(Chart(40, 30), 24)));
    const std::wstring path = program.Item(kPathBox).Text();
    std::filesystem::create_directories(ScratchFolder() / L"folder.bmp");
    for (const wchar_t* name : {L"missing.bmp", L"folder.bmp"}) {
        CAPTURE(std::wstring(name));
        program.Drop({ScratchFolder() / name});
        CHECK(DismissErrorBox(program) ==
              ErrorTexts{kCaption, std::wstring(L"File: ") + name, L"Failed to Open Image File", L""});
        CHECK(program.Item(kPathBox).Text() == path);
    }
    program.Exit();
}

TEST_CASE("BMP files of other kinds are refused") {
    CheckRefusals({
        {L"1-bit.bmp", Bmp({.bits = 1, .palette = Palette(2)}), kFormatError,
         L"1-Bit BMP file is not supported."},
        {L"4-bit.bmp", Bmp({.bits = 4, .palette = Palette(16)}), kFormatError,
         L"4-Bit BMP file is not supported."},
        {L"4-bit run-length.bmp", Bmp({.bits = 4, .compression = 2, .palette = Palette(16)}), kFormatError,
         L"4-Bit BMP file is not supported."},
        {L"1-bit compressed.bmp", Bmp({.bits = 1, .compression = 1, .palette = Palette(2)}), kFormatError,
         L"1-Bit BMP file is not supported."},
        {L"8-bit run-length.bmp", Bmp({.bits = 8, .compression = 1, .palette = Palette(256)}), kFormatError,
         kCompressed},
        {L"32-bit with masks.bmp", Bmp({.bits = 32, .compression = 3}), kFormatError, kCompressed},
        {L"16-bit with masks.bmp", Bmp({.bits = 16, .compression = 3}), kFormatError, kCompressed},
        {L"16-bit.bmp", Bmp({.bits = 16}), kFormatError, kNotSupported},
        {L"2-bit.bmp", Bmp({.bits = 2, .palette = Palette(4)}), kFormatError, kNotSupported},
    });
}

TEST_CASE("damaged BMP files are refused") {
    const std::string sound = BmpBytes(Chart(16, 12), 24);
    CheckRefusals({
        {L"signature only.bmp", "BM", kFormatError, kInvalid},
        {L"half a header.bmp", sound.substr(0, 12), kFormatError, kInvalid},
        {L"no pixels.bmp", sound.substr(0, 54), kFormatError, kInvalid},
        {L"no width.bmp", Bmp({.width = 0}), kFormatError, kInvalid},
        {L"no height.bmp", Bmp({.height = 0}), kFormatError, kInvalid},
    });
}

TEST_CASE("images wider or higher than 65535 pixels are refused") {
    CheckRefusals({
        {L"wide.bmp", Bmp({.width = 65536, .height = 1}, 65536 * 3), kFormatError, kNotSupported},
        {L"high.bmp", Bmp({.width = 1, .height = 65536}, 65536 * 4), kFormatError, kNotSupported},
        {L"65537 wide.bmp", Bmp({.width = 65537, .height = 1}, 65540 * 3), kFormatError, kNotSupported},
        {L"lowest height.bmp", Bmp({.width = 1, .height = INT32_MIN}), kFormatError, kNotSupported},
        {L"wide.tif", Tiff({.width = 65536, .height = 1}), kFormatError, kNotSupported},
        {L"wide16.tif", Tiff({.width = 70000, .height = 1, .bits = 16}), kFormatError, kNotSupported},
    });
}

TEST_CASE("TIFF files of other kinds are refused") {
    CheckRefusals({
        {L"compressed 8.tif", Tiff({.bits = 8, .compression = 5}), kFormatError, kCompressed},
        {L"compressed 12.tif", Tiff({.bits = 12, .compression = 32773}), kFormatError, kCompressed},
        {L"compressed, big-endian.tif", Tiff({.bits = 8, .compression = 8, .big_endian = true}), kFormatError,
         kCompressed},
        {L"cmyk.tif", Tiff({.bits = 8, .channels = 4, .photometric = 5}), kFormatError,
         L"\"CMYK\" foramt files are not supported."},
        {L"palette.tif", Tiff({.bits = 8, .photometric = 3}), kFormatError, kNotSupported},
        {L"white is zero.tif", Tiff({.bits = 8, .photometric = 0}), kFormatError, kNotSupported},
        {L"white is zero 16.tif", Tiff({.bits = 16, .photometric = 0}), kFormatError, kNotSupported},
        {L"10-bit.tif", Tiff({.bits = 10}), L"This TIFF file is 10-bit.", kDepths},
        {L"1-bit.tif", Tiff({.bits = 1}), L"This TIFF file is 1-bit.", kDepths},
        {L"32-bit.tif", Tiff({.bits = 32}), L"This TIFF file is 32-bit.", kDepths},
        {L"14-bit colour.tif", Tiff({.bits = 14, .channels = 3, .photometric = 2}),
         L"This TIFF file is 14-bit.", kDepths},
    });
}

TEST_CASE("damaged TIFF files are refused") {
    TiffFile empty8{.bits = 8}, empty16{.bits = 16};
    CheckRefusals({
        {L"compressed 16.tif", Tiff({.bits = 16, .compression = 5}), L"File: compressed 16.tif", kCorrupt},
        {L"no pixels 16.tif", Bytes(empty16), L"File: no pixels 16.tif", kCorrupt},
        {L"no pixels 8.tif", Bytes(empty8), kFormatError, kInvalid},
        {L"no width 16.tif", Tiff({.width = 0, .bits = 16}), L"File: no width 16.tif", kCorrupt},
        {L"no width 8.tif", Tiff({.width = 0, .bits = 8}), kFormatError, kInvalid},
        {L"no height 12.tif", Tiff({.height = 0, .bits = 12}), kFormatError, kInvalid},
        {L"no directory.tif", std::string("II\x2A\0\xFF\xFF\xFF\0", 8), kFormatError, kInvalid},
    });
}

TEST_CASE("an image too large for the display size is refused with the largest size that fits") {
    Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
    const std::wstring caption = L"Pixora  : Error - Image display failed.   ";
    program.Drop({ScratchFile(L"4000 wide.bmp", Bmp({.width = 4000, .height = 1}, 12000))});
    CHECK(DismissErrorBox(program) == ErrorTexts{caption, L"A \"1000%\" zoom is too large to display.",
                                                 L"The maximum zoom level for this image is \"540%\".", L""});
    program.Drop({ScratchFile(L"2201 high.bmp", Bmp({.width = 1, .height = -2201}, 4 * 2201))});
    CHECK(DismissErrorBox(program) == ErrorTexts{caption, L"A \"1000%\" zoom is too large to display.",
                                                 L"The maximum zoom level for this image is \"990%\".", L""});
    CHECK(program.Item(kPathBox).Text() == L"");
    CHECK(TemporaryCopies().empty());
    CHECK(program.Viewers().empty());
    program.Exit();
}

TEST_CASE("the size check comes before the refusals of the reader") {
    Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
    program.Drop({ScratchFile(L"large 4-bit.bmp", Bmp({.width = 4000, .height = 1, .bits = 4}))});
    CHECK(DismissErrorBox(program).caption == L"Pixora  : Error - Image display failed.   ");
    program.Drop({ScratchFile(L"small 4-bit.bmp", Bmp({.width = 40, .height = 1, .bits = 4}))});
    CHECK(DismissErrorBox(program).line2 == L"4-Bit BMP file is not supported.");
    program.Exit();
}
