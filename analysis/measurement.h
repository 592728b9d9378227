// Statistics and histograms of the samples of a region.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "image/region.h"

namespace pixora {

/// What is measured: the samples of a whole image and what is known of them.
struct SampleImage {
    int width = 0, height = 0;  ///< pixels
    bool colour = false;     ///< else the three samples of each pixel are equal and one channel is measured
    std::uint32_t bits = 8;  ///< the depth that measurements work with: 8, 10, 12, 14 or 16
    /// width x height x 3 samples in the order blue, green, red; rows top to bottom.
    std::span<const std::uint16_t> samples{};
};

/// Minimum, maximum, mean and population standard deviation; all zero for no samples at all.
struct SampleStatistics {
    std::uint16_t min = 0, max = 0;
    double mean = 0, std = 0;
    friend bool operator==(const SampleStatistics&, const SampleStatistics&) = default;
};

/// Slot 0: a grey image, or blue; 1: green; 2: red; 3: all samples of the three channels as one set.
/// A grey image has slot 0 alone, the others are zero.
using StatisticsRecord = std::array<SampleStatistics, 4>;

/// How often each value occurs; by the sample's place in its pixel (0 blue, 1 green, 2 red; grey 0 alone).
using HistogramCounts = std::array<std::vector<std::uint32_t>, 3>;

/// Both for one region, from one pass over its samples.
struct Measurement {
    bool colour = false;
    std::uint64_t pixels = 0;  ///< in the region, as far as it lies in the image
    StatisticsRecord statistics{};
    HistogramCounts counts;  ///< BinCount(bits) each; empty vectors for channels that the image does not have
    std::vector<std::uint32_t> tables;  ///< what Measure() counts in; kept for the next time
};

/// How many bins a histogram of that depth has: 256, 1024, 4096, 16384 or 65536; 256 for any other depth.
[[nodiscard]] std::size_t BinCount(std::uint32_t bits);

/// Measures the part of `region` that lies in the image; an empty one gives zeros. Samples beyond the last
/// bin count in the last bin. Reuses the memory of `result`, so that measuring again allocates nothing.
void Measure(const SampleImage& image, const Region& region, Measurement& result);

/// The slot of the statistics for a channel selector: 0 grey, 1 red, 2 green, 3 blue, 4 all three. Of any
/// other selector it is slot 0.
[[nodiscard]] std::size_t StatisticsSlot(int channel);

}  // namespace pixora
