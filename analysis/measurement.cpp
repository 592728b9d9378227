#include "analysis/measurement.h"

#include <algorithm>

#include "analysis/channel.h"
#include "analysis/sample_sums.h"

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

// Pixels are counted in pieces of whole cache lines.
constexpr std::size_t kPiecePixels = 32;
constexpr std::size_t kAheadPixels = 21 * kPiecePixels;

inline void PrefetchPiece([[maybe_unused]] const std::uint16_t* pixel) {
#if defined(__GNUC__)
    constexpr std::size_t kLineSamples = 32;
    for (std::size_t line = 0; line < 3; ++line) __builtin_prefetch(pixel + line * kLineSamples);
#endif
}

/// Calls `count` for pieces of a row, and asks for the memory of pieces further on: where the counters reach
/// beyond the nearest cache, their traffic keeps the processor from fetching the samples ahead by itself.
template <typename CountPiece>
void ForEachPiece(const std::uint16_t* pixel, std::size_t pixels, CountPiece count) {
    for (; pixels >= kAheadPixels + kPiecePixels; pixels -= kPiecePixels) {
        PrefetchPiece(pixel + 3 * kAheadPixels);
        count(pixel, kPiecePixels);
        pixel += 3 * kPiecePixels;
    }
    count(pixel, pixels);
}

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
        rows.ForEach([=](const auto* first, std::size_t pixels) {
            ForEachPiece(first, pixels,
                         [=](const auto* piece, std::size_t count) { CountGrey(piece, count, tables); });
        });
        TakeGreyCounts(tables, result.counts[0]);
        return;
    }
    rows.ForEach([=](const auto* first, std::size_t pixels) {
        ForEachPiece(first, pixels,
                     [=](const auto* piece, std::size_t count) { CountColour(piece, count, tables); });
    });
    for (std::size_t place = 0; place < kColourTables; ++place)
        TakeCounts(tables + place * kTableStride, result.counts[place]);
}

SampleSums SumsOf(const std::vector<std::uint32_t>& counts) {
    SampleSums sums;
    for (std::size_t value = 0; value < counts.size(); ++value)
        sums.Add(static_cast<std::uint16_t>(value), counts[value]);
    return sums;
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
    SampleSums all;
    for (std::size_t place = 0; place < (image.colour ? kColourTables : 1); ++place) {
        const SampleSums sums = SumsOf(result.counts[place]);
        result.statistics[place] = StatisticsOf(sums);
        all.Add(sums);
    }
    if (image.colour) result.statistics[3] = StatisticsOf(all);
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
