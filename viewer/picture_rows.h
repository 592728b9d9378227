// Reading a display copy without a decoder, as far as the file goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "base/file.h"
#include "image/bmp_reader.h"

namespace pixora {

/// True when the rows of a 24-bit picture of this size fit what one bitmap can hold: less than 2 GiB.
[[nodiscard]] bool FitsBitmap(std::uint32_t width, std::uint32_t height);

/// True when the file holds all rows that `header` promises and an info header of a usual size. A decoder may
/// refuse any other file, and keep it open all the same.
[[nodiscard]] bool IsOrdinaryPicture(File& file, const BmpHeader& header);

/// Reads the rows of a 24-bit BMP as they are stored, bottom row first.
/// @param bottom_up  header.height rows of Bmp24Stride(header.width) bytes, all zero; rows that the file does
///                   not hold stay so.
/// @return false when `header` is no uncompressed 24-bit one of that many rows, or the file holds no pixel at
/// all.
[[nodiscard]] bool ReadPictureRows(File& file, const BmpHeader& header, std::span<std::byte> bottom_up);

}  // namespace pixora
