#include "analysis/profile_line.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/number_text.h"

namespace pixora {
namespace {

// What the viewer can store; not std::clamp, so that nothing depends on an order of its limits.
std::uint16_t AsLine(std::int32_t line) {
    return static_cast<std::uint16_t>(std::min(std::max(line, 0), 65535));
}

// Deliberate: a step is limited on the side that it goes to alone. A line beyond the other side, as after
// clicks outside the region, is not fetched into it but goes one line nearer.
std::uint16_t Before(const LineRange& lines, std::int32_t line) {
    return AsLine(std::max(line - 1, lines.first));
}
std::uint16_t After(const LineRange& lines, std::int32_t line) {
    return AsLine(std::min(line + 1, lines.last));
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
        return AsLine(Truncate(middle));
    }
    const std::int32_t count = lines.last + 1;
    return AsLine(count % 2 == 0 ? count / 2 - 1 : count / 2);
}

std::uint16_t LineUp(const ProfileScope& scope, std::uint16_t line) {
    return scope.kind == ProfileKind::horizontal ? Before(LinesOf(scope), line) : After(LinesOf(scope), line);
}

std::uint16_t LineDown(const ProfileScope& scope, std::uint16_t line) {
    return scope.kind == ProfileKind::horizontal ? After(LinesOf(scope), line) : Before(LinesOf(scope), line);
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
    return {AsLine(ParseWhole(typed)), {}};
}

}  // namespace pixora
