#include "analysis/measurement.h"

#include <algorithm>
#include <cmath>

#include "analysis/channel.h"

namespace pixora {
namespace {

// A counting table has a bin for every value that a sample can have, so that no sample needs a test of its
// own; what lies beyond the last bin of the depth is added to that bin afterwards.
constexpr std::size_t kTableBins = 65536;
// From table to table: a little more, so that equal values of different channels do not meet in one place of
// the processor's caches.
constexpr std::size_t kTableStride = kTableBins + 336;

constexpr std::size_t kColourTables = 3;
// Two for the one channel of a grey image, used in turn: to raise a counter that was raised just before takes
// several times as long on some processors, and flat images do nothing else.
constexpr std::size_t kGreyTables = 2;

/// The rows of a region that lies in the image.
class Rows {
public:
    Rows(const SampleImage& image, const Region& part)
        : first_(image.samples.data() + 3 * (Wide(part.top) * Wide(image.width) + Wide(part.left))),
          step_(3 * Wide(image.width)),
          width_(Wide(part.right - part.left + 1)),
          count_(Wide(part.bottom - part.top + 1)) {
        if (width_ == Wide(image.width)) {  // then one long row is the same
            width_ *= count_;
            count_ = 1;
        }
    }
    template <typename Walk>
    void ForEach(Walk walk) const {
        for (std::size_t row = 0; row < count_; ++row) walk(first_ + row * step_, width_);
    }

private:
    static std::size_t Wide(int value) { return static_cast<std::size_t>(value); }
    const std::uint16_t* first_;
    std::size_t step_, width_, count_;
};

void CountColour(const std::uint16_t* pixel, std::size_t pixels, std::uint32_t* tables) {
    for (const std::uint16_t* const end = pixel + 3 * pixels; pixel != end; pixel += 3) {
        ++tables[pixel[0]];
        ++tables[kTableStride + pixel[1]];
        ++tables[2 * kTableStride + pixel[2]];
    }
}

void CountGrey(const std::uint16_t* pixel, std::size_t pixels, std::uint32_t* tables) {
    for (const std::uint16_t* const end = pixel + 6 * (pixels / 2); pixel != end; pixel += 6) {
        ++tables[pixel[0]];
        ++tables[kTableStride + pixel[3]];
    }
    if (pixels % 2 != 0) ++tables[pixel[0]];
}

/// Makes the histogram of one channel from its table.
void TakeCounts(const std::uint32_t* table, std::vector<std::uint32_t>& counts) {
    std::copy_n(table, counts.size(), counts.begin());
    for (std::size_t beyond = counts.size(); beyond < kTableBins; ++beyond) counts.back() += table[beyond];
}

/// The same from both tables of a grey image.
void TakeGreyCounts(std::uint32_t* tables, std::vector<std::uint32_t>& counts) {
    for (std::size_t bin = 0; bin < kTableBins; ++bin) tables[bin] += tables[kTableStride + bin];
    TakeCounts(tables, counts);
}

void Count(const SampleImage& image, const Region& part, Measurement& result) {
    result.tables.assign((image.colour ? kColourTables : kGreyTables) * kTableStride, 0);
    std::uint32_t* const tables = result.tables.data();
    const Rows rows(image, part);
    if (!image.colour) {
        rows.ForEach([&](const auto* first, std::size_t pixels) { CountGrey(first, pixels, tables); });
        TakeGreyCounts(tables, result.counts[0]);
        return;
    }
    rows.ForEach([&](const auto* first, std::size_t pixels) { CountColour(first, pixels, tables); });
    for (std::size_t place = 0; place < kColourTables; ++place)
        TakeCounts(tables + place * kTableStride, result.counts[place]);
}

/// Sums over a set of samples that no whole number of 64 bits is too short for: a region has less than 2^32
/// pixels, a sample less than 2^16.
struct Sums {
    std::uint64_t count = 0, values = 0;
    std::uint16_t min = 0xFFFF, max = 0;

    void Add(const std::vector<std::uint32_t>& counts) {
        for (std::size_t value = 0; value < counts.size(); ++value) {
            if (counts[value] == 0) continue;
            count += counts[value];
            values += counts[value] * static_cast<std::uint64_t>(value);
            min = std::min(min, static_cast<std::uint16_t>(value));
            max = std::max(max, static_cast<std::uint16_t>(value));
        }
    }
};

/// The sum of the squared distances from `centre`; with a centre next to the mean it fits 64 bits, because
/// the deviation is at most half of the range.
std::uint64_t SquaredDistances(const std::vector<std::uint32_t>& counts, std::uint64_t centre) {
    std::uint64_t sum = 0;
    for (std::size_t value = 0; value < counts.size(); ++value) {
        const std::uint64_t distance = value > centre ? value - centre : centre - value;
        sum += distance * distance * counts[value];
    }
    return sum;
}

/// Statistics of several histograms as one set. All sums are whole numbers; only the last few operations
/// round, so that nothing is lost on large images and every machine gives the same figures.
SampleStatistics StatisticsOf(std::span<const std::vector<std::uint32_t>> histograms) {
    Sums sums;
    for (const auto& counts : histograms) sums.Add(counts);
    if (sums.count == 0) return {};
    const auto n = static_cast<double>(sums.count);
    const std::uint64_t centre = (sums.values + sums.count / 2) / sums.count;  // the nearest whole number
    std::uint64_t squares = 0;
    for (const auto& counts : histograms) squares += SquaredDistances(counts, centre);
    // Less than half a level, so that little is taken away from what the squares give.
    const double off_centre =
        static_cast<double>(static_cast<std::int64_t>(sums.values - centre * sums.count)) / n;
    const double variance = static_cast<double>(squares) / n - off_centre * off_centre;
    return {sums.min, sums.max, static_cast<double>(sums.values) / n, std::sqrt(std::max(variance, 0.0))};
}

bool HoldsWholeImage(const SampleImage& image) {
    return image.width > 0 && image.height > 0 &&
           image.samples.size() / 3 / static_cast<std::size_t>(image.width) >=
               static_cast<std::size_t>(image.height);
}

}  // namespace

std::size_t BinCount(std::uint32_t bits) {
    switch (bits) {
        case 10:
        case 12:
        case 14:
        case 16:
            return std::size_t{1} << bits;
        default:
            return 256;
    }
}

void Measure(const SampleImage& image, const Region& region, Measurement& result) {
    const Region part = ClippedTo(region, image.width, image.height);
    const bool empty = IsEmpty(part) || !HoldsWholeImage(image);
    result.colour = image.colour;
    result.pixels = empty ? 0
                          : static_cast<std::uint64_t>(part.right - part.left + 1) *
                                static_cast<std::uint64_t>(part.bottom - part.top + 1);
    result.statistics = {};
    for (std::size_t place = 0; place < result.counts.size(); ++place)
        result.counts[place].assign(image.colour || place == 0 ? BinCount(image.bits) : 0, 0);
    if (empty) return;
    Count(image, part, result);
    const std::span histograms(result.counts);
    for (std::size_t place = 0; place < (image.colour ? kColourTables : 1); ++place)
        result.statistics[place] = StatisticsOf(histograms.subspan(place, 1));
    if (image.colour) result.statistics[3] = StatisticsOf(histograms);
}

std::size_t StatisticsSlot(int channel) {
    switch (channel) {
        case kRed:
            return 2;
        case kGreen:
            return 1;
        case kAllChannels:
            return 3;
        default:  // a grey image, and "B", which it shares its slot with
            return 0;
    }
}

}  // namespace pixora
