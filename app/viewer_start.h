// How a viewer starts: where its window goes, and what is told when it cannot be created.
#pragma once

#include "dialogs/message.h"
#include "dialogs/placement.h"
#include "image/image_buffer.h"

namespace pixora {

/// Top-left corner of the viewer of `slot` (0 .. 7): the work area's corner, moved right and down by the
/// height of a caption for each slot, so that the captions of all viewers can be seen.
[[nodiscard]] ScreenPoint PlaceViewer(ScreenRect work_area, int slot, int caption_height);

/// The error box for an imported image whose viewer cannot be created.
[[nodiscard]] Message ViewerFailedMessage(const ImageBuffer& image);

}  // namespace pixora
