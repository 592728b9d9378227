// The bins of a histogram as they are drawn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/channel.h"
#include "analysis/measurement.h"

namespace pixora {

/// Whether a setting HIS_BINNING asks for 256 levels: any text but "OFF".
[[nodiscard]] bool BinningOf(std::wstring_view setting);

/// The counts of one channel with several bins of the depth taken together, or as they are.
struct DrawnBins {
    std::vector<std::uint32_t> counts;
    std::size_t group = 1;  ///< bins of the depth in each
};
/// @param binning  takes the bins together to 256. Reuses the memory of `result`.
void GroupBins(std::span<const std::uint32_t> counts, bool binning, DrawnBins& result);

/// How often `level` occurs in the channels that the selector picks, all together.
[[nodiscard]] std::uint64_t CountAt(const Measurement& measurement, int channel, std::uint32_t level);

}  // namespace pixora
