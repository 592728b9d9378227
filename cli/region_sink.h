// The samples of a region, kept as they are read from their file.
#pragma once

#include "analysis/measurement.h"
#include "analysis/stored_counts.h"
#include "analysis/stored_sums.h"
#include "cli/part_sink.h"
#include "viewer/sample_buffer.h"

namespace pixora::cli {

/// Keeps the samples as a buffer of the region's size.
class RegionSink final : public PartSink {
public:
    void Complete() override;
    [[nodiscard]] SampleBuffer& Samples() { return buffer_; }

private:
    bool Start() override;
    void Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row,
              std::size_t column) override;

    SampleBuffer buffer_;
};

/// Adds the samples up for statistics; keeps none of them.
class SumSink final : public PartSink {
public:
    void Complete() override;
    [[nodiscard]] int ScaleStored(bool zeros_follow) override;
    /// @param colour  of the image, which may show only at its end.
    [[nodiscard]] StatisticsRecord Statistics(bool colour) const;

private:
    bool Start() override;
    void Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row,
              std::size_t column) override;

    bool KeepsStored() const override { return true; }
    void KeepStored(const StoredPixels& pixels) override { sums_.Add(pixels); }

    StoredSums sums_;
};

/// Counts how often each value occurs; keeps no samples.
class CountSink final : public PartSink {
public:
    void Complete() override;
    [[nodiscard]] int ScaleStored(bool zeros_follow) override;
    /// @param colour  of the image. @param bits  the depth that measurements work with.
    [[nodiscard]] HistogramCounts Counts(bool colour, std::uint32_t bits) const;

private:
    bool Start() override;
    void Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row,
              std::size_t column) override;

    bool KeepsStored() const override { return true; }
    void KeepStored(const StoredPixels& pixels) override { counts_.Add(pixels); }

    StoredCounts counts_;
};

}  // namespace pixora::cli
