// Writers of image files from samples. Each writes the whole file and returns true, or leaves none: when the
// file cannot be written, or would be too large for its kind.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "base/bytes.h"

namespace pixora {

/// Whether a file of a header and `rows` rows stays below 4 GiB: BMP and TIFF state their sizes in 32 bits.
[[nodiscard]] bool FitsImageFile(std::uint32_t header_bytes, std::uint64_t row_bytes, std::uint32_t rows);

/// Writes a 24-bit BMP of the low byte of every sample.
/// @param samples  height x width x 3, rows top to bottom, blue green red.
/// @param shift    how many low bits of every sample are dropped first.
[[nodiscard]] bool WriteBmp24(const std::filesystem::path& path, std::span<const std::uint16_t> samples,
                              std::uint32_t width, std::uint32_t height, int shift = 0);

/// Writes an 8-bit grey BMP of the low byte of every sample; otherwise like WriteBmp24().
/// @param samples  height x width, rows top to bottom.
[[nodiscard]] bool WriteBmp8(const std::filesystem::path& path, std::span<const std::uint16_t> samples,
                             std::uint32_t width, std::uint32_t height, int shift = 0);

/// What a TIFF writer needs to know of the pixels it is given.
struct TiffImage {
    std::uint32_t width = 0, height = 0;
    bool colour = false;
};

/// Writes a 16-bit TIFF, grey or RGB, little-endian, in one strip.
/// @param samples  height x width, or x 3 in the order blue green red for colour; rows top to bottom.
[[nodiscard]] bool WriteTiff16(const std::filesystem::path& path, std::span<const std::uint16_t> samples,
                               const TiffImage& image);
/// Writes an 8-bit TIFF of the low byte of every sample; otherwise like WriteTiff16().
[[nodiscard]] bool WriteTiff8(const std::filesystem::path& path, std::span<const std::uint16_t> samples,
                              const TiffImage& image);

/// Everything before the samples of a TIFF that is written: 174 bytes for grey, 180 for RGB.
/// @param bits  8, 12 or 16.
[[nodiscard]] ByteBuilder TiffFileHeader(const TiffImage& image, int bits);

}  // namespace pixora
