// TIFF files: the pixels, and the two copies that an import makes of them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "image/pixels.h"
#include "image/read_result.h"
#include "image/sample_sink.h"
#include "image/tiff_header.h"

namespace pixora {

struct FileType;

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
/// does not hold is black; one without any pixel data is invalid. No byte copy is made under an empty path.
[[nodiscard]] ReadResult ConvertTiff(FileType& source, const std::filesystem::path& display_copy,
                                     const std::filesystem::path& byte_copy);

/// Accepts and refuses the same files, and gives their samples to `sink`; with none, no pixel is read.
/// @return `write_failed` when the sink ended the reading.
[[nodiscard]] ReadResult ReadTiffSamples(FileType& source, SampleSink* sink);

struct Tiff16Conversion {
    bool accepted = false;         ///< the source is such a file and has pixel data
    bool data_written = false;     ///< the data copy is complete
    bool display_written = false;  ///< the display copy is complete too
    int valid_bits = 0;            ///< by which the data copy was scaled
};

/// Writes both copies of an uncompressed 16-bit file, normally in one pass over it: the display copy as
/// ConvertTiff() does, and the data copy, the samples without header, little-endian, rows top to bottom,
/// colour as blue, green, red, each divided down to its valid bits.
/// @param valid_bits  8, 10, 12, 14 or 16; any other value finds them from the samples.
/// @param data_copy  empty when none is wanted; it then counts as written, with no valid bits found.
/// @return data_written false when the file is not such a file, is damaged or has no pixel data at all, or
/// when the copy could not be written.
[[nodiscard]] Tiff16Conversion ConvertTiff16(FileType& source, const std::filesystem::path& display_copy,
                                             const std::filesystem::path& data_copy, int valid_bits);

struct Tiff16Reading {
    ReadResult result =
        ReadResult::accepted;  ///< `invalid`, or `write_failed` when the sink ended the reading
    int valid_bits = 0;        ///< by which the samples were scaled
};

/// Accepts the same files and gives the samples of the data copy to `sink` without writing one. With no sink
/// the pixels are read only as far as finding the valid bits needs them.
[[nodiscard]] Tiff16Reading ReadTiff16Samples(FileType& source, int valid_bits, SampleSink* sink);

}  // namespace pixora
