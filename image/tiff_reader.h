// TIFF files: the pixels, and the two copies that an import makes of them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "image/pixels.h"
#include "image/read_result.h"
#include "image/tiff_header.h"

namespace pixora {

/// The bit depth by which a TIFF is treated: the single value of a grey file (photometric 1), channel 1 of an
/// RGB file (2), 8 for every other kind.
[[nodiscard]] std::uint32_t DetectedBits(const TiffInfo& info);

/// How the pixels are stored; nothing for a combination that is not read.
[[nodiscard]] std::optional<PixelLayout> LayoutOf(const TiffInfo& info);

/// By how many bits a sample is shifted to its display value: 8 for 16-bit samples, 4 for 12-bit ones, else
/// 0. Both places where the header keeps a bit depth count, 16 before 12.
[[nodiscard]] int DisplayShift(const TiffInfo& info);

/// Writes both copies of an uncompressed grey or RGB file in one pass over it: the display copy, a 24-bit BMP
/// of the upper eight bits of every sample, and the byte copy, the whole source as it is. What a short file
/// does not hold is black; one without any pixel data is invalid.
[[nodiscard]] ReadResult ConvertTiff(const std::filesystem::path& source,
                                     const std::filesystem::path& display_copy,
                                     const std::filesystem::path& byte_copy);

struct Tiff16Conversion {
    bool data_written = false;     ///< the data copy is complete
    bool display_written = false;  ///< the display copy is complete too
    int valid_bits = 0;            ///< by which the data copy was scaled
};

/// Writes both copies of an uncompressed 16-bit file, normally in one pass over it: the display copy as
/// ConvertTiff() does, and the data copy, the samples without header, little-endian, rows top to bottom,
/// colour as blue, green, red, each divided down to its valid bits.
/// @param valid_bits  8, 10, 12, 14 or 16; any other value finds them from the samples.
/// @return data_written false when the file is not such a file, is damaged or has no pixel data at all, or
/// when the copy could not be written.
[[nodiscard]] Tiff16Conversion ConvertTiff16(const std::filesystem::path& source,
                                             const std::filesystem::path& display_copy,
                                             const std::filesystem::path& data_copy, int valid_bits);

}  // namespace pixora
