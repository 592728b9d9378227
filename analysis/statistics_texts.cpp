#include "analysis/statistics_texts.h"

#include "base/number_text.h"

namespace pixora {
namespace {

constexpr int kDecimals = 3;  // of mean and standard deviation

std::wstring Extent(std::int64_t width, std::int64_t height) {
    return FormatWhole(width) + L" x " + FormatWhole(height);
}

}  // namespace

std::wstring StatisticsTitle(std::optional<int> slot) {
    const std::wstring number = slot ? L" [" + FormatWhole(*slot + 1) + L" ]  " : L"";
    return number + L"Statistics View ";
}

ImageLines StatisticsImageLines(std::wstring_view format, int width, int height, bool colour) {
    return {L"Format = " + std::wstring(format), L"Image size = " + Extent(width, height),
            colour ? L"Color = RGB" : L"Color = B/W"};
}

std::wstring DisplaySizeLine(std::wstring_view percent) {
    return L"Display Size = " + std::wstring(percent);
}

RegionLines LinesOf(const RegionFacts& facts) {
    // The edges are widened first: a region may hold any 32-bit value.
    const std::int64_t left = facts.region.left, top = facts.region.top;
    const std::wstring size =
        L"Region = " + Extent(facts.region.right - left + 1, facts.region.bottom - top + 1);
    if (!facts.region_on) return {size, L"N/A", L"N/A", L"N/A", L"N/A"};
    return {size, FormatWhole(facts.statistics.max), FormatWhole(facts.statistics.min),
            FormatFixed(facts.statistics.mean, kDecimals), FormatFixed(facts.statistics.std, kDecimals)};
}

}  // namespace pixora
