#include "cli/region_sink.h"

#include <algorithm>
#include <utility>

#include "image/pixels.h"
#include "image/valid_bits.h"

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
    stored_ = {};
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

int SumSink::ScaleStored(bool zeros_follow) {
    const int bits = ValidBitsOf(stored_.DifferingBits(zeros_follow));
    stored_.DropLowBits(16 - bits);
    return bits;
}

StatisticsRecord SumSink::Statistics(bool colour) const {
    StatisticsRecord record{};
    SampleSums all;
    for (std::size_t place = 0; place < (colour ? sums_.size() : 1); ++place) {
        SampleSums sums = sums_[place];
        sums.Add(stored_.Channels()[place]);
        record[place] = StatisticsOf(sums);
        all.Add(sums);
    }
    if (colour) record[3] = StatisticsOf(all);
    return record;
}

bool CountSink::Start() {
    counter_.Begin();
    stored_ = {};
    return true;
}

void CountSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t, std::size_t) {
    counter_.Add(run, channels);
}

int CountSink::ScaleStored(bool zeros_follow) {
    const int bits = ValidBitsOf(stored_.DifferingBits(zeros_follow));
    stored_.DropLowBits(16 - bits);
    return bits;
}

void CountSink::Complete() {
    SkipToEnd([&](std::size_t, std::size_t column) { counter_.AddZeros(Width() - column); });
}

HistogramCounts CountSink::Counts(bool colour, std::uint32_t bits) const {
    HistogramCounts counts = counter_.Counts(colour, bits);
    stored_.AddTo(counts);
    return counts;
}

}  // namespace pixora::cli
