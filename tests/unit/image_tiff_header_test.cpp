#include "image/tiff_header.h"

#include <doctest/doctest.h>

#include "image/file_type.h"
#include "image/tiff_reader.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

TiffHeader Header(const std::string& bytes) {
    const ScratchFolder folder;
    std::optional<File> file = File::OpenForReading(folder.Write("a.tif", bytes));
    REQUIRE(file.has_value());
    return ReadTiffHeader(*file);
}

FileType Type(const std::string& bytes) {
    const ScratchFolder folder;
    return DetectFileType(folder.Write("a", bytes));
}

}  // namespace

TEST_CASE("both byte orders give the same fields") {
    for (const bool big : {false, true}) {
        CAPTURE(big);
        const TiffHeader header = Header(TiffFile{.big_endian = big,
                                                  .width = 70000,
                                                  .height = 3,
                                                  .photometric = 1,
                                                  .bits = 16,
                                                  .compression = 5,
                                                  .more = {{278, 4, 1, 3}, {279, 4, 1, 99}, {296, 3, 1, 2}}}
                                             .Make());
        CHECK(header.kind == (big ? ImageFileKind::tiff_big : ImageFileKind::tiff_little));
        CHECK(header.complete);
        CHECK(header.info.width == 70000);
        CHECK(header.info.height == 3);
        CHECK(header.info.bits == std::array<std::uint16_t, 4>{0, 0, 0, 16});
        CHECK(header.info.compression == 5);
        CHECK(header.info.photometric == 1);
        CHECK(header.info.rows_per_strip == 3);
        CHECK(header.info.strip_byte_count == 99);
        CHECK(header.info.resolution_unit == 2);
        CHECK(header.info.strip_count == 1);
    }
}

TEST_CASE("fields without an entry keep their defaults") {
    const TiffHeader empty = Header(Bytes({'I', 'I', 42, 0, 8, 0, 0, 0, 0, 0}));
    CHECK(empty.complete);
    CHECK(empty.info.bits == std::array<std::uint16_t, 4>{1, 1, 1, 1});
    CHECK(empty.info.compression == 1);
    CHECK(empty.info.photometric == 0);
    CHECK(empty.info.width == 0);
    CHECK(empty.info.strip_count == 0);
}

TEST_CASE("bits per sample go to the channels or to the single value by their number") {
    TiffFile file{.photometric = 2, .bits = 12};
    CHECK(Header(file.Make()).info.bits == std::array<std::uint16_t, 4>{12, 12, 12, 0});
    const std::uint32_t values = file.DataOffset() + 12 - 8;  // one entry more moves the values by 12 bytes
    file.more = {{258, 3, 4, values}};
    CHECK(Header(file.Make()).info.bits == std::array<std::uint16_t, 4>{12, 12, 12, 12});
    file.more = {{258, 3, 2, 16 | 8u << 16}};
    CHECK(Header(file.Make()).info.bits == std::array<std::uint16_t, 4>{0, 0, 0, 16});
    file.more = {{258, 1, 3, 0x070605}};  // bytes: three values in four bytes
    CHECK(Header(file.Make()).info.bits == std::array<std::uint16_t, 4>{0, 0, 0, 5});
}

TEST_CASE("values of up to four bytes stand in the entry") {
    TiffFile file;
    file.more = {{273, 3, 2, 100 | 200u << 16}};
    const TiffHeader header = Header(file.Make());
    CHECK(header.complete);
    CHECK(header.info.first_strip_offset == 100);
    CHECK(header.info.strip_count == 2);
}

TEST_CASE("longer values are fetched from where the entry points") {
    TiffFile file;
    file.more = {{273, 4, 2, 0}, {282, 5, 1, 0}, {283, 5, 1, 0}};
    const std::uint32_t data = file.DataOffset();
    file.more = {{273, 4, 2, data}, {282, 5, 1, data}, {283, 5, 1, data + 4}};
    file.pixels = Bytes({0x10, 0x20, 0, 0, 7, 0, 0, 0, 9, 0, 0, 0});
    const TiffHeader header = Header(file.Make());
    CHECK(header.complete);
    CHECK(header.info.first_strip_offset == 0x2010);
    CHECK(header.info.x_resolution == std::array<std::uint32_t, 2>{0x2010, 7});
    CHECK(header.info.y_resolution == std::array<std::uint32_t, 2>{7, 9});
}

TEST_CASE("a strip table of 8,193 bytes and more leaves the first offset at 0, its count is known") {
    for (const std::uint32_t count : {2048u, 2049u, 16384u}) {
        CAPTURE(count);
        TiffFile file;
        file.more = {{273, 4, count, 0}};
        const std::uint32_t data = file.DataOffset();
        file.more = {{273, 4, count, data}};
        file.pixels = Bytes({5, 0, 0, 0}) + std::string(std::size_t{4} * count, '\0');
        const TiffHeader header = Header(file.Make());
        CHECK(header.complete);
        // 2048 offsets take 8,192 bytes and are fetched. The usual entry before it had set the offset of the
        // data.
        CHECK(header.info.first_strip_offset == (count == 2048 ? 5 : data));
        CHECK(header.info.strip_count == count);
    }
}

TEST_CASE("8,192 bytes of values are fetched, 8,193 are not") {
    for (const auto& [count, colour_map] : {std::pair{8192u, 0x55}, {8193u, 0}}) {
        CAPTURE(count);
        TiffFile file;
        file.more = {{320, 1, count, 0}};
        const std::uint32_t data = file.DataOffset();
        file.more = {{320, 1, count, data}};
        file.pixels = std::string(10'000, '\x55');
        const TiffHeader header = Header(file.Make());
        CHECK(header.complete);
        CHECK(header.info.colour_map == colour_map);
    }
}

TEST_CASE("values beyond the file make the header incomplete, what was read stays") {
    for (const TiffEntry& entry :
         {TiffEntry{282, 5, 1, 0xFFFFFFF0}, TiffEntry{258, 3, 4, 100000}, TiffEntry{320, 3, 100, 8}}) {
        CAPTURE(entry.tag);
        const TiffHeader header = Header(TiffFile{.width = 9, .more = {entry}}.Make());
        CHECK_FALSE(header.complete);
        CHECK(header.kind == ImageFileKind::tiff_little);
        CHECK(header.info.width == 9);
    }
}

TEST_CASE("entries of other tags are skipped, whatever they hold") {
    CHECK(Header(TiffFile{.more = {{700, 5, 0xFFFFFFFF, 0xFFFFFFFF}}}.Make()).complete);
}

TEST_CASE("an unknown type has no values") {
    const TiffHeader header = Header(TiffFile{.width = 4, .more = {{256, 99, 1, 7}, {257, 0, 3, 7}}}.Make());
    CHECK(header.complete);
    CHECK(header.info.width == 4);
}

TEST_CASE("counts whose product passes 32 bits are not taken for small ones") {
    // 8 x 0x20000001 is 8 modulo 2^32.
    const TiffHeader header = Header(TiffFile{.more = {{282, 5, 0x20000001, 8}}}.Make());
    CHECK(header.complete);
    CHECK(header.info.x_resolution == std::array<std::uint32_t, 2>{0, 0});
}

TEST_CASE("values too large for their field do not wrap round to good ones") {
    const TiffHeader header = Header(TiffFile{.more = {{259, 4, 1, 65537}, {262, 4, 1, 65538}}}.Make());
    CHECK(header.info.compression == 65535);
    CHECK(header.info.photometric == 65535);
}

TEST_CASE("a directory may stand anywhere in the file, and so may its values") {
    TiffFile file{.width = 9, .height = 8, .photometric = 2, .bits = 12};
    const std::size_t directory_end =
        file.DataOffset() + 12 - 12;  // one entry more, before the next directory
    for (const std::uint32_t at : {200u, 1900u, 2034u, 2036u, 2037u, 2040u, 2047u, 2048u, 4096u, 300'000u}) {
        CAPTURE(at);
        file.more = {{282, 5, 1, at + 700}};
        std::string bytes = file.Make();
        const std::string directory = bytes.substr(8, directory_end - 8);
        bytes.resize(at, 'x');
        bytes += directory;
        bytes.resize(at + 700, 'x');
        bytes += Bytes({72, 0, 0, 0, 5, 0, 0, 0});
        for (int byte = 0; byte < 4; ++byte)
            bytes[4 + static_cast<std::size_t>(byte)] = static_cast<char>(at >> (8 * byte));
        const TiffHeader header = Header(bytes);
        CHECK(header.complete);
        CHECK(header.info.width == 9);
        CHECK(header.info.height == 8);
        CHECK(header.info.bits == std::array<std::uint16_t, 4>{12, 12, 12, 0});
        CHECK(header.info.x_resolution == std::array<std::uint32_t, 2>{72, 5});
        CHECK_FALSE(Header(bytes.substr(0, bytes.size() - 1)).complete);
        CHECK_FALSE(Header(bytes.substr(0, at + 60)).complete);
    }
}

TEST_CASE("a long directory is read to its end") {
    TiffFile file{.width = 9};
    file.more.assign(5000, {999, 4, 1, 7});
    file.more.back() = {256, 4, 1, 33};
    CHECK(Header(file.Make()).complete);
    CHECK(Header(file.Make()).info.width == 33);
    CHECK_FALSE(Header(file.Make().substr(0, 60'000)).complete);
    CHECK(Header(file.Make().substr(0, 60'000)).info.width == 9);
}

TEST_CASE("a directory that is cut off is incomplete with the entries that are there") {
    const std::string whole = TiffFile{.width = 9, .height = 8}.Make();
    CHECK_FALSE(Header(whole.substr(0, 8)).complete);
    CHECK_FALSE(Header(whole.substr(0, 9)).complete);
    const TiffHeader header = Header(whole.substr(0, 10 + 12 + 5));
    CHECK_FALSE(header.complete);
    CHECK(header.info.width == 9);
    CHECK(header.info.height == 0);
    CHECK_FALSE(Header(Bytes({'I', 'I', 42, 0, 0xF0, 0xFF, 0xFF, 0xFF})).complete);
    CHECK_FALSE(Header(Bytes({'I', 'I', 42, 0, 8, 0})).complete);
    CHECK(Header(Bytes({'I', 'I', 42, 0, 8, 0})).kind == ImageFileKind::tiff_little);
}

TEST_CASE("a file is told by its first bytes") {
    CHECK(Type("BMxxxx").kind == ImageFileKind::bmp);
    CHECK(Type("BM").bits == 8);
    CHECK(Type(TiffFile{}.Make()).kind == ImageFileKind::tiff_little);
    CHECK(Type(TiffFile{.big_endian = true}.Make()).kind == ImageFileKind::tiff_big);
    CHECK(Type(Bytes({'I', 'I', 0, 42, 8, 0, 0, 0})).kind == ImageFileKind::unknown);
    CHECK(Type(Bytes({'M', 'M', 42, 0, 8, 0, 0, 0})).kind == ImageFileKind::unknown);
    CHECK(Type(Bytes({'I', 'M', 42, 0, 8, 0, 0, 0})).kind == ImageFileKind::unknown);
    for (const char* bytes : {"", "B", "M", "PNG....", "bm"}) {
        CAPTURE(bytes);
        CHECK(Type(bytes).file.has_value());
        CHECK_FALSE(Type(bytes).Known());
    }
    CHECK(static_cast<int>(ImageFileKind::unknown) == 9);
}

TEST_CASE("a file that cannot be opened, or a folder, is told apart from an unknown one") {
    const ScratchFolder folder;
    CHECK_FALSE(DetectFileType(folder / "missing").file.has_value());
    CHECK_FALSE(DetectFileType(folder.Path()).file.has_value());
}

TEST_CASE("the depth of a TIFF follows its photometric interpretation") {
    CHECK(Type(TiffFile{.photometric = 1, .bits = 10}.Make()).bits == 10);
    CHECK(Type(TiffFile{.photometric = 2, .bits = 14}.Make()).bits == 14);
    for (const int photometric : {0, 3, 4, 5, 6}) {
        CAPTURE(photometric);
        CHECK(Type(TiffFile{.photometric = photometric, .bits = 16}.Make()).bits == 8);
    }
    CHECK(Type(TiffFile{.photometric = 1, .with_bits = false}.Make()).bits == 1);
    // An RGB file with a single value has no channel 1.
    CHECK(Type(TiffFile{.photometric = 2, .more = {{258, 3, 1, 16}}, .with_bits = false}.Make()).bits == 0);
}

TEST_CASE("a damaged header leaves the depth that could be read") {
    const FileType type = Type(TiffFile{.bits = 16, .more = {{282, 5, 1, 0xFFFFFFF0}}}.Make());
    CHECK(type.kind == ImageFileKind::tiff_little);
    CHECK(type.bits == 16);
    CHECK_FALSE(type.tiff.complete);
}

TEST_CASE("layouts that are read") {
    const auto layout = [](int photometric, std::uint16_t bits) {
        return LayoutOf(TiffInfo{.bits = {bits, bits, bits, bits},
                                 .photometric = static_cast<std::uint16_t>(photometric)});
    };
    CHECK(layout(1, 8) == PixelLayout::mono8);
    CHECK(layout(1, 10) == PixelLayout::mono10);
    CHECK(layout(1, 12) == PixelLayout::mono12);
    CHECK(layout(1, 14) == PixelLayout::mono14);
    CHECK(layout(1, 16) == PixelLayout::mono16);
    CHECK(layout(2, 8) == PixelLayout::rgb8);
    CHECK(layout(2, 12) == PixelLayout::rgb12);
    CHECK(layout(2, 16) == PixelLayout::rgb16);
    CHECK_FALSE(layout(2, 10).has_value());
    CHECK_FALSE(layout(1, 1).has_value());
    CHECK_FALSE(layout(1, 32).has_value());
    CHECK_FALSE(layout(0, 8).has_value());
}

TEST_CASE("the display shift follows either recorded depth, 16 before 12") {
    CHECK(DisplayShift({.bits = {0, 0, 0, 16}}) == 8);
    CHECK(DisplayShift({.bits = {16, 16, 16, 0}}) == 8);
    CHECK(DisplayShift({.bits = {0, 0, 0, 12}}) == 4);
    CHECK(DisplayShift({.bits = {12, 12, 12, 16}}) == 8);
    CHECK(DisplayShift({.bits = {16, 16, 16, 12}}) == 8);
    CHECK(DisplayShift({.bits = {8, 8, 8, 0}}) == 0);
    CHECK(DisplayShift({.bits = {0, 0, 0, 14}}) == 0);
}
