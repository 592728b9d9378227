#include "analysis/histogram_bins.h"

#include <numeric>

namespace pixora {
namespace {

constexpr std::size_t kBinnedLevels = 256;

}  // namespace

bool BinningOf(std::wstring_view setting) {
    return setting != L"OFF";
}

void GroupBins(std::span<const std::uint32_t> counts, bool binning, DrawnBins& result) {
    result.group = binning && counts.size() > kBinnedLevels ? counts.size() / kBinnedLevels : 1;
    result.counts.resize(counts.size() / result.group);
    for (std::size_t bin = 0; bin < result.counts.size(); ++bin) {
        const auto group = counts.subspan(bin * result.group, result.group);
        result.counts[bin] = std::accumulate(group.begin(), group.end(), std::uint32_t{0});
    }
}

std::uint64_t CountAt(const Measurement& measurement, int channel, std::uint32_t level) {
    std::uint64_t count = 0;
    const ChannelPlaces places = PlacesOf(measurement.colour, channel);
    for (const std::size_t place : places.Places()) {
        const std::vector<std::uint32_t>& counts = measurement.counts[place];
        if (level < counts.size()) count += counts[level];
    }
    return count;
}

}  // namespace pixora
