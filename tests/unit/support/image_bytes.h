// Image files put together byte by byte, good ones and bad ones.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixora::test {

/// `values` as bytes: Bytes({0x01, 0xFF}).
std::string Bytes(const std::vector<int>& values);
/// 16-bit words, little-endian.
std::string Words(const std::vector<int>& values);

struct BmpFile {
    std::int32_t width = 1, height = 1;
    std::uint16_t bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t data_offset = 54;
    std::string before_data{};  ///< between the headers and the pixel data: the palette
    std::string pixels{};

    [[nodiscard]] std::string Make() const;
};

struct TiffEntry {
    int tag, type;
    std::uint32_t count, value;  ///< the value, or where the values stand
};

/// A TIFF whose directory stands at byte 8 and whose pixel data follows the extra values after it.
struct TiffFile {
    bool big_endian = false;
    std::uint32_t width = 1, height = 1;
    int photometric = 1;
    int bits = 8;
    int compression = 1;
    std::string pixels{};
    std::vector<TiffEntry> more{};  ///< entries after the usual ones; a second entry of a tag wins
    bool with_bits = true;          ///< an entry 258 at all

    [[nodiscard]] std::string Make() const;
    /// Where the pixel data starts in Make()'s result.
    [[nodiscard]] std::uint32_t DataOffset() const;
};

}  // namespace pixora::test
