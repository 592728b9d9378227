// Where a viewer's window and canvas go for a display ratio, and when the window shows.
#pragma once

#include <cstdint>

#include "viewer/geometry.h"

namespace pixora {

/// Longest side of a canvas: what a window's size can hold.
inline constexpr std::int32_t kLargestCanvasSide = 32767;

/// Size of the canvas that shows all of `image` at `ratio`.
[[nodiscard]] PixelSize CanvasSize(PixelSize image, double ratio);

/// The screen rectangle for a window that now lies at `window`: its client area takes exactly `canvas`, and
/// it moves back by `anchor`, so that the anchored image point keeps its place on the screen.
/// @param frame  what the window is larger than its client area.
[[nodiscard]] PixelRect PlaceWindow(const PixelRect& window, PixelSize frame, PixelSize canvas,
                                    PixelPoint anchor);

/// Where a menu opens that the keyboard asks for: at the cursor, or, when that is not over the client area,
/// in its middle, which an empty client area has too. All in screen coordinates.
[[nodiscard]] PixelPoint KeyboardMenuPoint(PixelPoint cursor, const PixelRect& client);

/// Decides tick by tick when a viewer's window shows. It is created hidden, shows at its second tick and
/// follows the flag that hides all viewers.
class Visibility {
public:
    enum class Change { none, show_first, show_again, hide };

    /// @param hide  whether all viewers are asked to hide.
    [[nodiscard]] Change Tick(bool hide);

private:
    enum class Stage { fresh, waiting, shown, hidden };
    Stage stage_ = Stage::fresh;
};

/// Moves a window along with the mouse.
class WindowDrag {
public:
    void Begin(PixelPoint cursor) { last_ = cursor, active_ = true; }
    void End() { active_ = false; }
    [[nodiscard]] bool Active() const { return active_; }
    /// The rectangle for a window at `window` once the cursor is at `cursor`.
    [[nodiscard]] PixelRect Follow(const PixelRect& window, PixelPoint cursor);

private:
    PixelPoint last_;
    bool active_ = false;
};

}  // namespace pixora
