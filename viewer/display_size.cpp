#include "viewer/display_size.h"

#include <algorithm>

#include "base/number_text.h"

namespace pixora {
namespace {

constexpr std::int32_t kLargestDisplaySide = 22000;

}  // namespace

std::wstring StartRatio(std::wstring_view stored) {
    return std::wstring(ParseRatio(stored) ? stored : kFallbackRatio);
}

PixelSize DisplayedSize(PixelSize image, double ratio) {
    return {Truncate(image.width * ratio), Truncate(image.height * ratio)};
}

std::wstring PercentText(std::wstring_view ratio_text) {
    std::wstring text(ratio_text);
    if (text.find(L'.') == std::wstring::npos) text += L".00";
    std::wstring percent = FormatFixed(ParseRatio(text).value_or(0.0) * 100, 1);
    if (percent.ends_with(L".0")) percent.erase(percent.size() - 2);
    return percent;
}

std::wstring PercentSignText(std::wstring_view ratio_text) {
    return PercentText(ratio_text) + L"%";
}

std::optional<Message> CheckDisplayLimit(PixelSize image, std::wstring_view ratio_text) {
    const PixelSize shown = DisplayedSize(image, ParseRatio(ratio_text).value_or(0.0));
    if (shown.width <= kLargestDisplaySide && shown.height <= kLargestDisplaySide) return std::nullopt;
    const std::int32_t side = shown.width > kLargestDisplaySide ? image.width : image.height;
    const std::int32_t percent = Truncate(static_cast<double>(kLargestDisplaySide) / side * 100.0 + 0.5);
    // Deliberate: always a multiple of ten below the percentage that fits, even when that one would fit.
    const std::int32_t largest = (percent - 1) / 10 * 10;
    return Message{L" : Error - Image display failed.",
                   L"A \"" + PercentSignText(ratio_text) + L"\" zoom is too large to display.",
                   L"The maximum zoom level for this image is \"" + FormatWhole(largest) + L"%\".", L""};
}

}  // namespace pixora
