#include "app/import.h"

#include <doctest/doctest.h>

#include "tests/unit/support/allocations.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"
#include "viewer/sample_buffer.h"

using namespace pixora;
using namespace pixora::test;

namespace {

// A data folder, and the request that imports a file of the given bytes into it.
struct Setting {
    ScratchFolder sources, data;
    ImportRequest request{.source = {},
                          .data_folder = data.Path(),
                          .display_size = L"1.00",
                          .valid_bits = L"16",
                          .auto_bit = L"ON",
                          .before_long_import = {}};

    ImportResult Run(const std::string& bytes, std::string_view name = "a.img") {
        request.source = sources.Write(name, bytes);
        return ImportImage(request);
    }
    // The two texts of the refusal; nothing may be left of the import then.
    std::wstring Refusal(const std::string& bytes) {
        const ImportResult result = Run(bytes);
        CHECK_FALSE(result.image.has_value());
        CHECK(data.Names().empty());
        CHECK(result.message.line3.empty());
        return result.message.line1 + L"|" + result.message.line2;
    }
};

std::wstring FormatError(const wchar_t* text) {
    return std::wstring(L"File Format Error|") + text;
}

}  // namespace

TEST_CASE("a colour BMP fills the record and leaves one copy") {
    Setting setting;
    const ImportResult result = setting.Run(
        BmpFile{.width = 2, .height = 1, .bits = 32, .pixels = Bytes({1, 2, 3, 0, 4, 5, 6, 0})}.Make());
    REQUIRE(result.image.has_value());
    const ImageBuffer& image = *result.image;
    CHECK(result.message == Message{});
    CHECK(image.slot == 0);
    CHECK(image.file_name == L"a.img");
    CHECK(image.source_path == (setting.sources / "a.img").wstring());
    CHECK(image.display_copy == setting.data / "import_img_00.bmp");
    CHECK(image.data_copy.empty());
    CHECK(image.display_size == L"1.00");
    CHECK(image.file_kind == ImageFileKind::bmp);
    CHECK(image.data_kind == ImageFileKind::none);
    CHECK(image.width == 2);
    CHECK(image.height == 1);
    CHECK(image.colour == 1);
    CHECK(image.pixel_format == L"RGB8");
    CHECK(image.bits_per_sample == 8);
    CHECK(image.bmp_bit_count == 32);
    CHECK(image.raw_data == 0);
    CHECK(image.valid_bits == 0);
    CHECK(setting.data.Names() == "import_img_00.bmp");
}

TEST_CASE("a grey 24-bit BMP counts as monochrome and its copy is the file itself") {
    Setting setting;
    const std::string bytes = BmpFile{.width = 1, .height = -1, .pixels = Bytes({7, 7, 7, 0})}.Make();
    const ImportResult result = setting.Run(bytes);
    REQUIRE(result.image.has_value());
    CHECK(result.image->colour == 0);
    CHECK(result.image->pixel_format == L"Mono8");
    CHECK(result.image->bmp_bit_count == 24);
    CHECK(result.image->height == 1);
    CHECK(setting.data.Read("import_img_00.bmp") == bytes);
}

TEST_CASE("8- and 12-bit TIFFs keep a byte copy") {
    for (const int bits : {8, 12}) {
        for (const bool big : {false, true}) {
            CAPTURE(bits);
            CAPTURE(big);
            Setting setting;
            const std::string bytes =
                TiffFile{.big_endian = big, .width = 2, .bits = bits, .pixels = Bytes({0xAB, 0xCD, 0xEF})}
                    .Make();
            const ImportResult result = setting.Run(bytes);
            REQUIRE(result.image.has_value());
            const ImageFileKind kind = big ? ImageFileKind::tiff_big : ImageFileKind::tiff_little;
            CHECK(result.image->file_kind == kind);
            CHECK(result.image->data_kind == kind);
            CHECK(result.image->data_copy == setting.data / "import_img_00.tiff");
            CHECK(result.image->raw_data == 0);
            CHECK(result.image->valid_bits == static_cast<std::uint32_t>(bits));
            CHECK(result.image->stored_bits == static_cast<std::uint32_t>(bits));
            CHECK(result.image->bits_per_sample == static_cast<std::uint32_t>(bits));
            CHECK(result.image->pixel_format == (bits == 8 ? L"Mono8" : L"Mono12"));
            CHECK(result.image->bmp_bit_count == 0);
            CHECK(setting.data.Read("import_img_00.tiff") == bytes);
            CHECK(setting.data.Names() == "import_img_00.bmp import_img_00.tiff");
        }
    }
}

TEST_CASE("16-bit TIFFs keep their samples scaled to the valid bits of the settings") {
    struct Case {
        const wchar_t *auto_bit, *valid_bits;
        std::uint32_t bits;
    };
    for (const Case& c :
         {Case{L"ON", L"16", 12}, Case{L"OFF", L"16", 16}, Case{L"OFF", L"10", 10}, Case{L"ON", L"8", 12},
          Case{L"off", L"8", 8}, Case{L"OFF", L"9", 12}, Case{L"OFF", L"", 12}, Case{L"", L"14", 14}}) {
        CAPTURE(c.bits);
        Setting setting;
        setting.request.auto_bit = c.auto_bit;
        setting.request.valid_bits = c.valid_bits;
        const ImportResult result = setting.Run(
            TiffFile{.width = 1, .photometric = 2, .bits = 16, .pixels = Words({0x1110, 0x2220, 0x3330})}
                .Make());
        REQUIRE(result.image.has_value());
        CHECK(result.image->valid_bits == c.bits);
        CHECK(result.image->bits_per_sample == 16);
        CHECK(result.image->stored_bits == 16);
        CHECK(result.image->raw_data == 1);
        CHECK(result.image->data_kind == ImageFileKind::bin);
        CHECK(result.image->colour == 1);
        CHECK(result.image->pixel_format == L"RGB16");
        CHECK(result.image->data_copy == setting.data / "import_img_00.bin");
        CHECK(setting.data.Read("import_img_00.bmp").substr(54) == Bytes({0x33, 0x22, 0x11, 0}));
        const int shift = 16 - static_cast<int>(c.bits);
        CHECK(setting.data.Read("import_img_00.bin") ==
              Words({0x3330 >> shift, 0x2220 >> shift, 0x1110 >> shift}));
    }
}

TEST_CASE("an empty path says nothing") {
    Setting setting;
    const ImportResult result = ImportImage(setting.request);
    CHECK_FALSE(result.image.has_value());
    CHECK(result.message == Message{});
}

TEST_CASE("with eight images open the ninth is refused before its file is looked at") {
    Setting setting;
    for (char slot = '0'; slot < '8'; ++slot)
        setting.data.Write(std::string("import_img_0") + slot + ".bmp", "x");
    setting.request.source = setting.sources / "missing.bmp";
    const Message message = ImportImage(setting.request).message;
    CHECK(message == Message{L" : Error", L"Too many images!", L"Close at least 1 image.", L""});
    std::filesystem::remove(setting.data / "import_img_05.bmp");
    const ImportResult result = setting.Run(BmpFile{.pixels = "abc"}.Make());
    REQUIRE(result.image.has_value());
    CHECK(result.image->slot == 5);
    CHECK(result.image->display_copy == setting.data / "import_img_05.bmp");
}

TEST_CASE("a file that cannot be opened is named, shortened to 38 cells") {
    Setting setting;
    setting.request.source = setting.sources / "missing.bmp";
    CHECK(ImportImage(setting.request).message ==
          Message{L" : Error", L"File: missing.bmp", L"Failed to Open Image File", L""});
    setting.request.source = setting.sources / "abcdefghijklmnopqrstuvwxyz0123456789ABCDEF.bmp";
    // Five characters, five full stops, and the end up to one character over 38 - 10 cells.
    CHECK(ImportImage(setting.request).message.line1 == L"File: abcde.....rstuvwxyz0123456789ABCDEF.bmp");
}

TEST_CASE("an unknown signature is refused by name") {
    Setting setting;
    CHECK(setting.Refusal("GIF89a") == L"File: a.img|This is an unsupported or invalid image file.");
    CHECK(setting.Refusal("") == L"File: a.img|This is an unsupported or invalid image file.");
}

TEST_CASE("refusals of BMP files") {
    Setting setting;
    CHECK(setting.Refusal("BMxx") == FormatError(L"This image file is invalid."));
    CHECK(setting.Refusal(BmpFile{.bits = 1}.Make()) == FormatError(L"1-Bit BMP file is not supported."));
    CHECK(setting.Refusal(BmpFile{.bits = 4, .compression = 2}.Make()) ==
          FormatError(L"4-Bit BMP file is not supported."));
    CHECK(setting.Refusal(BmpFile{.bits = 8, .compression = 1}.Make()) ==
          FormatError(L"Compressed files are not supported."));
    CHECK(setting.Refusal(BmpFile{.bits = 16}.Make()) == FormatError(L"This file is not supported."));
    CHECK(setting.Refusal(BmpFile{.width = 0}.Make()) == FormatError(L"This image file is invalid."));
    CHECK(setting.Refusal(BmpFile{}.Make()) == FormatError(L"This image file is invalid."));
}

TEST_CASE("refusals of TIFF files") {
    Setting setting;
    const auto refusal = [&](TiffFile file) {
        file.pixels = "pixels";
        return setting.Refusal(file.Make());
    };
    CHECK(refusal({.compression = 5}) == FormatError(L"Compressed files are not supported."));
    CHECK(refusal({.photometric = 0}) == FormatError(L"This file is not supported."));
    CHECK(refusal({.photometric = 3}) == FormatError(L"This file is not supported."));
    CHECK(refusal({.photometric = 5, .bits = 16}) ==
          FormatError(L"\"CMYK\" foramt files are not supported."));
    CHECK(refusal({.width = 0}) == FormatError(L"This image file is invalid."));
    CHECK(refusal({.more = {{282, 5, 1, 0xFFFFFFF0}}}) == FormatError(L"This image file is invalid."));
    for (const int bits : {1, 4, 10, 14, 32}) {
        CAPTURE(bits);
        CHECK(refusal({.bits = bits}) == L"This TIFF file is " + std::to_wstring(bits) +
                                             L"-bit.|Only 8, 12, and 16-bit formats are supported.");
    }
    CHECK(refusal({.photometric = 2, .more = {{258, 3, 1, 16}}, .with_bits = false}) ==
          L"This TIFF file is 0-bit.|Only 8, 12, and 16-bit formats are supported.");
    CHECK(refusal({.with_bits = false}) ==
          L"This TIFF file is 1-bit.|Only 8, 12, and 16-bit formats are supported.");
}

TEST_CASE("a 16-bit TIFF whose data copy cannot be made is corrupt, compressed ones too") {
    Setting setting;
    const std::wstring corrupt = L"File: a.img|This file is invalid or corrupt.";
    CHECK(setting.Refusal(TiffFile{.bits = 16, .compression = 5, .pixels = "xx"}.Make()) == corrupt);
    CHECK(setting.Refusal(TiffFile{.width = 0, .bits = 16, .pixels = "xx"}.Make()) == corrupt);
    CHECK(setting.Refusal(TiffFile{.bits = 16}.Make()) == corrupt);
    CHECK(setting.Refusal(TiffFile{.bits = 16, .pixels = "xx", .more = {{282, 5, 1, 0xFFFFFFF0}}}.Make()) ==
          corrupt);
    std::filesystem::create_directory(setting.data / "import_img_00.bin");
    const ImportResult result = setting.Run(TiffFile{.bits = 16, .pixels = "xx"}.Make());
    CHECK(result.message.line2 == L"This file is invalid or corrupt.");
    CHECK(setting.data.Names() == "import_img_00.bin");
}

TEST_CASE("sides beyond 65535 are refused before the size check and before anything is written") {
    Setting setting;
    setting.request.display_size = L"10.00";
    for (const std::string& bytes :
         {BmpFile{.width = 65536, .pixels = "abcd"}.Make(), BmpFile{.width = -1, .pixels = "abcd"}.Make(),
          BmpFile{.height = -2147483647 - 1, .pixels = "abcd"}.Make(),
          TiffFile{.height = 65537, .pixels = "abcd"}.Make(),
          TiffFile{.width = 0xFFFFFFFF, .bits = 16, .pixels = "abcd"}.Make()})
        CHECK(setting.Refusal(bytes) == FormatError(L"This file is not supported."));
}

TEST_CASE("an image too large for the display size is refused before the refusals of its format") {
    Setting setting;
    setting.request.display_size = L"10.00";
    const ImportResult result = setting.Run(BmpFile{.width = 2201, .bits = 1}.Make());
    CHECK(result.message == Message{L" : Error - Image display failed.",
                                    L"A \"1000%\" zoom is too large to display.",
                                    L"The maximum zoom level for this image is \"990%\".", L""});
    CHECK(setting.data.Names().empty());
}

TEST_CASE("a display size that is no ratio starts the viewer at 50 percent") {
    for (const wchar_t* size : {L"---%", L"", L"0", L"-1", L"nan", L"abc"}) {
        Setting setting;
        setting.request.display_size = size;
        const ImportResult result = setting.Run(BmpFile{.pixels = "abc"}.Make());
        REQUIRE(result.image.has_value());
        CHECK(result.image->display_size == L"0.500");
    }
}

TEST_CASE("the user is told to wait from 4,194,304 pixels on, once, before anything is written") {
    for (const auto& [height, calls] : {std::pair{2047, 0}, {2048, 1}}) {
        CAPTURE(height);
        Setting setting;
        int called = 0;
        setting.request.before_long_import = [&] {
            ++called;
            CHECK(setting.data.Names().empty());
        };
        CHECK(
            setting.Run(BmpFile{.width = 2048, .height = height, .pixels = "abc"}.Make()).image.has_value());
        CHECK(called == calls);
    }
}

TEST_CASE("an image whose samples would not fit the memory is refused in the way of its kind") {
    Setting setting;
    setting.request.memory_limit = std::uint64_t{6} * 3000 * 3000 - 1;
    const BmpFile bmp{.width = 3000, .height = 3000, .pixels = "abcd"};
    const TiffFile tiff{.width = 3000, .height = 3000, .pixels = "abcd"};
    CHECK(setting.Refusal(bmp.Make()) == FormatError(L"This image file is invalid."));
    CHECK(setting.Refusal(tiff.Make()) == FormatError(L"This image file is invalid."));
    CHECK(setting.Refusal(TiffFile{.width = 3000, .height = 3000, .bits = 16, .pixels = "abcd"}.Make()) ==
          L"File: a.img|This file is invalid or corrupt.");
    ++setting.request.memory_limit;
    CHECK(setting.Run(bmp.Make()).image.has_value());
}

TEST_CASE("a folder in the place of the display copy, or no data folder, is a failure to open") {
    Setting setting;
    std::filesystem::create_directory(setting.data / "import_img_00.bmp");
    for (const std::string& bytes :
         {BmpFile{.pixels = "abc"}.Make(), BmpFile{.bits = 32, .pixels = "abcd"}.Make(),
          TiffFile{.pixels = "x"}.Make(), TiffFile{.bits = 16, .pixels = "xx"}.Make()}) {
        const ImportResult result = setting.Run(bytes);
        CHECK_FALSE(result.image.has_value());
        CHECK(result.message == Message{L" : Error", L"File: a.img", L"Failed to Open Image File", L""});
        CHECK(setting.data.Names() == "import_img_00.bmp");
    }
    std::filesystem::remove(setting.data / "import_img_00.bmp");
    std::filesystem::create_directory(setting.data / "import_img_00.tiff");
    const ImportResult blocked = setting.Run(TiffFile{.pixels = "x"}.Make());
    CHECK(blocked.message == Message{L" : Error", L"File: a.img", L"Failed to Open Image File", L""});
    CHECK(setting.data.Names() == "import_img_00.tiff");
    setting.request.data_folder = setting.data / "missing";
    CHECK(setting.Run(BmpFile{.pixels = "abc"}.Make()).message.line2 == L"Failed to Open Image File");
}

TEST_CASE("names beyond ASCII go through") {
    Setting setting;
    setting.request.source = setting.sources.Path() / std::filesystem::path(u8"画像 ä.bmp");
    std::filesystem::copy_file(setting.sources.Write("a", BmpFile{.pixels = "abc"}.Make()),
                               setting.request.source);
    const ImportResult result = ImportImage(setting.request);
    REQUIRE(result.image.has_value());
    CHECK(result.image->file_name == L"\u753b\u50cf \u00e4.bmp");
}

TEST_CASE("write-protected copies that were left in a free place are overwritten") {
    struct Left {
        const char* name;
        std::string file, content;
    };
    const std::string tiff8 = TiffFile{.width = 2, .bits = 8, .pixels = Bytes({1, 2})}.Make();
    for (const Left& left : {Left{"import_img_00.tiff", tiff8, tiff8},
                             Left{"import_img_00.bin",
                                  TiffFile{.width = 2, .bits = 16, .pixels = Words({0x1110, 0x2220})}.Make(),
                                  Words({0x0111, 0x0222})}}) {
        CAPTURE(left.name);
        Setting setting;
        std::filesystem::permissions(setting.data.Write(left.name, "of an earlier run, and longer than that"),
                                     std::filesystem::perms::owner_read);
        REQUIRE(setting.Run(left.file).image.has_value());
        CHECK(setting.data.Read(left.name) == left.content);
    }
}

TEST_CASE("an import for which memory runs out at any point is refused and leaves nothing") {
    const std::string files[] = {
        BmpFile{.width = 2, .height = 1, .bits = 32, .pixels = Bytes({1, 2, 3, 0, 4, 5, 6, 0})}.Make(),
        TiffFile{.width = 2, .bits = 16, .pixels = Words({0x1110, 0x2220})}.Make(),
        TiffFile{.width = 2, .bits = 8, .pixels = Bytes({1, 2})}.Make()};
    for (const std::string& file : files) {
        Setting setting;
        setting.request.source = setting.sources.Write("a picture with a long name.img", file);
        bool imported = false;
        for (unsigned long long given = 0; !imported; ++given) {
            CAPTURE(given);
            const ImportResult result = [&] {
                const ShortMemory memory(given);
                return ImportImage(setting.request);
            }();
            imported = result.image.has_value();
            if (imported) continue;
            REQUIRE(setting.data.Names() == "");
            REQUIRE(result.code == 1);
        }
    }
}
