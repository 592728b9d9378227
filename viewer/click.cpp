#include "viewer/click.h"

#include <algorithm>
#include <limits>

#include "base/number_text.h"
#include "viewer/edit_modes.h"
#include "viewer/line_edit.h"
#include "viewer/region_edit.h"

namespace pixora {

PixelPoint ClickPoint(PixelPoint cursor) {
    // Deliberate: the row of a click lies one client pixel below the cursor, its column does not.
    const std::int64_t below = std::int64_t{cursor.y} + 1;
    return {std::max(cursor.x, 0),
            static_cast<std::int32_t>(std::min<std::int64_t>(std::max<std::int64_t>(below, 0),
                                                             std::numeric_limits<std::int32_t>::max()))};
}

std::uint16_t LineAt(std::int32_t coordinate, double ratio) {
    return static_cast<std::uint16_t>(std::min(std::max(Truncate(coordinate / ratio), 0), 65535));
}

std::optional<Warning> ClickViewer(ViewerState& state, const Click& click, bool play) {
    state.saved_row = state.row;
    state.saved_column = state.column;
    state.edit.clicked = true;
    const PixelPoint point = ClickPoint(click.cursor);
    if (!AnyEditMode(state)) return ClickLines(state, point, click.shift, click.ctrl, play);
    if (EditsRegion(state)) ClickRegion(state, point);
    return std::nullopt;
}

}  // namespace pixora
