#include "viewer/line_edit.h"

#include <algorithm>

#include "viewer/click.h"

namespace pixora {
namespace {

// Not std::clamp: the edges of a region may be crossed.
std::uint16_t Between(std::uint16_t line, std::int32_t first, std::int32_t last) {
    const std::int32_t limited = std::min(std::max<std::int32_t>(line, first), last);
    return static_cast<std::uint16_t>(std::min(std::max(limited, 0), 65535));
}

std::uint16_t MiddleLine(std::uint16_t extent) {
    return static_cast<std::uint16_t>(std::max(extent / 2 - 1, 0));
}

bool BringBack(std::uint16_t& line, std::uint16_t extent) {
    // Deliberate: a line just past the last one stays.
    if (line <= extent) return false;
    line = MiddleLine(extent);
    return true;
}

}  // namespace

std::optional<Warning> ClickLines(ViewerState& state, PixelPoint point, bool shift, bool ctrl, bool play) {
    EditState& edit = state.edit;
    if (!edit.view_open.h_profile && !edit.view_open.v_profile) return std::nullopt;
    if (!play) return Warning{L"Warning", L"   Line number is fixed\n  Click \"Play\" to update profile"};
    const Region limits = state.region_on ? state.region : WholeImage(state.image.width, state.image.height);
    const double ratio = RatioOf(state);
    if (!ctrl && edit.view_open.h_profile) {
        state.row = Between(LineAt(point.y, ratio), limits.top, limits.bottom);
        edit.redraw.h_profile = true;
    }
    if (!shift && edit.view_open.v_profile) {
        state.column = Between(LineAt(point.x, ratio), limits.left, limits.right);
        edit.redraw.v_profile = true;
    }
    return std::nullopt;
}

bool BringLinesBack(ViewerState& state) {
    const bool row_moved = BringBack(state.row, state.image.height);
    const bool column_moved = BringBack(state.column, state.image.width);
    return row_moved || column_moved;
}

}  // namespace pixora
