#include "viewer/edit_tick.h"

#include <utility>

#include "viewer/edit_modes.h"
#include "viewer/line_edit.h"
#include "viewer/undo.h"

namespace pixora {

bool FollowEdits(ViewerState& state) {
    if (BringLinesBack(state)) RequestRedraw(state);
    FollowRegion(state);
    const bool clicked = std::exchange(state.edit.clicked, false);
    const bool asked = std::exchange(state.edit.redraw_canvas, false);
    if (!clicked && !asked) return false;
    // The rectangle of the region stays: after coordinates were entered it is another one than a layout's.
    state.canvas.region_shown = state.region_on;
    state.canvas.row = state.row;
    state.canvas.column = state.column;
    return true;
}

}  // namespace pixora
