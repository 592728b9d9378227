#include "analysis/histogram_texts.h"

#include "analysis/thousands.h"
#include "analysis/view_title.h"
#include "base/number_text.h"

namespace pixora {
namespace {

constexpr std::uint32_t kThousand = 1000, kMillion = 1'000'000;

std::uint32_t LevelsPerQuarter(std::uint32_t bits) {
    switch (bits) {
        case 10:
        case 12:
        case 14:
        case 16:
            return std::uint32_t{1} << (bits - 2);
        default:
            return 64;
    }
}

// Deliberate: 14 and 16 bits say 512, although a division of their grid is an eighth of the range as well.
std::uint32_t StatedLevelsPerDivision(std::uint32_t bits) {
    switch (bits) {
        case 10:
            return 128;
        case 12:
        case 14:
        case 16:
            return 512;
        default:
            return 32;
    }
}

}  // namespace

std::wstring HistogramTitle(const ImageBuffer& image, std::wstring_view caption_style) {
    return ViewTitle(L"Histogram View", image, caption_style);
}

std::wstring FullScaleLabel(std::uint32_t full_scale) {
    if (full_scale <= kThousand) return FormatWhole(full_scale);
    if (full_scale <= 10 * kThousand) return FormatFixed(full_scale / 1000.0, 2) + L"k";
    if (full_scale <= kMillion) return FormatFixed(full_scale / 1000.0, 1) + L"k";
    return FormatFixed(full_scale / 1000000.0, 2) + L"M";
}

std::wstring CountDivisionText(std::uint32_t counts_per_division) {
    const auto text = [](std::uint32_t number, std::wstring_view unit) {
        return L"Y: " + FormatWhole(number) + std::wstring(unit) + L" Pixels/div";
    };
    if (counts_per_division >= kMillion) return text(counts_per_division / kMillion, L"M");
    if (counts_per_division >= kThousand) return text(counts_per_division / kThousand, L"k");
    return text(counts_per_division, L"");
}

std::array<std::wstring, 4> LevelLabels(std::uint32_t bits) {
    const std::int64_t quarter = LevelsPerQuarter(bits);
    return {FormatWhole(quarter), FormatWhole(2 * quarter), FormatWhole(3 * quarter),
            FormatWhole(4 * quarter)};
}

std::wstring LevelDivisionText(std::uint32_t bits) {
    return L"X: " + FormatWhole(StatedLevelsPerDivision(bits)) + L" DN/div";
}

HistogramLines HistogramLinesOf(const SampleStatistics& statistics) {
    return {L"Min.= " + FormatWhole(statistics.min), L"Max.= " + FormatWhole(statistics.max),
            L"Mean = " + FormatFixed(statistics.mean, 3), L"Std.  = " + FormatFixed(statistics.std, 3)};
}

std::wstring FrequencyText(std::uint64_t count, std::uint32_t level) {
    return L"Freq. = " + ThousandsText(count) + L" (at " + FormatWhole(level) + L")";
}

}  // namespace pixora
