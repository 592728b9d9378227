#include "analysis/profile_texts.h"

#include <algorithm>

#include "analysis/profile_scale.h"
#include "analysis/view_title.h"
#include "base/number_text.h"

namespace pixora {

std::wstring ProfileTitle(ProfileKind kind, const ImageBuffer& image, std::wstring_view caption_style) {
    const bool horizontal = kind == ProfileKind::horizontal;
    return ViewTitle(horizontal ? L"H-Profile View" : L"V-Profile View", image, caption_style);
}

ProfileLabels LabelsOf(const ProfileScope& scope, int positions, std::uint32_t bits) {
    const std::wstring axis = scope.kind == ProfileKind::horizontal ? L"H: " : L"V: ";
    const LineRange ends = PositionsOf(scope);
    ProfileLabels labels{.division = axis + FormatWhole(PositionsPerDivision(positions)) + L" Pixels/div",
                         .levels = {},
                         .first = FormatWhole(ends.first),
                         .last = FormatWhole(ends.last)};
    std::ranges::transform(LabelLevels(bits), labels.levels.begin(),
                           [](std::uint32_t level) { return FormatWhole(level); });
    return labels;
}

std::wstring LineText(std::uint16_t line) {
    return FormatWhole(line);
}

std::wstring_view LineCursorCaption(bool shown) {
    return shown ? L"CURSOR OFF" : L"CURSOR ON";
}

}  // namespace pixora
