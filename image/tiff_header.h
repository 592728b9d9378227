// The header of a TIFF file: its byte order, the first directory, and the fields of it that are used.
#pragma once

#include <array>
#include <cstdint>

#include "base/file.h"
#include "image/image_buffer.h"

namespace pixora {

/// What the first directory says. Values that do not fit their field hold its largest value.
struct TiffInfo {
    std::uint32_t width = 0, height = 0;
    /// BitsPerSample of channels 1 to 3, then the single value: one or two values set the single one and zero
    /// the channels, three set the channels and zero the single one, four set all.
    std::array<std::uint16_t, 4> bits{1, 1, 1, 1};
    std::uint16_t compression = 1;
    std::uint16_t photometric = 0;
    std::uint32_t first_strip_offset = 0;
    std::uint32_t rows_per_strip = 0;
    std::uint32_t strip_byte_count = 0;                           ///< of the first strip
    std::array<std::uint32_t, 2> x_resolution{}, y_resolution{};  ///< numerator, denominator
    std::uint16_t resolution_unit = 0;
    std::uint16_t colour_map = 0;  ///< its first value
    std::uint16_t strip_count = 0;
    bool strips_too_many = false;  ///< the strip offsets were not fetched, so the first one is 0

    [[nodiscard]] std::uint16_t SingleBits() const { return bits[3]; }
    [[nodiscard]] std::uint16_t ChannelBits() const { return bits[0]; }
    /// True for RGB; grey files have photometric 1, all other kinds are not read.
    [[nodiscard]] bool IsColour() const { return photometric == 2; }
};

struct TiffHeader {
    ImageFileKind kind = ImageFileKind::unknown;  ///< tiff_little, tiff_big, or unknown without a signature
    bool complete = false;                        ///< every part of the directory could be read
    TiffInfo info;                                ///< also when incomplete: the fields read so far
};

/// Reads the header of an open file. Nothing is allocated by what the file claims beyond its own directory.
[[nodiscard]] TiffHeader ReadTiffHeader(File& file);

}  // namespace pixora
