// BMP files: their headers, and the copy of them that viewers paint from.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "base/file.h"
#include "image/image_buffer.h"
#include "image/read_result.h"
#include "image/sample_sink.h"

namespace pixora {

struct FileType;

/// The header fields that are used.
struct BmpHeader {
    std::uint32_t data_offset = 0;  ///< where the pixel rows start, in bytes from the start of the file
    std::uint32_t width = 0;        ///< pixels
    std::uint32_t height = 0;       ///< pixels; the absolute value of what the file says
    bool bottom_up = true;          ///< false when the file gives a negative height
    std::uint16_t bit_count = 0;
    std::uint32_t compression = 0;
};

/// Reads the file and info header of an open file.
/// @return nothing when the signature is not "BM" or the headers are cut off.
[[nodiscard]] std::optional<BmpHeader> ReadBmpHeader(File& file);

struct BmpConversion {
    ReadResult result = ReadResult::accepted;
    bool colour = false;          ///< at least one pixel has unequal channels
    std::uint32_t bit_count = 0;  ///< of the source, once its header could be read
};

/// Decides whether a BMP file is accepted, tells whether it is colour, and writes its display copy: byte for
/// byte for a 24-bit source, as a new 24-bit BMP for 8 and 32 bits. The source is read once. What a short
/// file does not hold is black; one without any pixel data is invalid.
/// @return `accepted` with no copy written when the source could not be opened.
[[nodiscard]] BmpConversion ConvertBmp(FileType& source, const std::filesystem::path& display_copy);

/// Decides and tells the same, and gives the samples of the display copy to `sink` without writing one. With
/// no sink the pixels are read only up to the first coloured one.
/// @return `write_failed` when the sink ended the reading.
[[nodiscard]] BmpConversion ReadBmpSamples(FileType& source, SampleSink* sink);

}  // namespace pixora
