#include "viewer/undo.h"

#include <doctest/doctest.h>

#include "support/viewer_states.h"
#include "viewer/click.h"

using namespace pixora;
using test::NewViewer;
using test::RegionViewer;

namespace {

constexpr Region kFirst{.left = 10, .top = 20, .right = 30, .bottom = 60};
constexpr Region kSecond{.left = 12, .top = 22, .right = 32, .bottom = 62};
constexpr Region kThird{.left = 1, .top = 2, .right = 3, .bottom = 4};

}  // namespace

TEST_CASE("a changed region is noticed once and shown on the canvas") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    CHECK_FALSE(FollowRegion(state));
    CHECK_FALSE(state.edit.redraw_canvas);
    state.ratio_text = L"0.50";
    state.region = kSecond;
    CHECK(FollowRegion(state));
    CHECK(state.undo_region == kFirst);
    CHECK(state.last_seen_region == kSecond);
    CHECK(state.canvas.region == PixelRect{6, 11, 16, 31});
    CHECK(state.edit.redraw_canvas);
    CHECK_FALSE(FollowRegion(state));
}

TEST_CASE("a region that does not show is followed without repainting") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    state.region_on = false;
    state.region = kSecond;
    CHECK(FollowRegion(state));
    CHECK(state.undo_region == kFirst);
    CHECK_FALSE(state.edit.redraw_canvas);
}

TEST_CASE("changes between two looks count as one") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    state.region = kSecond;
    state.region = kThird;
    CHECK(FollowRegion(state));
    CHECK(state.undo_region == kFirst);
}

TEST_CASE("undo brings the last region and the lines before the last click back") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    state.edit.view_open.h_profile = state.edit.view_open.v_profile = true;
    CHECK_FALSE(ClickViewer(state, {.cursor = {15, 24}}, true));
    CHECK(state.row == 25);
    state.region = kSecond;
    CHECK(FollowRegion(state));
    state.edit.redraw = {};
    state.edit.redraw_canvas = false;
    UndoLastChange(state);
    CHECK(state.region == kFirst);
    CHECK(state.last_seen_region == kSecond);
    CHECK(state.row == 39);
    CHECK(state.column == 49);
    CHECK(state.edit.redraw == kAllViews);
    CHECK(state.edit.redraw_canvas);
}

TEST_CASE("undo is undone by the next one") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    state.region = kSecond;
    CHECK(FollowRegion(state));
    UndoLastChange(state);
    CHECK(FollowRegion(state));
    CHECK(state.region == kFirst);
    CHECK(state.canvas.region == PixelRect{10, 20, 31, 61});
    UndoLastChange(state);
    CHECK(FollowRegion(state));
    CHECK(state.region == kSecond);
    CHECK(state.canvas.region == PixelRect{12, 22, 33, 63});
}

TEST_CASE("undo before any change changes nothing") {
    ViewerState state = NewViewer(100, 80);
    UndoLastChange(state);
    CHECK(state.region == Region{0, 0, 99, 79});
    CHECK(state.last_seen_region == state.region);
    CHECK(state.row == 39);
    CHECK(state.column == 49);
    CHECK_FALSE(FollowRegion(state));
}

TEST_CASE("a rectangle that was given to the canvas stays there for that change only") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    state.region = kSecond;
    state.canvas.region = {1, 2, 3, 4};
    state.edit.rectangle_given = true;
    CHECK(FollowRegion(state));
    CHECK(state.canvas.region == PixelRect{1, 2, 3, 4});
    CHECK_FALSE(state.edit.rectangle_given);
    state.region = kThird;
    CHECK(FollowRegion(state));
    CHECK(state.canvas.region == PixelRect{1, 2, 4, 5});
}

TEST_CASE("undo right after coordinates were entered shows the whole region again") {
    ViewerState state = RegionViewer(100, 80, kFirst);
    state.region = kSecond;
    CHECK(FollowRegion(state));
    state.region = kThird;
    state.edit.rectangle_given = true;
    UndoLastChange(state);
    CHECK(FollowRegion(state));
    CHECK(state.region == kFirst);
    CHECK(state.canvas.region == PixelRect{10, 20, 31, 61});
}
