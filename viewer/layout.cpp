#include "viewer/layout.h"

#include <algorithm>

#include "viewer/display_size.h"

namespace pixora {
namespace {

// No farther than a window can lie; an anchor can be as large as any number.
std::int32_t MovedBack(std::int32_t edge, std::int32_t offset) {
    const std::int64_t moved = std::int64_t{edge} - offset;
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(std::max<std::int64_t>(moved, -kLargestCanvasSide), kLargestCanvasSide));
}

}  // namespace

PixelSize CanvasSize(PixelSize image, double ratio) {
    const PixelSize shown = DisplayedSize(image, ratio);
    return {std::min(std::max(shown.width, 0), kLargestCanvasSide),
            std::min(std::max(shown.height, 0), kLargestCanvasSide)};
}

PixelRect PlaceWindow(const PixelRect& window, PixelSize frame, PixelSize canvas, PixelPoint anchor) {
    const std::int32_t left = MovedBack(window.left, anchor.x), top = MovedBack(window.top, anchor.y);
    return {left, top, left + canvas.width + frame.width, top + canvas.height + frame.height};
}

PixelPoint KeyboardMenuPoint(PixelPoint cursor, const PixelRect& client) {
    if (Contains(client, cursor)) return cursor;
    const PixelSize size = SizeOf(client);
    return {client.left + size.width / 2, client.top + size.height / 2};
}

Visibility::Change Visibility::Tick(bool hide) {
    switch (stage_) {
        case Stage::fresh:
            stage_ = Stage::waiting;
            return Change::none;
        case Stage::waiting:
            if (hide) return Change::none;
            stage_ = Stage::shown;
            return Change::show_first;
        case Stage::shown:
            if (!hide) return Change::none;
            stage_ = Stage::hidden;
            return Change::hide;
        case Stage::hidden:
            if (hide) return Change::none;
            stage_ = Stage::shown;
            return Change::show_again;
    }
    return Change::none;
}

PixelRect WindowDrag::Follow(const PixelRect& window, PixelPoint cursor) {
    const PixelRect moved = Shifted(window, last_, cursor);
    last_ = cursor;
    return moved;
}

}  // namespace pixora
