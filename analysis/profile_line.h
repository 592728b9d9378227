// Where a profile line may stand, and the steps of the line cursor.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "analysis/line_profile.h"
#include "dialogs/value_check.h"
#include "image/region.h"

namespace pixora {

/// What limits a profile line: the region while it shows, else the image.
struct ProfileScope {
    ProfileKind kind = ProfileKind::horizontal;
    int width = 0, height = 0;  ///< of the image, in pixels
    bool region_shown = false;
    Region region{};  ///< may lie outside the image or be crossed
};

/// Rows or columns, both ends inside; crossed when the region is.
struct LineRange {
    std::int32_t first = 0, last = 0;
    friend bool operator==(const LineRange&, const LineRange&) = default;
};

/// The lines among which the cursor moves: rows of the horizontal profile, columns of the vertical one.
[[nodiscard]] LineRange LinesOf(const ProfileScope& scope);
/// The first and the last position along the line: columns of the horizontal profile, rows of the vertical
/// one. These are the edges as they are stored, which may lie outside the image.
[[nodiscard]] LineRange PositionsOf(const ProfileScope& scope);

/// "CENTER". The middle of an even number of lines is the one before the half.
[[nodiscard]] std::uint16_t CentredLine(const ProfileScope& scope);
/// "UP": a row line goes up the screen, a column line to the right, not beyond the end of LinesOf() on that
/// side. The other end limits nothing.
[[nodiscard]] std::uint16_t LineUp(const ProfileScope& scope, std::uint16_t line);
/// "DN": the other way.
[[nodiscard]] std::uint16_t LineDown(const ProfileScope& scope, std::uint16_t line);

/// What a "Line Number =" box holds, judged.
struct LineEntry {
    std::optional<std::uint16_t> line;  ///< set when the entry is a whole number within LinesOf()
    InputError refusal;                 ///< else what the value-range error dialog tells
};
[[nodiscard]] LineEntry CheckLineEntry(std::wstring_view typed, const ProfileScope& scope);

}  // namespace pixora
