#include "viewer/zoom.h"

#include "base/number_text.h"
#include "dialogs/value_check.h"

namespace pixora {
namespace {

// What Fit to Monitor adds outside the work area: the width of a window's border.
constexpr std::int32_t kHiddenBorder = 8;
constexpr std::int32_t kLargestFitPercent = 10000;
constexpr std::wstring_view kLargestFitRatio = L"100.00";

// From this ratio on the wheel does not zoom in.
constexpr std::int32_t kLargestWheelRatio = 100;

void StoreRatio(ViewerState& state, std::wstring_view ratio_text, double new_ratio, PixelPoint anchor) {
    state.anchor = AnchorOffset(anchor, RatioOf(state), new_ratio);
    state.ratio_text = ratio_text;
    state.layout_requested = true;
}

// The nearest percentage at or below that the wheel stops at.
std::int32_t SnapDown(std::int32_t percent) {
    if (percent > 1000) return percent / 200 * 200;
    if (percent > 100) return percent / 20 * 20;
    if (percent > 10) return percent / 5 * 5;
    return percent;
}

// Deliberate: the boundaries belong to the larger step when zooming in and to the smaller one when zooming
// out.
std::int32_t StepUp(std::int32_t percent) {
    if (percent >= 1000) return 200;
    if (percent >= 100) return 20;
    return percent >= 10 ? 5 : 1;
}

std::int32_t StepDown(std::int32_t percent) {
    if (percent > 1000) return 200;
    if (percent > 100) return 20;
    return percent > 10 ? 5 : 1;
}

// The percentage after one step of the wheel; it can be below 1.
std::int32_t AfterStep(double ratio, int delta) {
    const std::int32_t percent = SnapDown(RoundedPercent(ratio));
    if (delta > 0) return Truncate(ratio) >= kLargestWheelRatio ? percent : percent + StepUp(percent);
    if (delta < 0) return percent - StepDown(percent);
    return percent;
}

}  // namespace

std::int32_t RoundedPercent(double ratio) {
    return Truncate(ratio * 100.0 + 0.5);
}

PixelPoint AnchorOffset(PixelPoint client, double old_ratio, double new_ratio) {
    const auto offset = [&](std::int32_t point) {
        return Truncate(Truncate(point / old_ratio) * new_ratio - point);
    };
    return {offset(client.x), offset(client.y)};
}

std::optional<Message> SetDisplayRatio(ViewerState& state, std::wstring_view ratio_text, PixelPoint anchor) {
    if (std::optional<Message> refusal = CheckDisplayLimit(ImageSizeOf(state), ratio_text)) return refusal;
    if (const std::optional<double> ratio = ParseRatio(ratio_text))
        StoreRatio(state, ratio_text, *ratio, anchor);
    return std::nullopt;
}

void SetTypedSize(ViewerState& state, const std::optional<std::wstring>& ratio_text) {
    if (ratio_text) state.ratio_text = *ratio_text;
    state.layout_requested = true;
}

std::optional<Message> SetDefinedSize(ViewerState& state, std::wstring_view stored, PixelPoint anchor) {
    const std::optional<double> ratio = ParseRatio(stored);
    const std::wstring text = FormatFixed(ratio.value_or(0.0), 3);
    if (!ParseRatio(text)) return InvalidInputMessage(stored);
    StoreRatio(state, text, *ratio, anchor);
    return std::nullopt;
}

std::optional<std::wstring> DefaultSizeOf(std::wstring_view ratio_text) {
    std::wstring text = FormatFixed(ParseDecimal(PercentSignText(ratio_text)) / 100, 3);
    if (!ParseRatio(text)) return std::nullopt;
    return text;
}

std::optional<PixelPoint> FitToMonitor(ViewerState& state, const MonitorFacts& monitor) {
    const PixelSize image = ImageSizeOf(state), area = monitor.work_area;
    const double zx = static_cast<double>(area.width) / image.width;
    const double zy = static_cast<double>(area.height) / image.height;
    const bool width_limits = zx < zy;
    const double z = width_limits ? zx : zy;
    const bool listed = ParseWhole(PercentText(FormatFixed(z, 6))) <= kLargestFitPercent;
    const std::wstring text = listed ? FormatFixed(z, 3) : std::wstring(kLargestFitRatio);
    if (!ParseRatio(text)) return std::nullopt;
    state.ratio_text = text;
    state.anchor = {};
    state.layout_requested = true;
    // Deliberate: placed for the size of z itself, also when the ratio was held at its largest.
    const PixelSize shown = DisplayedSize(image, z);
    if (width_limits) return PixelPoint{-kHiddenBorder, (area.height - shown.height) / 2};
    return PixelPoint{(area.width - shown.width) / 2, -kHiddenBorder - monitor.caption_height};
}

WheelResult ZoomByWheel(ViewerState& state, int delta, PixelPoint cursor) {
    if (state.wheel_pending) return {};
    state.wheel_pending = true;
    std::int32_t percent = AfterStep(RatioOf(state), delta);
    if (percent < 1) {
        percent = 1;
        state.wheel_pending = false;
    }
    const std::wstring text = FormatFixed(percent / 100.0, 3);
    WheelResult result;
    result.refusal = SetDisplayRatio(state, text, cursor);
    if (!result.refusal) result.tip = L"Size: " + PercentSignText(text);
    state.layout_requested = true;
    return result;
}

}  // namespace pixora
