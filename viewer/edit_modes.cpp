#include "viewer/edit_modes.h"

#include <utility>

namespace pixora {
namespace {

void HideMark(ViewerState& state) {
    state.canvas.mark_shown = false;
    state.edit.redraw_canvas = true;
}

// The statistics view did not end them itself.
void NoteModesEnd(ViewerState& state) {
    if (state.edit.corner) state.edit.corner_off = true;
    if (state.edit.move) state.edit.move_off = true;
}

void EndAllModes(ViewerState& state) {
    SwitchOffCorner(state);
    SwitchOffMove(state);
    EndCoordinates(state);
}

}  // namespace

void RequestRedraw(ViewerState& state) {
    state.edit.redraw = kAllViews;
    state.edit.redraw_canvas = true;
}

void PressRegion(ViewerState& state) {
    state.region_on = !state.region_on;
    EndAllModes(state);
    HideMark(state);
    RequestRedraw(state);
}

void PressCorner(ViewerState& state) {
    RequestRedraw(state);
    if (state.edit.corner) return SwitchOffCorner(state);
    EndAllModes(state);
    state.edit.corner = true;
}

void PressMove(ViewerState& state) {
    RequestRedraw(state);
    if (!state.region_on) return;
    if (state.edit.move) return SwitchOffMove(state);
    EndAllModes(state);
    state.edit.move = true;
}

// Deliberate: corner or move mode stays on beside the coordinates mode.
void PressCoordinates(ViewerState& state) {
    RequestRedraw(state);
    state.edit.coordinates = !state.edit.coordinates;
}

void SwitchOffCorner(ViewerState& state) {
    if (!std::exchange(state.edit.corner, false)) return;
    HideMark(state);
}

void SwitchOffMove(ViewerState& state) {
    if (!std::exchange(state.edit.move, false)) return;
    HideMark(state);
}

void EndCoordinates(ViewerState& state) {
    if (!std::exchange(state.edit.coordinates, false)) return;
    state.edit.redraw.statistics = true;
}

void ExitRegionChange(ViewerState& state) {
    NoteModesEnd(state);
    EndAllModes(state);
}

bool TakeRegionChange(ViewerState& state, bool readout_active) {
    if (!std::exchange(state.edit.region_changed.statistics, false)) return false;
    if (readout_active) {
        NoteModesEnd(state);
        SwitchOffCorner(state);
        SwitchOffMove(state);
    }
    RequestRedraw(state);
    return true;
}

void StatisticsClosed(ViewerState& state) {
    EndAllModes(state);
    state.edit.corner_off = state.edit.move_off = false;
}

}  // namespace pixora
