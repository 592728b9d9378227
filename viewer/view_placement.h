// Where the analysis views of a viewer and its coordinates dialog appear.
#pragma once

#include "viewer/geometry.h"

namespace pixora {

/// What decides where one view of a viewer appears; in screen coordinates.
struct ViewPlace {
    PixelRect viewer;     ///< the viewer's window
    PixelRect work_area;  ///< of the viewer's monitor
    int number = 0;       ///< which of the views it is, from 0; each has a place of its own
    int step = 0;         ///< how far the places lie apart in both directions: the height of a caption
};

/// Top-left corner for a view of `size`: beside its viewer, one step further right and down for each number,
/// so that the captions of all views can be seen. Where there is no room for that the steps lead the other
/// way. The view lies wholly inside the work area; one larger than that starts at the area's corner.
[[nodiscard]] PixelPoint PlaceView(const ViewPlace& place, PixelSize size);

}  // namespace pixora
