#include "viewer/edit_tick.h"

#include <doctest/doctest.h>

#include "support/viewer_states.h"
#include "viewer/click.h"
#include "viewer/coordinates.h"
#include "viewer/edit_modes.h"

using namespace pixora;
using test::NewViewer;
using test::RegionViewer;

namespace {

constexpr Region kRegion{.left = 10, .top = 20, .right = 30, .bottom = 60};

}  // namespace

TEST_CASE("a tick with nothing new paints nothing") {
    ViewerState state = NewViewer(100, 80);
    CHECK_FALSE(FollowEdits(state));
}

TEST_CASE("the tick after a click shows the lines where they are now, once") {
    ViewerState state = NewViewer(100, 80);
    state.edit.view_open.h_profile = state.edit.view_open.v_profile = true;
    CHECK_FALSE(ClickViewer(state, {.cursor = {10, 19}}, true));
    CHECK(state.canvas.row == 39);
    CHECK(FollowEdits(state));
    CHECK(state.canvas.row == 20);
    CHECK(state.canvas.column == 10);
    CHECK_FALSE(FollowEdits(state));
}

TEST_CASE("the tick after REGION shows or hides the region") {
    ViewerState state = NewViewer(100, 80);
    PressRegion(state);
    CHECK(FollowEdits(state));
    CHECK(state.canvas.region_shown);
    PressRegion(state);
    CHECK(FollowEdits(state));
    CHECK_FALSE(state.canvas.region_shown);
}

TEST_CASE("a region changed by anybody shows at the next tick and can be undone") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.region = {1, 2, 3, 4};
    CHECK(FollowEdits(state));
    CHECK(state.canvas.region == PixelRect{1, 2, 4, 5});
    CHECK(state.undo_region == kRegion);
    CHECK_FALSE(FollowEdits(state));
}

TEST_CASE("ticks leave the smaller frame of entered coordinates alone") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CoordinateEntry entry(state.region);
    entry.Apply(CheckCoordinates({L"1", L"2", L"3", L"4"}, {100, 80}), state);
    CHECK(FollowEdits(state));
    CHECK_FALSE(FollowEdits(state));
    CHECK(state.canvas.region == PixelRect{1, 2, 3, 4});
}

TEST_CASE("a line outside the image is back at the next tick, for the views too") {
    ViewerState state = NewViewer(100, 80);
    state.row = 81;
    CHECK(FollowEdits(state));
    CHECK(state.row == 39);
    CHECK(state.canvas.row == 39);
    CHECK(state.edit.redraw == kAllViews);
    state.row = 80;
    CHECK_FALSE(FollowEdits(state));
    CHECK(state.row == 80);
}
