// Sums over the samples of pixels as a file stores them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/sample_sums.h"
#include "image/stored_pixels.h"

namespace pixora {

/// Adds up the pixels of one image without decoding them first, where the processor allows that.
class StoredSums {
public:
    /// @param pixels  of the same layout and palette each time.
    void Add(const StoredPixels& pixels);
    /// Adds black ones.
    void AddZeros(std::uint64_t pixels);

    /// The channels by their places: 0 blue, 1 green, 2 red; grey 0 alone.
    [[nodiscard]] const std::array<SampleSums, 3>& Channels() const { return channels_; }
    /// The bits in which samples of 16-bit words differ from the first one, and also zeros if any follow.
    [[nodiscard]] std::uint16_t DifferingBits(bool zeros_follow) const;
    /// Makes them the sums of the same samples without their `shift` lowest bits, 0 .. 8, in which no sample
    /// differs from another.
    void DropLowBits(int shift);

private:
    void AddDecoded(const StoredPixels& pixels);

    std::array<SampleSums, 3> channels_;
    std::optional<std::uint16_t> first_;
    std::uint16_t differing_ = 0;
    std::vector<std::uint16_t> decoded_;
};

}  // namespace pixora
