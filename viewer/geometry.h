// Points, sizes and rectangles in screen, client or canvas pixels.
#pragma once

#include <cstdint>

#include "image/region.h"

namespace pixora {

struct PixelPoint {
    std::int32_t x = 0, y = 0;
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

struct PixelSize {
    std::int32_t width = 0, height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// Right and bottom lie just outside.
struct PixelRect {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

[[nodiscard]] constexpr PixelSize SizeOf(const PixelRect& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

[[nodiscard]] constexpr bool Contains(const PixelRect& rect, PixelPoint point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

/// `rect` shifted by the way from `from` to `to`.
[[nodiscard]] constexpr PixelRect Shifted(const PixelRect& rect, PixelPoint from, PixelPoint to) {
    const std::int32_t dx = to.x - from.x, dy = to.y - from.y;
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

/// `region` as a rectangle of the canvas at display ratio `ratio`: each edge times the ratio, truncated, with
/// the last column and row of the region inside.
[[nodiscard]] PixelRect DisplayRectangle(const Region& region, double ratio);

}  // namespace pixora
