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
    return true;
}

void SumSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t, std::size_t) {
    sums_.Add(SamplesAsStored(run, channels));
}

int SumSink::ScaleStored(bool zeros_follow) {
    const int bits = ValidBitsOf(sums_.DifferingBits(zeros_follow));
    sums_.DropLowBits(16 - bits);
    return bits;
}

void SumSink::Complete() {
    SkipToEnd([&](std::size_t, std::size_t column) { sums_.AddZeros(Width() - column); });
}

StatisticsRecord SumSink::Statistics(bool colour) const {
    const std::array<SampleSums, 3>& channels = sums_.Channels();
    StatisticsRecord record{};
    SampleSums all;
    for (std::size_t place = 0; place < (colour ? channels.size() : 1); ++place) {
        record[place] = StatisticsOf(channels[place]);
        all.Add(channels[place]);
    }
    if (colour) record[3] = StatisticsOf(all);
    return record;
}

bool CountSink::Start() {
    counts_ = {};
    return true;
}

void CountSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t, std::size_t) {
    counts_.Add(SamplesAsStored(run, channels));
}

int CountSink::ScaleStored(bool zeros_follow) {
    const int bits = ValidBitsOf(counts_.DifferingBits(zeros_follow));
    counts_.DropLowBits(16 - bits);
    return bits;
}

void CountSink::Complete() {
    SkipToEnd([&](std::size_t, std::size_t column) { counts_.AddZeros(Width() - column); });
}

HistogramCounts CountSink::Counts(bool colour, std::uint32_t bits) const {
    HistogramCounts counts;
    for (std::size_t place = 0; place < (colour ? counts.size() : 1); ++place)
        counts[place].assign(BinCount(bits), 0);
    counts_.AddTo(counts);
    return counts;
}

}  // namespace pixora::cli
