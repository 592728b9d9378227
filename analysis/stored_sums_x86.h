// Sums over stored pixels, whole registers at a time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "analysis/sample_sums.h"
#include "image/stored_pixels.h"

namespace pixora::x86 {

/// Of samples that are 16-bit words: the first one, and all bits in which any differs from it.
struct WordBits {
    std::uint16_t first = 0, differing = 0;
};

/// Adds pixels from the front. @param sums  by place: 0 blue, 1 green, 2 red; grey 0 alone.
/// @param bits  of 16-bit layouts.
/// @return how many bytes were added, whole units; 0 where processor or layout do not allow it.
[[nodiscard]] std::size_t AddStored(const StoredPixels& pixels, std::array<SampleSums, 3>& sums,
                                    WordBits& bits);

}  // namespace pixora::x86
