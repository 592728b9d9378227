// Monitors, window frames and the cursor.
#pragma once

#include <windows.h>

#include <optional>

namespace pixora {

/// Size of the primary screen in pixels.
[[nodiscard]] SIZE PrimaryScreenSize();
/// The primary screen without task bars.
[[nodiscard]] RECT PrimaryWorkArea();
/// The work area of the monitor that shows most of `window`, or of the nearest one.
[[nodiscard]] RECT WorkAreaOf(HWND window);
[[nodiscard]] bool IsOnMonitor(POINT point);

[[nodiscard]] SIZE SizeOf(const RECT& rectangle);
/// The window's rectangle on the screen, frame included.
[[nodiscard]] RECT ScreenRectangle(HWND window);
/// How much wider and higher the window is than its client area. The one place that asks for frame sizes.
[[nodiscard]] SIZE FrameExtent(HWND window);
/// Height of a caption in pixels at the window's resolution.
[[nodiscard]] int CaptionHeight(HWND window);
/// A length that is meant for 96 dots per inch, at the window's resolution.
[[nodiscard]] int ScaleForDpi(HWND window, int length);
/// Where a window that is minimised, maximised or neither stands when it is neither, on the screen.
[[nodiscard]] POINT RestoredPosition(HWND window);
/// Where a child lies in its parent's client area.
[[nodiscard]] RECT ClientRectangleOf(HWND child);
/// The cursor on the screen.
[[nodiscard]] POINT CursorPosition();

/// Moves a window; its size and place in the order of windows stay, and it is not activated.
void MoveWindowTo(HWND window, POINT top_left);

/// Paints a window, its frame and its children at once, for when no messages will be served for a while.
void PaintNow(HWND window);

/// Shows the busy cursor for as long as it lives.
class [[nodiscard]] BusyCursor {
public:
    BusyCursor() noexcept;
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;

private:
    HCURSOR previous_;
};

}  // namespace pixora
