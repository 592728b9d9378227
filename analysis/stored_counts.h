// How often each value occurs in pixels as a file stores them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/measurement.h"
#include "base/zeroed_array.h"
#include "image/stored_pixels.h"

namespace pixora {

/// Counts the pixels of one image. Where samples are bytes they are counted two at a time, as if they were
/// words.
class StoredCounts {
public:
    /// @param pixels  of the same layout and palette each time. May throw when there is no memory.
    void Add(const StoredPixels& pixels);
    /// Adds black ones.
    void AddZeros(std::uint64_t pixels) { zeros_ += pixels; }

    /// The bits in which samples of 16-bit words differ from one another, and from zeros if any follow.
    [[nodiscard]] std::uint16_t DifferingBits(bool zeros_follow) const;
    /// From now on samples of words count without so many lowest bits.
    void DropLowBits(int shift) { shift_ = shift; }

    /// Adds the counts to those of `counts`, by place; samples beyond the last bin of a channel to that bin,
    /// and nothing of a channel without bins.
    void AddTo(HistogramCounts& counts) const;

private:
    using ByteCounts = std::array<std::uint32_t, 256>;

    void Prepare(const StoredPixels& pixels);
    void AddWords(std::span<const std::byte> bytes);
    [[nodiscard]] std::span<const std::uint32_t> Table(std::size_t index) const;
    [[nodiscard]] std::size_t PlaceOf(std::size_t channel) const;
    [[nodiscard]] ByteCounts CountsOf(std::size_t channel) const;
    void AddBytesTo(HistogramCounts& counts) const;
    void AddWordsTo(HistogramCounts& counts) const;

    PixelLayout layout_ = PixelLayout::mono8;
    std::optional<Palette> palette_;
    std::size_t period_ = 0;             // word i is counted in table i % period_; 0 before the first pixels
    ZeroedArray<std::uint32_t> tables_;  // each has a bin for every word
    std::array<ByteCounts, 4> odd_{};    // bytes without a second one, by their channel
    std::uint64_t zeros_ = 0;
    int shift_ = 0;
    std::vector<std::uint16_t> decoded_;
};

}  // namespace pixora
