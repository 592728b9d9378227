#include "viewer/canvas_plan.h"

#include <algorithm>
#include <array>

#include "base/number_text.h"
#include "viewer/display_size.h"

namespace pixora {
namespace {

// Outside of every canvas (their sides are 16-bit) and inside of what GDI draws without overflow.
constexpr std::int64_t kFar = 1 << 20;

std::int32_t WithinReach(std::int64_t coordinate) {
    return static_cast<std::int32_t>(std::min(std::max(coordinate, -kFar), kFar));
}

PixelPoint PointWithinReach(std::int64_t x, std::int64_t y) {
    return {WithinReach(x), WithinReach(y)};
}

// Edges may be crossed; the rectangle covers the same pixels either way.
PixelRect RectWithinReach(const PixelRect& rect) {
    return {WithinReach(std::min(rect.left, rect.right)), WithinReach(std::min(rect.top, rect.bottom)),
            WithinReach(std::max(rect.left, rect.right)), WithinReach(std::max(rect.top, rect.bottom))};
}

bool HasArea(const PixelRect& rect) {
    return rect.left < rect.right && rect.top < rect.bottom;
}

// `client` without `hole`, as bands above, left of, right of and below it.
std::vector<PixelRect> Outside(const PixelRect& hole, PixelSize client) {
    const std::int32_t left = std::min(std::max(hole.left, 0), client.width);
    const std::int32_t right = std::min(std::max(hole.right, left), client.width);
    const std::int32_t top = std::min(std::max(hole.top, 0), client.height);
    const std::int32_t bottom = std::min(std::max(hole.bottom, top), client.height);
    const PixelRect all{0, 0, client.width, client.height};
    std::vector<PixelRect> areas;
    if (HasArea({left, top, right, bottom})) {
        areas = {{0, 0, client.width, top},
                 {0, top, left, bottom},
                 {right, top, client.width, bottom},
                 {0, bottom, client.width, client.height}};
    } else {
        areas = {all};
    }
    std::erase_if(areas, [](const PixelRect& area) { return !HasArea(area); });
    return areas;
}

void PlanPicture(const CanvasState& state, PixelSize shown, PixelSize client, CanvasPlan& plan) {
    const PixelSize target{std::min(shown.width, client.width), std::min(shown.height, client.height)};
    const PixelSize source{std::min(Truncate(target.width / state.ratio), state.image.width),
                           std::min(Truncate(target.height / state.ratio), state.image.height)};
    if (target.width <= 0 || target.height <= 0 || source.width <= 0 || source.height <= 0) return;
    plan.source = source;
    plan.target = target;
}

void PlanProfileLines(const CanvasState& state, PixelSize shown, CanvasPlan& plan) {
    const double z = state.ratio;
    const Rgb colour = LineColour(state.line_colour);
    // Deliberate: a row outside the image is drawn, a column outside it is not.
    if (state.row_shown) {
        const std::int32_t y = Truncate(state.row * z + z * 0.5);
        plan.profile_lines.push_back({PointWithinReach(0, y), PointWithinReach(shown.width, y), colour});
    }
    if (state.column_shown && state.column < state.image.width) {
        const std::int32_t x = Truncate(state.column * z + z * 0.5);
        plan.profile_lines.push_back({PointWithinReach(x, 0), PointWithinReach(x, shown.height), colour});
    }
}

void PlanRegion(const CanvasState& state, PixelSize client, CanvasPlan& plan) {
    if (!state.region_shown) return;
    const PixelRect region = RectWithinReach(state.region);
    if (state.border_style == BorderStyle::line)
        plan.frame = Frame{region, FrameColour(state.border_colour)};
    else
        plan.tint = Tint{Outside(region, client), TintColour(state.border_colour)};
}

// The point that a mark stands on and the directions of its arms.
struct MarkShape {
    std::int64_t x = 0, y = 0;
    std::vector<PixelPoint> arms;
};

MarkShape ShapeOf(MarkPosition position, const PixelRect& region) {
    constexpr PixelPoint kLeft{-1, 0}, kRight{1, 0}, kUp{0, -1}, kDown{0, 1};
    const std::int64_t left = region.left, top = region.top, right = region.right, bottom = region.bottom;
    switch (position) {
        case MarkPosition::centre:
            return {(left + right) / 2, (top + bottom) / 2, {kLeft, kRight, kUp, kDown}};
        case MarkPosition::top_left:
            return {left, top, {kRight, kDown}};
        case MarkPosition::top_right:
            return {right, top, {kLeft, kDown}};
        case MarkPosition::bottom_left:
            return {left, bottom, {kRight, kUp}};
        case MarkPosition::bottom_right:
            return {right, bottom, {kLeft, kUp}};
    }
    return {};
}

void PlanMark(const CanvasState& state, CanvasPlan& plan) {
    if (!state.mark_shown) return;
    const std::int64_t length = Truncate(state.ratio * 20.0);
    const MarkShape shape = ShapeOf(state.mark, state.region);
    const Rgb colour = MarkColour(state.mark_colour);
    for (const PixelPoint arm : shape.arms)
        plan.mark.push_back({PointWithinReach(shape.x, shape.y),
                             PointWithinReach(shape.x + arm.x * length, shape.y + arm.y * length), colour});
}

}  // namespace

CanvasPlan PlanCanvas(const CanvasState& state, PixelSize client) {
    CanvasPlan plan;
    if (!(state.ratio > 0)) return plan;
    const PixelSize shown = DisplayedSize(state.image, state.ratio);
    PlanPicture(state, shown, client, plan);
    PlanProfileLines(state, shown, plan);
    PlanRegion(state, client, plan);
    PlanMark(state, plan);
    return plan;
}

}  // namespace pixora
