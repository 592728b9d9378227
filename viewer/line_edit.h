// Placing the profile lines.
#pragma once

#include <optional>

#include "dialogs/message.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// Moves the lines whose profile views are open to a click: Ctrl keeps the row, Shift keeps the column. A
/// region that shows limits them, else the image does.
/// @param point  what the click acts on, in client pixels; not negative.
/// @param play   the lines may follow clicks.
/// @return what to tell the user when a view is open and the lines may not follow; nothing is changed then.
[[nodiscard]] std::optional<Warning> ClickLines(ViewerState& state, PixelPoint point, bool shift, bool ctrl,
                                                bool play);

/// Brings a line back that a region outside the image has pulled out of it: a row beyond the height goes to
/// the middle, a column beyond the width too. @return whether one was moved.
bool BringLinesBack(ViewerState& state);

}  // namespace pixora
