#include "viewer/region_edit.h"

#include <algorithm>
#include <limits>

#include "viewer/canvas_plan.h"
#include "viewer/click.h"

namespace pixora {
namespace {

// The rows or the columns of a region, wide enough that no sum of edges overflows. The length is the last
// minus the first, one less than the number of lines.
struct Span {
    std::int64_t first = 0, last = 0;
    [[nodiscard]] std::int64_t Length() const { return last - first; }
};

struct Spans {
    Span rows, columns;
};

std::int32_t Narrow(std::int64_t edge) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(std::max<std::int64_t>(edge, Limits::min()), Limits::max()));
}

Region RegionOf(const Spans& spans) {
    return {Narrow(spans.columns.first), Narrow(spans.rows.first), Narrow(spans.columns.last),
            Narrow(spans.rows.last)};
}

Span CentredOn(std::int64_t at, std::int64_t length, std::int64_t extent) {
    const std::int64_t half = length / 2;
    Span span{at - half, at + half};
    if (span.first < 0) span = {0, length};
    if (span.last > extent - 1) span = {extent - 1 - length, extent - 1};
    return span;
}

Span StartingAt(std::int64_t at, std::int64_t length, std::int64_t extent) {
    if (at + length > extent - 1) return {extent - 1 - length, extent - 1};
    return {at, at + length};
}

Span EndingAt(std::int64_t at, std::int64_t length) {
    if (at - length < 0) return {0, length};
    return {at - length, at};
}

// Deliberate: unlike the other anchors, the bottom left corner sends the top to the last row when the region
// would leave the image above, and to the right it goes to the column after the last one.
Span EndingAtOfBottomLeft(std::int64_t at, std::int64_t length, std::int64_t extent) {
    if (at - length < 0) return {extent - 1, length};
    return {at - length, at};
}

Span StartingAtOfBottomLeft(std::int64_t at, std::int64_t length, std::int64_t extent) {
    if (at + length > extent - 1) return {extent - length, extent};
    return {at, at + length};
}

Spans Anchored(const Spans& old, int anchor_code, ClickedPixel at, PixelSize image) {
    const std::int64_t height = old.rows.Length(), width = old.columns.Length();
    switch (static_cast<MarkPosition>(anchor_code)) {
        case MarkPosition::centre:
            return {CentredOn(at.row, height, image.height), CentredOn(at.column, width, image.width)};
        case MarkPosition::top_left:
            return {StartingAt(at.row, height, image.height), StartingAt(at.column, width, image.width)};
        case MarkPosition::top_right:
            return {StartingAt(at.row, height, image.height), EndingAt(at.column, width)};
        case MarkPosition::bottom_left:
            return {EndingAtOfBottomLeft(at.row, height, image.height),
                    StartingAtOfBottomLeft(at.column, width, image.width)};
        case MarkPosition::bottom_right:
            return {EndingAt(at.row, height), EndingAt(at.column, width)};
    }
    return old;
}

// One line more at the end, or at the start when the end is past the image already.
void Lengthen(Span& span, std::int64_t extent) {
    if (span.last < extent)
        ++span.last;
    else
        --span.first;
}

// Gives back the line that halving an odd length has lost.
void KeepSize(const Spans& old, PixelSize image, Spans& moved) {
    const std::int64_t columns_lost = old.columns.Length() - moved.columns.Length();
    const std::int64_t rows_lost = old.rows.Length() - moved.rows.Length();
    if (columns_lost > 0) Lengthen(moved.columns, image.width);
    if (columns_lost < 0) --moved.columns.last;
    // Deliberate: the bottom follows the width when that has grown.
    if (rows_lost > 0)
        Lengthen(moved.rows, image.height);
    else if (columns_lost < 0)
        --moved.rows.last;
}

}  // namespace

ClickedPixel PixelAt(PixelPoint point, double ratio, PixelSize image) {
    const auto within = [&](std::int32_t coordinate, std::int32_t extent) {
        return static_cast<std::uint16_t>(
            std::max(std::min<std::int32_t>(LineAt(coordinate, ratio), extent - 1), 0));
    };
    return {within(point.y, image.height), within(point.x, image.width)};
}

Region MoveCorner(const Region& region, int corner_code, ClickedPixel at) {
    const std::int32_t row = at.row, column = at.column;
    const bool above = row<region.bottom, below = row> region.top;
    const bool left = column<region.right, right = column> region.left;
    Region moved = region;
    switch (static_cast<MarkPosition>(corner_code)) {
        case MarkPosition::top_left:
            if (above && left) moved.top = row, moved.left = column;
            break;
        case MarkPosition::top_right:
            if (above && right) moved.top = row, moved.right = column;
            break;
        case MarkPosition::bottom_left:
            if (below && left) moved.bottom = row, moved.left = column;
            break;
        default:
            if (below && right) moved.bottom = row, moved.right = column;
            break;
    }
    return moved;
}

Region MoveRegion(const Region& region, int anchor_code, ClickedPixel at, PixelSize image) {
    const Spans old{{region.top, region.bottom}, {region.left, region.right}};
    Spans moved = Anchored(old, anchor_code, at, image);
    KeepSize(old, image, moved);
    return RegionOf(moved);
}

void ClickRegion(ViewerState& state, PixelPoint point) {
    EditState& edit = state.edit;
    const double ratio = RatioOf(state);
    const PixelSize image = ImageSizeOf(state);
    const ClickedPixel at = PixelAt(point, ratio, image);
    edit.clicked_row = at.row;
    edit.clicked_column = at.column;
    state.region = edit.corner ? MoveCorner(state.region, state.corner_code, at)
                               : MoveRegion(state.region, state.anchor_code, at, image);
    state.canvas.region = DisplayRectangle(state.region, ratio);
    edit.redraw_canvas = edit.redraw.h_profile = edit.redraw.v_profile = true;
}

}  // namespace pixora
