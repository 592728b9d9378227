// The texts of the statistics view besides those about the mouse.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/measurement.h"
#include "image/region.h"

namespace pixora {

/// The view's title: L" [3 ]  Statistics View " for the viewer of slot 2.
/// @param slot  nothing for a viewer without a number.
[[nodiscard]] std::wstring StatisticsTitle(std::optional<int> slot);

/// What holds for as long as the viewer shows its image.
struct ImageLines {
    std::wstring format, image_size, colour;
    friend bool operator==(const ImageLines&, const ImageLines&) = default;
};
[[nodiscard]] ImageLines StatisticsImageLines(std::wstring_view format, int width, int height, bool colour);

/// @param percent  the display size in percent, as L"50%".
[[nodiscard]] std::wstring DisplaySizeLine(std::wstring_view percent);

/// What the region's lines depend on.
struct RegionFacts {
    Region region;                ///< as it is, even where it leaves the image
    bool region_on = false;       ///< it shows
    SampleStatistics statistics;  ///< of the selected channel
    friend bool operator==(const RegionFacts&, const RegionFacts&) = default;
};

struct RegionLines {
    std::wstring size;                 ///< of the region
    std::wstring max, min, mean, std;  ///< "N/A" while the region is hidden
    friend bool operator==(const RegionLines&, const RegionLines&) = default;
};
[[nodiscard]] RegionLines LinesOf(const RegionFacts& facts);

}  // namespace pixora
