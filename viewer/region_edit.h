// Changing the region of a viewer by clicks.
#pragma once

#include <cstdint>

#include "image/region.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// An image pixel that was clicked; always inside the image.
struct ClickedPixel {
    std::uint16_t row = 0, column = 0;
    friend bool operator==(const ClickedPixel&, const ClickedPixel&) = default;
};

/// The image pixel at a client point; a point beyond the image gives its last row or column.
[[nodiscard]] ClickedPixel PixelAt(PixelPoint point, double ratio, PixelSize image);

/// Puts one corner of `region` on `at`; the opposite corner stays. A click on or past an opposite edge leaves
/// the region as it is.
/// @param corner_code  as a MarkPosition; any number but 1, 2 and 3 is the bottom right corner.
[[nodiscard]] Region MoveCorner(const Region& region, int corner_code, ClickedPixel at);

/// Puts the centre or a corner of `region` on `at` and keeps its size; at the image's edges it is moved
/// inside. The result may all the same be partly or wholly outside the image, or have its edges crossed.
/// @param anchor_code  as a MarkPosition; any other number leaves the region as it is.
[[nodiscard]] Region MoveRegion(const Region& region, int anchor_code, ClickedPixel at, PixelSize image);

/// Applies a click in corner or move mode; when both are on it is corner mode's.
/// @param point  what the click acts on, in client pixels; not negative.
void ClickRegion(ViewerState& state, PixelPoint point);

}  // namespace pixora
