#include "dialogs/placement.h"

#include <algorithm>

namespace pixora {
namespace {

constexpr std::int32_t kAboveCentre = 30;
constexpr std::int32_t kEntryLeftOfAnchor = 40;
constexpr std::int32_t kEntryAboveAnchor = 45;

// Not std::clamp: a window larger than the area leaves the limits crossed, and the lower one counts then.
std::int32_t Between(std::int32_t value, std::int32_t low, std::int32_t high) {
    return std::max(low, std::min(value, high));
}

}  // namespace

ScreenPoint PlaceCentred(ScreenSize screen, ScreenSize dialog) {
    const std::int32_t x = screen.width / 2 - dialog.width / 2;
    const std::int32_t y = screen.height / 2 - dialog.height / 2 - kAboveCentre;
    return {x, std::max(y, 0)};
}

ScreenPoint PlaceValueEntry(ScreenPoint anchor) {
    return {anchor.x - kEntryLeftOfAnchor, anchor.y - kEntryAboveAnchor};
}

ScreenPoint MoveInside(ScreenPoint corner, ScreenSize size, ScreenRect area) {
    return {Between(corner.x, area.left, area.right - size.width),
            Between(corner.y, area.top, area.bottom - size.height)};
}

ScreenPoint PlaceBeside(ScreenRect window, ScreenSize dialog, ScreenRect work_area) {
    const bool fits_right = window.right + dialog.width <= work_area.right;
    const bool fits_left = window.left - dialog.width >= work_area.left;
    const std::int32_t x = fits_right || !fits_left ? window.right : window.left - dialog.width;
    return MoveInside({x, window.top}, dialog, work_area);
}

}  // namespace pixora
