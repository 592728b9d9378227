// The inner loops that rearrange bytes, with the byte shuffles of x86 processors (SSSE3). Each function does
// as much of the front of its input as it can and returns how many elements that was: 0 on a processor or
// compiler without them. The plain loops of pixels.cpp do the rest, and say what the result is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixora::x86 {

/// @return samples done, a multiple of three.
[[nodiscard]] std::size_t SwapRedAndBlue(std::span<std::uint16_t> samples);
/// @return samples done.
[[nodiscard]] std::size_t NarrowSamples(std::span<const std::uint16_t> samples, int shift,
                                        std::span<std::byte> bytes);
/// @return grey samples done.
[[nodiscard]] std::size_t NarrowGrey(std::span<const std::uint16_t> grey, int shift,
                                     std::span<std::byte> triples);
/// @return grey samples done.
[[nodiscard]] std::size_t RepeatGrey(std::span<const std::uint16_t> grey, std::span<std::uint16_t> triples);

/// Looks for a pixel with unequal channels.
/// @return bytes done, a multiple of three; `colour` is set when such a pixel was among them.
[[nodiscard]] std::size_t FindColour(std::span<const std::byte> triples, bool& colour);

}  // namespace pixora::x86
