// Sums over samples, from which all of their statistics follow.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "analysis/measurement.h"

namespace pixora {

/// Whole numbers, so that samples can be added in any order and in any pieces. A set has less than 2^34
/// samples.
struct SampleSums {
    std::uint64_t count = 0;
    std::uint64_t values = 0;
    std::uint64_t squares = 0;  ///< modulo 2^64; statistics need only what is left of it around the mean
    std::uint16_t min = 0xFFFF, max = 0;

    /// Adds `times` samples of one value.
    void Add(std::uint16_t value, std::uint64_t times);
    void Add(const SampleSums& others);
    friend bool operator==(const SampleSums&, const SampleSums&) = default;
};

/// All zero for no samples at all.
[[nodiscard]] SampleStatistics StatisticsOf(const SampleSums& sums);

/// Adds the samples of one channel.
void AddSamples(std::span<const std::uint16_t> samples, SampleSums& sums);

/// Adds pixels of three samples each, every place in its own sums.
void AddTriples(std::span<const std::uint16_t> triples, std::array<SampleSums, 3>& sums);

}  // namespace pixora
