#include "cli/region_sink.h"

#include <algorithm>
#include <utility>

#include "image/pixels.h"

namespace pixora::cli {

bool RegionSink::Start() {
    buffer_.samples = {};  // the old memory goes before the new is taken
    auto samples = ZeroedArray<std::uint16_t>::Make(std::uint64_t{3} * Width() * Height());
    if (!samples) return false;
    buffer_ = {Part().right - Part().left + 1, Part().bottom - Part().top + 1, *std::move(samples)};
    return true;
}

void RegionSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row,
                      std::size_t column) {
    const auto to = buffer_.samples.All().subspan(3 * (row * Width() + column), 3 * (run.size() / channels));
    if (channels == 1)
        RepeatGrey(run, to);
    else
        std::ranges::copy(run, to.begin());
}

void RegionSink::Complete() {}  // the memory was zero before

bool SumSink::Start() {
    sums_ = {};
    return true;
}

void SumSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t, std::size_t) {
    if (channels == 1)
        AddSamples(run, sums_[0]);
    else
        AddTriples(run, sums_);
}

void SumSink::Complete() {
    SkipToEnd([&](std::size_t, std::size_t column) {
        for (SampleSums& sums : sums_) sums.Add(0, Width() - column);
    });
}

StatisticsRecord SumSink::Statistics(bool colour) const {
    StatisticsRecord record{};
    record[0] = StatisticsOf(sums_[0]);
    if (!colour) return record;
    record[1] = StatisticsOf(sums_[1]);
    record[2] = StatisticsOf(sums_[2]);
    SampleSums all = sums_[0];
    all.Add(sums_[1]);
    all.Add(sums_[2]);
    record[3] = StatisticsOf(all);
    return record;
}

bool CountSink::Start() {
    counter_.Begin();
    return true;
}

void CountSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t, std::size_t) {
    counter_.Add(run, channels);
}

void CountSink::Complete() {
    SkipToEnd([&](std::size_t, std::size_t column) { counter_.AddZeros(Width() - column); });
}

HistogramCounts CountSink::Counts(bool colour, std::uint32_t bits) const {
    return counter_.Counts(colour, bits);
}

}  // namespace pixora::cli
