#include "image/bmp_reader.h"

#include <doctest/doctest.h>

#include "base/file.h"
#include "image/file_type.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

BmpConversion ConvertBmpAt(const std::filesystem::path& source, const std::filesystem::path& display_copy) {
    FileType file = DetectFileType(source);
    return ConvertBmp(file, display_copy);
}

struct Converted {
    BmpConversion conversion;
    std::string copy;  // the display copy's bytes, "(none)" without one

    // The pixel rows of a display copy that was written anew.
    [[nodiscard]] std::string Rows() const { return copy.substr(54); }
};

Converted Convert(const std::string& bytes) {
    const ScratchFolder folder;
    const BmpConversion conversion = ConvertBmpAt(folder.Write("source.bmp", bytes), folder / "copy.bmp");
    return {conversion, folder.Read("copy.bmp")};
}

// 256 entries: entry i is (i, i + 1, i + 2, 0).
std::string ColourPalette() {
    std::string palette;
    for (int i = 0; i < 256; ++i) palette += Bytes({i, i + 1, i + 2, 0});
    return palette;
}

std::optional<BmpHeader> HeaderOf(const std::filesystem::path& path) {
    std::optional<File> file = File::OpenForReading(path);
    return file ? ReadBmpHeader(*file) : std::nullopt;
}

}  // namespace

TEST_CASE("the header gives size, orientation, depth and compression") {
    const ScratchFolder folder;
    const auto header = HeaderOf(folder.Write(
        "a.bmp", BmpFile{.width = 7, .height = -5, .bits = 32, .compression = 3, .data_offset = 70}.Make()));
    REQUIRE(header.has_value());
    CHECK(header->width == 7);
    CHECK(header->height == 5);
    CHECK_FALSE(header->bottom_up);
    CHECK(header->bit_count == 32);
    CHECK(header->compression == 3);
    CHECK(header->data_offset == 70);
}

TEST_CASE("the smallest height of all is taken as its absolute value") {
    const ScratchFolder folder;
    const auto header = HeaderOf(folder.Write("a.bmp", BmpFile{.height = -2147483647 - 1}.Make()));
    REQUIRE(header.has_value());
    CHECK(header->height == 2147483648u);
}

TEST_CASE("a cut header is no header") {
    const std::string whole = BmpFile{}.Make();
    for (std::size_t length = 0; length < 54; ++length) {
        CAPTURE(length);
        CHECK(Convert(whole.substr(0, length)).conversion.result == ReadResult::invalid);
    }
}

TEST_CASE("refusals by depth win over the refusal of compression") {
    struct Case {
        std::uint16_t bits;
        std::uint32_t compression;
        ReadResult result;
    };
    for (const Case& c : {Case{1, 0, ReadResult::bmp_1_bit}, Case{1, 1, ReadResult::bmp_1_bit},
                          Case{4, 0, ReadResult::bmp_4_bit}, Case{4, 2, ReadResult::bmp_4_bit},
                          Case{8, 1, ReadResult::compressed}, Case{24, 1, ReadResult::compressed},
                          Case{32, 3, ReadResult::compressed}, Case{16, 3, ReadResult::compressed},
                          Case{16, 0, ReadResult::not_supported}, Case{2, 0, ReadResult::not_supported},
                          Case{0, 0, ReadResult::not_supported}, Case{48, 0, ReadResult::not_supported}}) {
        CAPTURE(c.bits);
        CAPTURE(c.compression);
        const Converted converted = Convert(
            BmpFile{.bits = c.bits, .compression = c.compression, .pixels = Bytes({1, 2, 3, 4})}.Make());
        CHECK(converted.conversion.result == c.result);
        CHECK(converted.conversion.bit_count == c.bits);
        CHECK(converted.copy == "(none)");
    }
}

TEST_CASE("every refusal has its words") {
    CHECK(RefusalText(ReadResult::invalid) == L"This image file is invalid.");
    CHECK(RefusalText(ReadResult::compressed) == L"Compressed files are not supported.");
    CHECK(RefusalText(ReadResult::cmyk) == L"\"CMYK\" foramt files are not supported.");
    CHECK(RefusalText(ReadResult::bmp_1_bit) == L"1-Bit BMP file is not supported.");
    CHECK(RefusalText(ReadResult::bmp_4_bit) == L"4-Bit BMP file is not supported.");
    CHECK(RefusalText(ReadResult::not_supported) == L"This file is not supported.");
    CHECK(static_cast<int>(ReadResult::not_supported) == 15);
    CHECK(static_cast<int>(ReadResult::bmp_4_bit) == 5);
}

TEST_CASE("an image without width or height is invalid, one too large is not supported") {
    CHECK(Convert(BmpFile{.width = 0, .pixels = "abc"}.Make()).conversion.result == ReadResult::invalid);
    CHECK(Convert(BmpFile{.height = 0, .pixels = "abc"}.Make()).conversion.result == ReadResult::invalid);
    CHECK(Convert(BmpFile{.width = 65536, .pixels = "abc"}.Make()).conversion.result ==
          ReadResult::not_supported);
    CHECK(Convert(BmpFile{.width = -1, .pixels = "abc"}.Make()).conversion.result ==
          ReadResult::not_supported);
}

TEST_CASE("a header of twelve bytes is read like any other, which refuses the file") {
    // Its sizes take two bytes each: 5 x 7 is read as a width of 5 + 7 x 65536.
    const std::string bytes = "BM" + Bytes({0, 0, 0, 0, 0, 0, 0, 0, 26, 0, 0, 0, 12, 0, 0, 0}) +
                              Bytes({5, 0, 7, 0, 1, 0, 24, 0}) + std::string(112, '\0');
    CHECK(Convert(bytes).conversion.result != ReadResult::accepted);
    CHECK(Convert(bytes).copy == "(none)");
    const ScratchFolder folder;
    const auto header = HeaderOf(folder.Write("a.bmp", bytes));
    REQUIRE(header.has_value());
    CHECK(header->width == 5 + 7 * 65536);
}

TEST_CASE("a file without one byte of pixel data is invalid, one byte is enough") {
    for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{24}, std::uint16_t{32}}) {
        CAPTURE(bits);
        BmpFile file{.width = 3, .height = 2, .bits = bits};
        CHECK(Convert(file.Make()).conversion.result == ReadResult::invalid);
        file.pixels = "x";
        CHECK(Convert(file.Make()).conversion.result == ReadResult::accepted);
        file.data_offset = 5000;
        CHECK(Convert(file.Make()).conversion.result == ReadResult::invalid);
    }
}

TEST_CASE("a source that cannot be opened is accepted without a copy") {
    const ScratchFolder folder;
    CHECK(ConvertBmpAt(folder / "missing.bmp", folder / "copy.bmp").result == ReadResult::accepted);
    CHECK(folder.Names().empty());
}

TEST_CASE("a 24-bit file is copied byte for byte, whatever stands around its pixels") {
    const std::string bytes = BmpFile{.width = 1,
                                      .height = 2,
                                      .data_offset = 60,
                                      .before_data = "gap...",
                                      .pixels = Bytes({9, 9, 9, 0, 7, 7, 7, 0}) + "trailer"}
                                  .Make();
    const Converted converted = Convert(bytes);
    CHECK(converted.conversion.result == ReadResult::accepted);
    CHECK(converted.conversion.bit_count == 24);
    CHECK_FALSE(converted.conversion.colour);
    CHECK(converted.copy == bytes);
}

TEST_CASE("a 24-bit file is colour as soon as one pixel is, padding bytes not counted") {
    BmpFile file{.width = 2, .height = 2, .pixels = Bytes({5, 5, 5, 6, 6, 6, 1, 2, 8, 8, 8, 9, 9, 9, 3, 4})};
    CHECK_FALSE(Convert(file.Make()).conversion.colour);
    file.pixels[13] = 10;
    CHECK(Convert(file.Make()).conversion.colour);
    file.height = -2;
    CHECK(Convert(file.Make()).conversion.colour);
    // What a cut file lacks of its last pixel is zero.
    file.pixels.resize(9);
    CHECK(Convert(file.Make()).conversion.colour);
    file.pixels.resize(8);
    CHECK_FALSE(Convert(file.Make()).conversion.colour);
}

TEST_CASE("a 24-bit file larger than one block is looked at to its end") {
    BmpFile file{.width = 401, .height = 500};  // rows of 1204 bytes, more than two blocks
    file.pixels.assign(std::size_t{1204} * 500, '\x50');
    CHECK_FALSE(Convert(file.Make()).conversion.colour);
    file.pixels[std::size_t{1204} * 499 + 1202] = '\x51';
    const Converted converted = Convert(file.Make());
    CHECK(converted.conversion.colour);
    CHECK(converted.copy == file.Make());
}

TEST_CASE("32-bit pixels lose their fourth byte and end bottom-up") {
    BmpFile file{.width = 2,
                 .height = 2,
                 .bits = 32,
                 .pixels = Bytes({1, 2, 3, 90, 4, 5, 6, 91, 7, 8, 9, 92, 10, 11, 12, 93})};
    const std::string lower = Bytes({1, 2, 3, 4, 5, 6, 0, 0}), upper = Bytes({7, 8, 9, 10, 11, 12, 0, 0});
    Converted converted = Convert(file.Make());
    CHECK(converted.conversion.colour);
    CHECK(converted.conversion.bit_count == 32);
    CHECK(converted.Rows() == lower + upper);
    file.height = -2;  // top-down: the first row of the file is the top one
    CHECK(Convert(file.Make()).Rows() == upper + lower);
}

TEST_CASE("a display copy that is written anew has its header field by field") {
    const std::string copy =
        Convert(BmpFile{.width = 3, .height = 2, .bits = 32, .pixels = std::string(24, 'a')}.Make()).copy;
    // clang-format off
    CHECK(copy.substr(0, 54) == Bytes({'B', 'M', 78, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,
                                       40, 0, 0, 0, 3, 0, 0, 0, 2, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0,
                                       24, 0, 0, 0, 0xC4, 0x0E, 0, 0, 0xC4, 0x0E, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    // clang-format on
    CHECK(copy.size() == 78);
}

TEST_CASE("bottom-up 8-bit pixels go through the palette and skip their padding") {
    const Converted converted = Convert(BmpFile{.width = 3,
                                                .height = 2,
                                                .bits = 8,
                                                .data_offset = 54 + 1024,
                                                .before_data = ColourPalette(),
                                                .pixels = Bytes({0, 1, 2, 99, 100, 253, 3, 98})}
                                            .Make());
    CHECK(converted.conversion.result == ReadResult::accepted);
    CHECK(converted.conversion.colour);
    CHECK(converted.Rows() == Bytes({0,   1,   2,   1,   2,   3,   2, 3, 4, 0, 0, 0,  //
                                     100, 101, 102, 253, 254, 255, 3, 4, 5, 0, 0, 0}));
}

TEST_CASE("a short palette is still read as 256 entries from its fixed place") {
    // Two entries only, and the pixel data right behind them: index 3 takes whatever stands there.
    const Converted converted = Convert(BmpFile{.width = 4,
                                                .height = 2,
                                                .bits = 8,
                                                .data_offset = 62,
                                                .before_data = Bytes({10, 11, 12, 0, 20, 21, 22, 0}),
                                                .pixels = Bytes({0, 1, 2, 3, 31, 32, 33, 34})}
                                            .Make());
    CHECK(converted.Rows().substr(0, 12) == Bytes({10, 11, 12, 20, 21, 22, 0, 1, 2, 31, 32, 33}));
}

TEST_CASE("top-down 8-bit pixels are indices shown as grey, without padding") {
    // Width 3: with padding the second row would start at the fifth byte.
    const Converted converted = Convert(BmpFile{.width = 3,
                                                .height = -2,
                                                .bits = 8,
                                                .data_offset = 54 + 1024,
                                                .before_data = ColourPalette(),
                                                .pixels = Bytes({1, 2, 3, 4, 5, 6, 7, 8})}
                                            .Make());
    CHECK_FALSE(converted.conversion.colour);
    CHECK(converted.Rows() == Bytes({4, 4, 4, 5, 5, 5, 6, 6, 6, 0, 0, 0,  //
                                     1, 1, 1, 2, 2, 2, 3, 3, 3, 0, 0, 0}));
}

TEST_CASE("what a short file lacks is black") {
    const BmpFile rows32{.width = 1, .height = 3, .bits = 32, .pixels = Bytes({1, 2, 3, 4, 5, 6})};
    CHECK(Convert(rows32.Make()).Rows() == Bytes({1, 2, 3, 0, 5, 6, 0, 0, 0, 0, 0, 0}));
    BmpFile rows8{.width = 2, .height = 2, .bits = 8, .data_offset = 1078, .before_data = ColourPalette()};
    rows8.pixels = Bytes({7});
    // Missing pixels are black, not the first palette entry (0, 1, 2).
    CHECK(Convert(rows8.Make()).Rows() == Bytes({7, 8, 9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_CASE("rows are padded by width modulo 4") {
    const int padding[] = {1, 2, 3, 0, 1};
    for (int width = 1; width <= 5; ++width) {
        CAPTURE(width);
        const Converted converted =
            Convert(BmpFile{.width = width, .height = 1, .bits = 32, .pixels = std::string(20, 'x')}.Make());
        CHECK(converted.Rows().size() == static_cast<std::size_t>(3 * width + padding[width - 1]));
        CHECK(converted.Rows().substr(static_cast<std::size_t>(3 * width)) ==
              std::string(static_cast<std::size_t>(padding[width - 1]), '\0'));
    }
}

TEST_CASE("a copy that cannot be written is told apart and leaves nothing") {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "copy.bmp");
    for (const std::uint16_t bits : {std::uint16_t{24}, std::uint16_t{32}}) {
        const auto source = folder.Write("a.bmp", BmpFile{.bits = bits, .pixels = "abcd"}.Make());
        CHECK(ConvertBmpAt(source, folder / "copy.bmp").result == ReadResult::write_failed);
    }
    CHECK(folder.Names() == "a.bmp copy.bmp");
}

TEST_CASE("a write-protected copy of an earlier image is replaced") {
    const ScratchFolder folder;
    const auto source = folder.Write("a.bmp", BmpFile{.pixels = "abc"}.Make());
    std::filesystem::permissions(source, std::filesystem::perms::owner_read);
    std::filesystem::permissions(folder.Write("copy.bmp", "old"), std::filesystem::perms::owner_read);
    CHECK(ConvertBmpAt(source, folder / "copy.bmp").result == ReadResult::accepted);
    CHECK(folder.Read("copy.bmp") == folder.Read("a.bmp"));
    const auto permissions = std::filesystem::status(folder / "copy.bmp").permissions();
    CHECK((permissions & std::filesystem::perms::owner_write) != std::filesystem::perms::none);
}

TEST_CASE("the padding of a large copy is zero in every row") {
    constexpr int kWidth = 1001, kHeight = 1000;
    constexpr std::size_t kStride = 3004, kPixels = 3003;
    const std::string white(std::size_t{kWidth} * kHeight * 4, '\xFF');
    const ScratchFolder folder;
    for (const int height : {kHeight, -kHeight})
        for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{32}})
            for (const std::size_t missing : {std::size_t{0}, white.size() - 700'001}) {
                CAPTURE(height);
                CAPTURE(bits);
                CAPTURE(missing);
                const BmpFile file{.width = kWidth,
                                   .height = height,
                                   .bits = bits,
                                   .data_offset = 54 + 1024,
                                   .before_data = std::string(1024, '\xFF'),
                                   .pixels = white.substr(missing)};
                const auto source = folder.Write("a.bmp", file.Make());
                REQUIRE(ConvertBmpAt(source, folder / "copy.bmp").result == ReadResult::accepted);
                const std::string copy = folder.Read("copy.bmp");
                REQUIRE(copy.size() == 54 + kStride * kHeight);
                int rows = 0;
                for (std::size_t row = 0; row < kHeight; ++row)
                    rows += copy[54 + row * kStride + kPixels] == '\0' ? 1 : 0;
                CHECK(rows == kHeight);
            }
}
