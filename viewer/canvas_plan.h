// What a viewer's canvas paints, as data.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "viewer/colours.h"
#include "viewer/geometry.h"

namespace pixora {

/// The corner of the region, or its centre, that the cross mark stands on. No other number shows a mark.
enum class MarkPosition : int { centre = 0, top_left = 1, top_right = 2, bottom_left = 3, bottom_right = 4 };

/// Everything that decides what the canvas shows on top of its picture. The viewer and its views write it and
/// invalidate the canvas; painting only reads it.
struct CanvasState {
    PixelSize image;   ///< size of the image in its own pixels
    double ratio = 0;  ///< canvas pixels per image pixel; nothing is painted unless it is above 0
    bool row_shown = false, column_shown = false;  ///< the horizontal and the vertical profile line
    std::uint16_t row = 0, column = 0;             ///< their places, in image pixels
    bool region_shown = false;
    BorderStyle border_style = BorderStyle::area;
    PixelRect region;  ///< in canvas pixels
    bool mark_shown = false;
    MarkPosition mark = MarkPosition::centre;
    ColorIndex line_colour = ColorIndex::red, border_colour = ColorIndex::red,
               mark_colour = ColorIndex::white;
};

/// A line one pixel wide; its last point is not drawn.
struct Stroke {
    PixelPoint from, to;
    Rgb colour;
    friend bool operator==(const Stroke&, const Stroke&) = default;
};

/// Rectangles blended with one colour; they do not overlap.
struct Tint {
    std::vector<PixelRect> areas;
    Rgb colour;
    friend bool operator==(const Tint&, const Tint&) = default;
};

/// A rectangle framed by a line one pixel wide along the inside of its edge.
struct Frame {
    PixelRect rect;
    Rgb colour;
    friend bool operator==(const Frame&, const Frame&) = default;
};

/// How much of the tint's colour goes into what lies below it, of 255.
inline constexpr std::uint8_t kTintAlpha = 70;

/// The parts of one painting, to be drawn in this order. Coordinates far outside every canvas are drawn in to
/// where GDI can still follow them; what shows is the same.
struct CanvasPlan {
    PixelSize source;  ///< the part of the picture, from its top left, that is stretched over `target`
    PixelSize target;  ///< from the canvas's top left; without width or height no picture is drawn
    std::vector<Stroke> profile_lines;
    std::optional<Tint> tint;
    std::optional<Frame> frame;
    std::vector<Stroke> mark;
};

/// What a canvas that has a picture paints into a client area of the given size.
[[nodiscard]] CanvasPlan PlanCanvas(const CanvasState& state, PixelSize client);

}  // namespace pixora
