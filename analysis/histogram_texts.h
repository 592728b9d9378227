// What the histogram view says.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/measurement.h"
#include "image/image_buffer.h"

namespace pixora {

/// The title, for example L"Histogram View - a.tif - Upper 12bit [3]".
/// @param caption_style  the setting CAP_STYLE: "FULL" shows the full path, any other text the file name.
[[nodiscard]] std::wstring HistogramTitle(const ImageBuffer& image, std::wstring_view caption_style);

/// The label at the top of the vertical axis: L"1000", L"1.50k", L"120.0k", L"3.00M".
[[nodiscard]] std::wstring FullScaleLabel(std::uint32_t full_scale);
/// L"Y: 500 Pixels/div", L"Y: 20k Pixels/div", L"Y: 1M Pixels/div".
[[nodiscard]] std::wstring CountDivisionText(std::uint32_t counts_per_division);

/// The labels under the quarter marks of the plot, from left to right.
[[nodiscard]] std::array<std::wstring, 4> LevelLabels(std::uint32_t bits);
/// L"X: 32 DN/div".
[[nodiscard]] std::wstring LevelDivisionText(std::uint32_t bits);

/// The lines about the samples of the selected channel.
struct HistogramLines {
    std::wstring min, max, mean, std;
    friend bool operator==(const HistogramLines&, const HistogramLines&) = default;
};
[[nodiscard]] HistogramLines HistogramLinesOf(const SampleStatistics& statistics);

/// L"Freq. = 1,234 (at 128)".
[[nodiscard]] std::wstring FrequencyText(std::uint64_t count, std::uint32_t level);

}  // namespace pixora
