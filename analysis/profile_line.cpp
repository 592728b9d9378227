#include "analysis/profile_line.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/number_text.h"

namespace pixora {
namespace {

// Not std::clamp: the range may be crossed.
std::uint16_t Within(const LineRange& range, std::int32_t line) {
    const std::int32_t limited = std::min(std::max(line, range.first), range.last);
    return static_cast<std::uint16_t>(std::min(std::max(limited, 0), 65535));
}

LineRange Range(const ProfileScope& scope, bool rows) {
    const Region limits = scope.region_shown ? scope.region : WholeImage(scope.width, scope.height);
    return rows ? LineRange{limits.top, limits.bottom} : LineRange{limits.left, limits.right};
}

}  // namespace

LineRange LinesOf(const ProfileScope& scope) {
    return Range(scope, scope.kind == ProfileKind::horizontal);
}

LineRange PositionsOf(const ProfileScope& scope) {
    return Range(scope, scope.kind == ProfileKind::vertical);
}

std::uint16_t CentredLine(const ProfileScope& scope) {
    const LineRange lines = LinesOf(scope);
    if (scope.region_shown) {
        const double middle = (static_cast<double>(lines.first) + lines.last) * 0.5;
        return Within({0, 65535}, Truncate(middle));
    }
    const std::int32_t count = lines.last + 1;
    return Within({0, 65535}, count % 2 == 0 ? count / 2 - 1 : count / 2);
}

std::uint16_t LineUp(const ProfileScope& scope, std::uint16_t line) {
    return Within(LinesOf(scope), scope.kind == ProfileKind::horizontal ? line - 1 : line + 1);
}

std::uint16_t LineDown(const ProfileScope& scope, std::uint16_t line) {
    return Within(LinesOf(scope), scope.kind == ProfileKind::horizontal ? line + 1 : line - 1);
}

LineEntry CheckLineEntry(std::wstring_view typed, const ProfileScope& scope) {
    const LineRange lines = LinesOf(scope);
    InputError input{.ErrorKind = 1,
                     .CheckMode = 3,
                     .InputText = std::wstring(typed),
                     .Limit1 = lines.first,
                     .Limit2 = lines.last,
                     .ItemName = L"Profile line number"};
    if (!CheckValue(input)) return {std::nullopt, std::move(input)};
    return {Within(lines, ParseWhole(typed)), {}};
}

}  // namespace pixora
