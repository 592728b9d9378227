#include "image/tiff_reader.h"

#include <doctest/doctest.h>

#include <random>

#include "image/file_type.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

ReadResult ConvertTiffAt(const std::filesystem::path& source, const std::filesystem::path& display_copy,
                         const std::filesystem::path& byte_copy) {
    FileType file = DetectFileType(source);
    return ConvertTiff(file, display_copy, byte_copy);
}

Tiff16Conversion ConvertTiff16At(const std::filesystem::path& source,
                                 const std::filesystem::path& display_copy,
                                 const std::filesystem::path& data_copy, int valid_bits) {
    FileType file = DetectFileType(source);
    return ConvertTiff16(file, display_copy, data_copy, valid_bits);
}

struct Copies {
    ReadResult result;
    std::string display, byte_copy;
    [[nodiscard]] std::string Rows() const { return display.substr(54); }
};

Copies Convert(const std::string& bytes) {
    const ScratchFolder folder;
    const auto source = folder.Write("a.tif", bytes);
    const ReadResult result = ConvertTiffAt(source, folder / "display.bmp", folder / "copy.tiff");
    return {result, folder.Read("display.bmp"), folder.Read("copy.tiff")};
}

struct Copies16 {
    Tiff16Conversion conversion;
    std::string display, data;
    [[nodiscard]] std::string Rows() const { return display.substr(54); }
};

Copies16 Convert16(const std::string& bytes, int valid_bits) {
    const ScratchFolder folder;
    const auto source = folder.Write("a.tif", bytes);
    const Tiff16Conversion conversion =
        ConvertTiff16At(source, folder / "display.bmp", folder / "data.bin", valid_bits);
    return {conversion, folder.Read("display.bmp"), folder.Read("data.bin")};
}

}  // namespace

TEST_CASE("8-bit grey shows each byte three times, bottom-up, and is copied whole") {
    const std::string bytes =
        TiffFile{.width = 2, .height = 2, .pixels = Bytes({1, 2, 3, 0x7F}) + "trailer"}.Make();
    const Copies copies = Convert(bytes);
    CHECK(copies.result == ReadResult::accepted);
    CHECK(copies.Rows() == Bytes({3, 3, 3, 0x7F, 0x7F, 0x7F, 0, 0, 1, 1, 1, 2, 2, 2, 0, 0}));
    CHECK(copies.byte_copy == bytes);
}

TEST_CASE("8-bit RGB becomes blue, green, red") {
    const Copies copies =
        Convert(TiffFile{.width = 2, .photometric = 2, .pixels = Bytes({1, 2, 3, 4, 5, 6})}.Make());
    CHECK(copies.Rows() == Bytes({3, 2, 1, 6, 5, 4, 0, 0}));
}

TEST_CASE("12-bit grey is unpacked across rows and shows its upper eight bits") {
    // Rows of three pixels: 0xABC 0x123 0x456 / 0x789 0xDEF 0x00F
    const Copies copies =
        Convert(TiffFile{.width = 3,
                         .height = 2,
                         .bits = 12,
                         .pixels = Bytes({0xAB, 0xC1, 0x23, 0x45, 0x67, 0x89, 0xDE, 0xF0, 0x0F})}
                    .Make());
    CHECK(copies.Rows() == Bytes({0x78, 0x78, 0x78, 0xDE, 0xDE, 0xDE, 0,    0,    0,    0, 0, 0,  //
                                  0xAB, 0xAB, 0xAB, 0x12, 0x12, 0x12, 0x45, 0x45, 0x45, 0, 0, 0}));
}

TEST_CASE("the odd last pixel of 12-bit images is not read, grey or RGB") {
    const Copies grey = Convert(TiffFile{.width = 3, .bits = 12, .pixels = std::string(20, '\xFF')}.Make());
    CHECK(grey.Rows() == std::string(6, '\xFF') + std::string(6, '\0'));
    const Copies rgb = Convert(
        TiffFile{.width = 1, .height = 3, .photometric = 2, .bits = 12, .pixels = std::string(40, '\xFF')}
            .Make());
    CHECK(rgb.Rows() == std::string(4, '\0') + "\xFF\xFF\xFF" + std::string(1, '\0') + "\xFF\xFF\xFF" +
                            std::string(1, '\0'));
}

TEST_CASE("12-bit RGB is unpacked in the order red, green, blue") {
    // 0x100 0x200 0x300 / 0x400 0x500 0x600
    const Copies copies =
        Convert(TiffFile{.width = 2,
                         .photometric = 2,
                         .bits = 12,
                         .pixels = Bytes({0x10, 0x02, 0x00, 0x30, 0x04, 0x00, 0x50, 0x06, 0x00})}
                    .Make());
    CHECK(copies.Rows() == Bytes({0x30, 0x20, 0x10, 0x60, 0x50, 0x40, 0, 0}));
}

TEST_CASE("16-bit samples show their high byte, read little-endian in either byte order") {
    for (const bool big : {false, true}) {
        CAPTURE(big);
        const TiffFile file{
            .big_endian = big, .width = 2, .bits = 16, .pixels = Bytes({0x34, 0x12, 0xFF, 0x00})};
        CHECK(Convert(file.Make()).Rows() == Bytes({0x12, 0x12, 0x12, 0, 0, 0, 0, 0}));
        const Copies16 copies = Convert16(file.Make(), 16);
        CHECK(copies.Rows() == Bytes({0x12, 0x12, 0x12, 0, 0, 0, 0, 0}));
        CHECK(copies.data == Words({0x1234, 0x00FF}));
    }
}

TEST_CASE("16-bit RGB becomes blue, green, red in both copies") {
    const Copies16 copies =
        Convert16(TiffFile{.width = 2,
                           .photometric = 2,
                           .bits = 16,
                           .pixels = Words({0x1110, 0x2220, 0x3330, 0x4440, 0x5550, 0x6660})}
                      .Make(),
                  12);
    CHECK(copies.conversion.data_written);
    CHECK(copies.conversion.display_written);
    CHECK(copies.conversion.valid_bits == 12);
    CHECK(copies.data == Words({0x333, 0x222, 0x111, 0x666, 0x555, 0x444}));
    CHECK(copies.Rows() == Bytes({0x33, 0x22, 0x11, 0x66, 0x55, 0x44, 0, 0}));
}

TEST_CASE("10- and 14-bit words show their low byte, 14 bits after a shift by two") {
    CHECK(Convert(TiffFile{.width = 2, .bits = 10, .pixels = Words({0x0123, 0x03FF})}.Make()).Rows() ==
          Bytes({0x23, 0x23, 0x23, 0xFF, 0xFF, 0xFF, 0, 0}));
    CHECK(Convert(TiffFile{.width = 1, .bits = 14, .pixels = Words({0x0124})}.Make()).Rows() ==
          Bytes({0x49, 0x49, 0x49, 0}));
}

TEST_CASE("the two recorded depths can differ; the reduction follows either") {
    // Four values 16, 16, 16, 8: a grey file of 8 bits, reduced as if it had 16.
    TiffFile file{.photometric = 1, .bits = 8, .pixels = "\x7F"};
    file.more = {{258, 3, 4, 0}};
    const std::uint32_t data = file.DataOffset();
    file.more = {{258, 3, 4, data}};
    file.pixels = Words({16, 16, 16, 8});
    CHECK(Convert(file.Make()).Rows() == Bytes({0, 0, 0, 0}));
}

TEST_CASE("refusals in their order: compression, damage, CMYK, other kinds") {
    const auto result = [](TiffFile file) {
        file.pixels = "pixels";
        const Copies copies = Convert(file.Make());
        CHECK(copies.display == "(none)");
        return copies.result;
    };
    CHECK(result({.compression = 2}) == ReadResult::compressed);
    CHECK(result({.photometric = 5, .compression = 5}) == ReadResult::compressed);
    CHECK(result({.compression = 7, .more = {{282, 5, 1, 0xFFFFFFF0}}}) == ReadResult::compressed);
    CHECK(result({.more = {{282, 5, 1, 0xFFFFFFF0}}}) == ReadResult::invalid);
    CHECK(result({.width = 0}) == ReadResult::invalid);
    CHECK(result({.height = 0, .photometric = 5}) == ReadResult::invalid);
    CHECK(result({.photometric = 0}) == ReadResult::not_supported);
    CHECK(result({.photometric = 3}) == ReadResult::not_supported);
    CHECK(result({.photometric = 5}) == ReadResult::cmyk);
    CHECK(result({.photometric = 6}) == ReadResult::not_supported);
    CHECK(result({.bits = 1}) == ReadResult::not_supported);
    CHECK(result({.width = 65536}) == ReadResult::not_supported);
}

TEST_CASE("a compression of 0 is no compression") {
    CHECK(Convert(TiffFile{.compression = 0, .pixels = "x"}.Make()).result == ReadResult::accepted);
}

TEST_CASE("a source that cannot be opened is not supported") {
    const ScratchFolder folder;
    CHECK(ConvertTiffAt(folder / "missing.tif", folder / "a.bmp", folder / "a.tiff") ==
          ReadResult::not_supported);
    CHECK_FALSE(ConvertTiff16At(folder / "missing.tif", folder / "a.bmp", folder / "a.bin", 16).data_written);
    CHECK(folder.Names().empty());
}

TEST_CASE("a TIFF without one byte of pixel data is refused, one byte is enough") {
    TiffFile file{.width = 3, .height = 2};
    CHECK(Convert(file.Make()).result == ReadResult::invalid);
    file.pixels = "\x55";
    const Copies copies = Convert(file.Make());
    CHECK(copies.result == ReadResult::accepted);
    CHECK(copies.Rows() == std::string(12, '\0') + "\x55\x55\x55" + std::string(9, '\0'));

    TiffFile file16{.width = 2, .bits = 16};
    CHECK_FALSE(Convert16(file16.Make(), 16).conversion.data_written);
    file16.pixels = "\x55";
    const Copies16 short16 = Convert16(file16.Make(), 16);
    CHECK(short16.conversion.data_written);
    CHECK(short16.data == Words({0x55, 0}));
}

TEST_CASE("pixels are read straight through from the first strip, whatever the other strips say") {
    TiffFile file{.width = 1, .height = 2};
    file.more = {{273, 4, 2, 0}};
    const std::uint32_t table = file.DataOffset();
    file.more = {{273, 4, 2, table}};
    file.pixels = Bytes({static_cast<int>(table + 8), 0, 0, 0, 1, 0, 0, 0, 0xAA, 0xBB});
    CHECK(Convert(file.Make()).Rows() == Bytes({0xBB, 0xBB, 0xBB, 0, 0xAA, 0xAA, 0xAA, 0}));
}

TEST_CASE("files with extra samples or separate planes are read as three samples a pixel all the same") {
    TiffFile file{.width = 2, .photometric = 2, .pixels = Bytes({1, 2, 3, 255, 4, 5, 6, 255})};
    file.more = {{277, 3, 1, 4}};
    CHECK(Convert(file.Make()).Rows() == Bytes({3, 2, 1, 5, 4, 255, 0, 0}));
    file.pixels = Bytes({1, 2, 3, 4, 5, 6});
    file.more = {{284, 3, 1, 2}};
    CHECK(Convert(file.Make()).Rows() == Bytes({3, 2, 1, 6, 5, 4, 0, 0}));
}

TEST_CASE("a strip table too large to be fetched has the pixels read from the start of the file") {
    TiffFile file{.width = 2};
    file.with_bits = true;
    // Without a fetched table the offset keeps its default of 0 only where no other entry sets it.
    std::string bytes = file.Make() + "xx";
    const std::size_t entry = 10 + 12 * 5;
    bytes.replace(entry, 12, Bytes({0x11, 0x01, 4, 0, 0, 9, 0, 0, 8, 0, 0, 0}));
    const Copies copies = Convert(bytes);
    CHECK(copies.result == ReadResult::accepted);
    CHECK(copies.Rows() == Bytes({'I', 'I', 'I', 'I', 'I', 'I', 0, 0}));
}

TEST_CASE("the data copy needs 16 bits and no compression") {
    CHECK_FALSE(Convert16(TiffFile{.bits = 8, .pixels = "xx"}.Make(), 16).conversion.data_written);
    CHECK_FALSE(
        Convert16(TiffFile{.bits = 16, .compression = 5, .pixels = "xx"}.Make(), 16).conversion.data_written);
    CHECK_FALSE(
        Convert16(TiffFile{.bits = 16, .compression = 0, .pixels = "xx"}.Make(), 16).conversion.data_written);
    CHECK_FALSE(
        Convert16(TiffFile{.width = 0, .bits = 16, .pixels = "xx"}.Make(), 16).conversion.data_written);
    CHECK_FALSE(
        Convert16(TiffFile{.photometric = 0, .bits = 16, .pixels = "xx"}.Make(), 16).conversion.data_written);
    const Copies16 damaged =
        Convert16(TiffFile{.bits = 16, .pixels = "xx", .more = {{282, 5, 1, 0xFFFFFFF0}}}.Make(), 16);
    CHECK_FALSE(damaged.conversion.data_written);
    CHECK(damaged.data == "(none)");
    CHECK(damaged.display == "(none)");
}

TEST_CASE("manual valid bits divide the samples, automatic ones are found first") {
    const TiffFile file{.width = 3, .bits = 16, .pixels = Words({0x1230, 0x4560, 0xFFF0})};
    const std::vector<std::pair<int, std::vector<int>>> manual = {{16, {0x1230, 0x4560, 0xFFF0}},
                                                                  {14, {0x048C, 0x1158, 0x3FFC}},
                                                                  {12, {0x0123, 0x0456, 0x0FFF}},
                                                                  {10, {0x0048, 0x0115, 0x03FF}},
                                                                  {8, {0x0012, 0x0045, 0x00FF}}};
    for (const auto& [bits, values] : manual) {
        CAPTURE(bits);
        const Copies16 copies = Convert16(file.Make(), bits);
        CHECK(copies.conversion.valid_bits == bits);
        CHECK(copies.data == Words(values));
        CHECK(copies.Rows() == Bytes({0x12, 0x12, 0x12, 0x45, 0x45, 0x45, 0xFF, 0xFF, 0xFF, 0, 0, 0}));
    }
    for (const int automatic : {0, 9, -1, 100}) {
        CAPTURE(automatic);
        const Copies16 copies = Convert16(file.Make(), automatic);
        CHECK(copies.conversion.valid_bits == 12);
        CHECK(copies.data == Words({0x0123, 0x0456, 0x0FFF}));
    }
}

TEST_CASE("a flat image has 8 valid bits") {
    const Copies16 copies =
        Convert16(TiffFile{.width = 2, .bits = 16, .pixels = Words({0xABCD, 0xABCD})}.Make(), 0);
    CHECK(copies.conversion.valid_bits == 8);
    CHECK(copies.data == Words({0xAB, 0xAB}));
}

TEST_CASE("samples that a short file lacks are zeros for the detection too") {
    const Copies16 copies =
        Convert16(TiffFile{.width = 3, .bits = 16, .pixels = Words({0x1001, 0x2001})}.Make(), 0);
    CHECK(copies.conversion.valid_bits == 16);
    CHECK(copies.data == Words({0x1001, 0x2001, 0}));
}

TEST_CASE("a first guess of the valid bits that proves wrong is made good") {
    // 600 x 600 words are several blocks; only the very last sample needs all 16 bits.
    std::vector<int> samples(std::size_t{600} * 600, 0x1200);
    samples[100] = 0x3400;
    for (const auto& [last, bits] :
         {std::pair{0x3400, 8}, {0x3440, 10}, {0x3410, 12}, {0x3404, 14}, {0x3401, 16}}) {
        CAPTURE(last);
        samples.back() = last;
        const Copies16 copies =
            Convert16(TiffFile{.width = 600, .height = 600, .bits = 16, .pixels = Words(samples)}.Make(), 0);
        CHECK(copies.conversion.valid_bits == bits);
        std::vector<int> expected = samples;
        for (int& value : expected) value >>= 16 - bits;
        CHECK((copies.data == Words(expected)));
        CHECK(copies.display.size() == 54 + std::size_t{1800} * 600);
    }
}

TEST_CASE("large images come out the same as pixel by pixel") {
    std::mt19937 random(7);
    constexpr int kWidth = 301, kHeight = 400;
    std::vector<int> samples(std::size_t{3} * kWidth * kHeight);
    for (int& sample : samples) sample = static_cast<int>(random() & 0xFFFF);
    const Copies16 copies = Convert16(
        TiffFile{.width = kWidth, .height = kHeight, .photometric = 2, .bits = 16, .pixels = Words(samples)}
            .Make(),
        10);
    std::vector<int> data;
    std::string rows;
    for (std::size_t i = 0; i < samples.size(); i += 3)
        for (const std::size_t channel : {2, 1, 0}) data.push_back(samples[i + channel] / 64);
    for (int y = kHeight - 1; y >= 0; --y) {
        for (int x = 0; x < kWidth; ++x)
            for (const int channel : {2, 1, 0})
                rows.push_back(static_cast<char>(
                    samples[static_cast<std::size_t>(3 * (y * kWidth + x) + channel)] >> 8));
        rows.push_back('\0');
    }
    CHECK((copies.data == Words(data)));
    CHECK((copies.Rows() == rows));
}

TEST_CASE("copies that cannot be written leave nothing half-written") {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "taken");
    const auto grey = folder.Write("a.tif", TiffFile{.pixels = "x"}.Make());
    const auto grey16 = folder.Write("b.tif", TiffFile{.bits = 16, .pixels = "xx"}.Make());
    CHECK(ConvertTiffAt(grey, folder / "taken", folder / "a.tiff") == ReadResult::write_failed);
    CHECK(ConvertTiffAt(grey, folder / "a.bmp", folder / "taken") == ReadResult::write_failed);
    CHECK_FALSE(ConvertTiff16At(grey16, folder / "a.bmp", folder / "taken", 16).data_written);
    CHECK(folder.Names() == "a.tif b.tif taken");
    const Tiff16Conversion no_display = ConvertTiff16At(grey16, folder / "taken", folder / "a.bin", 16);
    CHECK(no_display.data_written);
    CHECK_FALSE(no_display.display_written);
}
