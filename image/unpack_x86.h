// The inner loops that turn stored bytes into samples, with the byte shuffles of x86 processors (AVX2). Each
// does as much of the front of its input as it can and returns how many bytes that was, a whole number of the
// layout's units: 0 on a processor or compiler without them. The plain loops of pixels.cpp do the rest, and
// say what the result is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "image/pixels.h"

namespace pixora::x86 {

/// For the layouts mono8, mono12, rgb8, rgb12 and bgrx8; 0 for all others.
[[nodiscard]] std::size_t Unpack(PixelLayout layout, std::span<const std::byte> stored,
                                 std::span<std::uint16_t> samples);

}  // namespace pixora::x86
