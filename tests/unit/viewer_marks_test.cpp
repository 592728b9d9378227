#include "viewer/marks.h"

#include <doctest/doctest.h>

#include "support/viewer_states.h"
#include "viewer/canvas_plan.h"

using namespace pixora;
using test::RegionViewer;

namespace {

constexpr Region kRegion{.left = 10, .top = 20, .right = 30, .bottom = 60};

int Nearest(PixelPoint cursor, bool with_centre) {
    return NearestMark(kRegion, cursor, 1.0, with_centre);
}

}  // namespace

TEST_CASE("the nearest corner is found, or the centre when it takes part") {
    CHECK(Nearest({11, 22}, true) == 1);
    CHECK(Nearest({35, 10}, true) == 2);
    CHECK(Nearest({0, 70}, true) == 3);
    CHECK(Nearest({29, 58}, true) == 4);
    CHECK(Nearest({21, 41}, true) == 0);
    CHECK(Nearest({21, 41}, false) == 4);
    CHECK(Nearest({19, 39}, false) == 1);
}

TEST_CASE("of equally near marks the first one wins") {
    CHECK(Nearest({20, 20}, true) == 1);   // between both upper corners
    CHECK(Nearest({30, 40}, false) == 2);  // between both right corners
    CHECK(Nearest({20, 60}, false) == 3);  // between both lower corners
    CHECK(Nearest({20, 40}, false) == 1);  // in the middle
    CHECK(NearestMark({5, 5, 5, 5}, PixelPoint{5, 5}, 1.0, true) == 1);
}

TEST_CASE("the cursor is not moved down for a mark, and lies in image pixels") {
    // The centre of rows 0 to 1 is row 0; the cursor's own row is as near to it as to the top edge.
    CHECK(NearestMark({0, 0, 0, 3}, PixelPoint{0, 1}, 1.0, false) == 1);
    CHECK(NearestMark({0, 0, 0, 3}, PixelPoint{0, 2}, 1.0, false) == 3);
    CHECK(NearestMark({0, 0, 0, 3}, PixelPoint{0, 3}, 2.0, false) == 1);
    CHECK(NearestMark({0, 0, 0, 3}, PixelPoint{0, 4}, 2.0, false) == 3);
}

TEST_CASE("the centre of a region is truncated") {
    // (10 + 13) / 2 = 11, so a click at 12 is as far from the centre as from the right edge.
    CHECK(NearestMark({10, 0, 13, 0}, PixelPoint{12, 0}, 1.0, true) == 2);
    CHECK(NearestMark({10, 0, 13, 0}, PixelPoint{11, 0}, 1.0, true) == 0);
}

TEST_CASE("no window, no mark; the largest regions overflow nothing") {
    CHECK(NearestMark(kRegion, std::nullopt, 1.0, true) == -1);
    constexpr std::int32_t kLow = -2147483647 - 1, kHigh = 2147483647;
    CHECK(NearestMark({kLow, kLow, kHigh, kHigh}, PixelPoint{0, 0}, 1.0, true) == 0);
    CHECK(NearestMark({kHigh, kHigh, kHigh, kHigh}, PixelPoint{kLow, kLow}, 0.001, true) == 1);
}

TEST_CASE("a right click in corner mode picks a corner and shows it") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.corner = true;
    PickMark(state, PixelPoint{20, 40});
    CHECK(state.corner_code == 1);
    CHECK(state.anchor_code == 0);
    CHECK(state.canvas.mark_shown);
    CHECK(state.canvas.mark == MarkPosition::top_left);
    CHECK(state.edit.redraw == kAllViews);
    CHECK(state.edit.redraw_canvas);
}

TEST_CASE("a right click in move mode picks the anchor, the centre too") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.move = true;
    PickMark(state, PixelPoint{29, 59});
    CHECK(state.anchor_code == 4);
    CHECK(state.canvas.mark == MarkPosition::bottom_right);
    PickMark(state, PixelPoint{20, 40});
    CHECK(state.anchor_code == 0);
    CHECK(state.corner_code == 0);
    CHECK(state.canvas.mark_shown);
    CHECK(state.canvas.mark == MarkPosition::centre);
}

TEST_CASE("the ratio of the viewer counts") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.ratio_text = L"0.50";
    state.edit.corner = true;
    PickMark(state, PixelPoint{16, 31});
    CHECK(state.corner_code == 4);
}

TEST_CASE("a right click after the window has gone hides the mark") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.corner = true;
    state.canvas.mark_shown = true;
    PickMark(state, std::nullopt);
    CHECK(state.corner_code == -1);
    CHECK_FALSE(state.canvas.mark_shown);
}

TEST_CASE("without corner or move mode a right click picks nothing") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.coordinates = true;
    PickMark(state, PixelPoint{10, 20});
    CHECK(state.corner_code == 0);
    CHECK_FALSE(state.canvas.mark_shown);
    CHECK(state.edit.redraw == ViewFlags{});
}
