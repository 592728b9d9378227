// Picking the corner or the centre of the region that the next clicks act on.
#pragma once

#include <optional>

#include "image/region.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// What NearestMark() gives when there is no window to point into.
inline constexpr int kNoMark = -1;

/// The corner of `region`, or its centre when that takes part, that is nearest to the cursor, as the number
/// of a MarkPosition. Of equally near ones the first wins: top left, top right, bottom left, bottom right,
/// centre.
/// @param cursor  in client pixels; nothing when the viewer's window is gone, which gives kNoMark.
[[nodiscard]] int NearestMark(const Region& region, std::optional<PixelPoint> cursor, double ratio,
                              bool with_centre);

/// Applies a right click in corner or move mode: the mark nearest to it is kept as corner or anchor and
/// shown.
/// @param cursor  as above.
void PickMark(ViewerState& state, std::optional<PixelPoint> cursor);

}  // namespace pixora
