// Which edit mode is on. The buttons of the statistics view, the coordinates dialog and the quit menu go
// through these rules; none of them sets a mode itself.
#pragma once

#include "base/flags.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// Corner or move mode is on: clicks edit the region.
[[nodiscard]] inline bool EditsRegion(const ViewerState& state) {
    return state.edit.corner || state.edit.move;
}
/// Clicks leave the profile lines alone.
[[nodiscard]] inline bool AnyEditMode(const ViewerState& state) {
    return EditsRegion(state) || state.edit.coordinates;
}

/// The viewer closes or has been asked to: its windows show no further box, for it waits for them. Once it
/// closes, its slot, and with it the slot's request, may be another viewer's.
[[nodiscard]] inline bool ViewerIsToClose(const ViewerState& state, const SharedFlags& flags) {
    return state.closing || flags.close_viewer[state.image.slot];
}

/// Asks the canvas and all views to show the viewer's state anew.
void RequestRedraw(ViewerState& state);

/// REGION: shows the region, or hides it with its mark. Either way every mode ends; the region itself stays
/// as it was.
void PressRegion(ViewerState& state);
/// CORNER: switches corner mode on, which ends the others, or off.
void PressCorner(ViewerState& state);
/// MOVE: as CORNER, but only while the region shows.
void PressMove(ViewerState& state);
/// H-V: switches the coordinates mode on or off. The viewer opens the dialog of a mode that is on while the
/// region shows, and the dialog closes itself when it is off.
void PressCoordinates(ViewerState& state);

/// Each ends one mode and, with corner or move mode, hides the mark.
void SwitchOffCorner(ViewerState& state);
void SwitchOffMove(ViewerState& state);
void EndCoordinates(ViewerState& state);

/// "Exit Region Change ": ends every mode and asks the statistics view to show its buttons so.
void ExitRegionChange(ViewerState& state);

/// The statistics view takes up that the region has new coordinates.
/// @param readout_active  the viewer reads the pixel under the cursor; only then corner and move mode end.
/// @return whether there were new coordinates.
bool TakeRegionChange(ViewerState& state, bool readout_active);

/// The statistics view closes: nothing is left that could end the modes, so they end. The region stays.
void StatisticsClosed(ViewerState& state);

}  // namespace pixora
