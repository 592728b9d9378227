// Between the core's points and rectangles and those of Windows.
#pragma once

#include <windows.h>

#include "viewer/colours.h"
#include "viewer/geometry.h"

namespace pixora {

[[nodiscard]] inline PixelPoint FromWin(const POINT& point) {
    return {point.x, point.y};
}

[[nodiscard]] inline PixelRect FromWin(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

[[nodiscard]] inline PixelSize FromWin(const SIZE& size) {
    return {size.cx, size.cy};
}

[[nodiscard]] inline RECT ToWin(const PixelRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

[[nodiscard]] inline COLORREF ToWin(Rgb colour) {
    return RGB(colour.red, colour.green, colour.blue);
}

}  // namespace pixora
