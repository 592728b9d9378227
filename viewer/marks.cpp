#include "viewer/marks.h"

#include <array>
#include <cstdint>
#include <span>

#include "base/number_text.h"
#include "viewer/canvas_plan.h"

namespace pixora {
namespace {

struct Candidate {
    MarkPosition position;
    std::int64_t x, y;
};

double SquaredDistance(const Candidate& candidate, PixelPoint from) {
    const double dx = static_cast<double>(candidate.x) - from.x;
    const double dy = static_cast<double>(candidate.y) - from.y;
    return dx * dx + dy * dy;
}

}  // namespace

int NearestMark(const Region& region, std::optional<PixelPoint> cursor, double ratio, bool with_centre) {
    if (!cursor) return kNoMark;
    const std::int64_t left = region.left, top = region.top, right = region.right, bottom = region.bottom;
    const std::array<Candidate, 5> all{{{MarkPosition::top_left, left, top},
                                        {MarkPosition::top_right, right, top},
                                        {MarkPosition::bottom_left, left, bottom},
                                        {MarkPosition::bottom_right, right, bottom},
                                        {MarkPosition::centre, (left + right) / 2, (top + bottom) / 2}}};
    const auto candidates = std::span(all).first(with_centre ? 5 : 4);
    // Deliberate: the cursor itself, without the shift by one row that left clicks have.
    const PixelPoint from{Truncate(cursor->x / ratio), Truncate(cursor->y / ratio)};
    const Candidate* best = &candidates.front();
    for (const Candidate& candidate : candidates)
        if (SquaredDistance(candidate, from) < SquaredDistance(*best, from)) best = &candidate;
    return static_cast<int>(best->position);
}

void PickMark(ViewerState& state, std::optional<PixelPoint> cursor) {
    EditState& edit = state.edit;
    if (!edit.corner && !edit.move) return;
    const int code = NearestMark(state.region, cursor, RatioOf(state), !edit.corner);
    (edit.corner ? state.corner_code : state.anchor_code) = code;
    state.canvas.mark_shown = code != kNoMark;
    state.canvas.mark = static_cast<MarkPosition>(code);
    edit.redraw_canvas = true;
    edit.redraw = kAllViews;
}

}  // namespace pixora
