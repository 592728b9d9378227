// Between the core's places on the screen and those of Windows.
#pragma once

#include <windows.h>

#include "dialogs/placement.h"

namespace pixora {

[[nodiscard]] inline ScreenRect ToScreen(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

[[nodiscard]] inline ScreenSize ToScreen(const SIZE& size) {
    return {size.cx, size.cy};
}

[[nodiscard]] inline ScreenPoint ToScreen(const POINT& point) {
    return {point.x, point.y};
}

[[nodiscard]] inline POINT ToWin(ScreenPoint point) {
    return {point.x, point.y};
}

}  // namespace pixora
