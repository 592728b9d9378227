// The two kinds of BMP file that are written: 24-bit colour and 8-bit grey.
#pragma once

#include <cstdint>

#include "base/bytes.h"

namespace pixora {

inline constexpr std::uint32_t kBmpHeaderBytes = 54;
inline constexpr std::uint32_t kBmp8HeaderBytes = 1078;  ///< with its palette of 256 entries

/// Bytes of one row of a 24-bit BMP. Width modulo 4 is just the padding that brings three bytes a pixel to a
/// multiple of four.
[[nodiscard]] constexpr std::uint64_t Bmp24Stride(std::uint64_t width) {
    return 3 * width + width % 4;
}

/// Bytes of one row of an 8-bit BMP.
[[nodiscard]] constexpr std::uint64_t Bmp8Stride(std::uint64_t width) {
    return (width + 3) / 4 * 4;
}

/// The 54 bytes before the rows of a bottom-up 24-bit BMP.
[[nodiscard]] ByteBuilder Bmp24Header(std::uint32_t width, std::uint32_t height);
/// The 1,078 bytes before the rows of a bottom-up 8-bit BMP, its grey palette included.
[[nodiscard]] ByteBuilder Bmp8Header(std::uint32_t width, std::uint32_t height);

}  // namespace pixora
