// Where a new viewer appears.
#pragma once

#include "dialogs/placement.h"

namespace pixora {

/// Top-left corner of the viewer of `slot` (0 .. 7): the work area's corner, moved right and down by the
/// height of a caption for each slot, so that the captions of all viewers can be seen.
[[nodiscard]] ScreenPoint PlaceViewer(ScreenRect work_area, int slot, int caption_height);

}  // namespace pixora
