#include "viewer/undo.h"

#include <utility>

#include "viewer/edit_modes.h"

namespace pixora {

bool FollowRegion(ViewerState& state) {
    const bool rectangle_given = std::exchange(state.edit.rectangle_given, false);
    if (state.region == state.last_seen_region) return false;
    state.undo_region = std::exchange(state.last_seen_region, state.region);
    if (!rectangle_given) state.canvas.region = DisplayRectangle(state.region, RatioOf(state));
    state.edit.redraw_canvas |= state.region_on;
    return true;
}

void UndoLastChange(ViewerState& state) {
    state.last_seen_region = std::exchange(state.region, state.undo_region);
    state.row = state.saved_row;
    state.column = state.saved_column;
    state.edit.rectangle_given = false;
    RequestRedraw(state);
}

}  // namespace pixora
