// Noticing changes of the region, and taking the last one back.
#pragma once

#include "viewer/viewer_state.h"

namespace pixora {

/// The viewer's look at the region, once a tick: a region other than last time makes the one seen last time
/// the one to go back to, and is given to the canvas. Changes between two looks count as one.
/// @return whether the region has changed.
bool FollowRegion(ViewerState& state);

/// "Undo Last Change": the region before the last change that was seen, and the profile lines before the last
/// click, are current again. The region that was current becomes what the next undo goes back to.
void UndoLastChange(ViewerState& state);

}  // namespace pixora
