// The sums with the wide registers of x86 processors (AVX2). Each function does as much of the front of its
// input as it can and returns how many samples that was: 0 on a processor or compiler without them. The plain
// loops of sample_sums.cpp do the rest, and say what the result is.
#pragma once

#include "analysis/sample_sums.h"

namespace pixora::x86 {

[[nodiscard]] std::size_t AddSamples(std::span<const std::uint16_t> samples, SampleSums& sums);
/// @return a multiple of three.
[[nodiscard]] std::size_t AddTriples(std::span<const std::uint16_t> triples, std::array<SampleSums, 3>& sums);

}  // namespace pixora::x86
