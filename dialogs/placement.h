// Where dialogs appear on the screen. Plain numbers in, plain numbers out.
#pragma once

#include <cstdint>

namespace pixora {

/// A point in screen pixels.
struct ScreenPoint {
    std::int32_t x = 0, y = 0;
    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

/// A width and a height in screen pixels.
struct ScreenSize {
    std::int32_t width = 0, height = 0;
    friend bool operator==(const ScreenSize&, const ScreenSize&) = default;
};

/// A rectangle in screen pixels; right and bottom lie just outside.
struct ScreenRect {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    friend bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

/// Top-left corner of a dialog that is shown centred: 30 pixels above the centre of the primary screen, never
/// above its top. The task bar is not taken into account.
[[nodiscard]] ScreenPoint PlaceCentred(ScreenSize screen, ScreenSize dialog);

/// Top-left corner of the display-size value dialog for the point where the user asked for it.
[[nodiscard]] ScreenPoint PlaceValueEntry(ScreenPoint anchor);

/// `corner`, moved so that a window of `size` lies inside `area`. A window larger than the area starts at the
/// area's top-left corner.
[[nodiscard]] ScreenPoint MoveInside(ScreenPoint corner, ScreenSize size, ScreenRect area);

/// Top-left corner of a dialog beside `window`: to its right when it fits there, else to its left, else moved
/// inside `work_area`.
[[nodiscard]] ScreenPoint PlaceBeside(ScreenRect window, ScreenSize dialog, ScreenRect work_area);

}  // namespace pixora
