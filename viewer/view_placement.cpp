#include "viewer/view_placement.h"

#include <cstdint>

#include "dialogs/placement.h"

namespace pixora {
namespace {

// `start` and `offset` further, or as much back when a window of `size` would pass `limit` there.
std::int32_t Stepped(std::int32_t start, std::int32_t offset, std::int32_t size, std::int32_t limit) {
    return start + offset + size <= limit ? start + offset : start - offset;
}

}  // namespace

PixelPoint PlaceView(const ViewPlace& place, PixelSize size) {
    const PixelRect& work = place.work_area;
    const ScreenRect area{work.left, work.top, work.right, work.bottom};
    const ScreenSize view{size.width, size.height};
    const PixelRect& viewer = place.viewer;
    const ScreenPoint first = PlaceBeside({viewer.left, viewer.top, viewer.right, viewer.bottom}, view, area);
    const std::int32_t offset = place.number * place.step;
    const ScreenPoint corner{Stepped(first.x, offset, size.width, work.right),
                             Stepped(first.y, offset, size.height, work.bottom)};
    const ScreenPoint inside = MoveInside(corner, view, area);
    return {inside.x, inside.y};
}

}  // namespace pixora
