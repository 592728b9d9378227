// What a viewer's tick does about edited regions and lines.
#pragma once

#include "viewer/viewer_state.h"

namespace pixora {

/// Brings outlying lines back, notices a changed region and gives the canvas what has changed since the last
/// tick. @return whether the canvas must be painted again.
[[nodiscard]] bool FollowEdits(ViewerState& state);

}  // namespace pixora
