#include "viewer/click.h"

#include <doctest/doctest.h>

#include "support/viewer_states.h"
#include "viewer/line_edit.h"

using namespace pixora;
using test::NewViewer;
using test::RegionViewer;

namespace {

// Both profile views are open.
ViewerState WithProfiles(ViewerState state) {
    state.edit.view_open.h_profile = state.edit.view_open.v_profile = true;
    return state;
}

constexpr bool kPlay = true, kFixed = false;

}  // namespace

TEST_CASE("a click acts on the client row below the cursor and on no negative place") {
    CHECK(ClickPoint({10, 9}) == PixelPoint{10, 10});
    CHECK(ClickPoint({0, -1}) == PixelPoint{0, 0});
    CHECK(ClickPoint({-1, -2}) == PixelPoint{0, 0});
    CHECK(ClickPoint({-2147483647 - 1, -2147483647 - 1}) == PixelPoint{0, 0});
    CHECK(ClickPoint({2147483647, 2147483647}) == PixelPoint{2147483647, 2147483647});
}

TEST_CASE("a client coordinate becomes a line, which never wraps round") {
    CHECK(LineAt(19, 2.0) == 9);
    CHECK(LineAt(20, 2.0) == 10);
    CHECK(LineAt(3, 0.05) == 60);
    CHECK(LineAt(65535, 1.0) == 65535);
    CHECK(LineAt(65536, 1.0) == 65535);
    CHECK(LineAt(700, 0.01) == 65535);
    CHECK(LineAt(2147483647, 1e-9) == 65535);
    CHECK(LineAt(2147483647, 1e300) == 0);
}

TEST_CASE("at 100% a click at (10, 9) puts both lines on 10") {
    ViewerState state = WithProfiles(NewViewer(100, 100));
    CHECK_FALSE(ClickViewer(state, {.cursor = {10, 9}}, kPlay));
    CHECK(state.row == 10);
    CHECK(state.column == 10);
    CHECK(state.edit.clicked);
    CHECK(state.edit.redraw == ViewFlags{.h_profile = true, .v_profile = true});
}

TEST_CASE("Ctrl keeps the row and Shift keeps the column") {
    ViewerState ctrl = WithProfiles(NewViewer(100, 100));
    CHECK_FALSE(ClickViewer(ctrl, {.cursor = {10, 9}, .ctrl = true}, kPlay));
    CHECK(ctrl.row == 49);
    CHECK(ctrl.column == 10);
    CHECK(ctrl.edit.redraw == ViewFlags{.v_profile = true});
    ViewerState shift = WithProfiles(NewViewer(100, 100));
    CHECK_FALSE(ClickViewer(shift, {.cursor = {10, 9}, .shift = true}, kPlay));
    CHECK(shift.row == 10);
    CHECK(shift.column == 49);
    CHECK(shift.edit.redraw == ViewFlags{.h_profile = true});
    ViewerState both = WithProfiles(NewViewer(100, 100));
    CHECK_FALSE(ClickViewer(both, {.cursor = {10, 9}, .shift = true, .ctrl = true}, kPlay));
    CHECK(both.row == 49);
    CHECK(both.column == 49);
    CHECK(both.edit.redraw == ViewFlags{});
}

TEST_CASE("only the line of an open profile view moves") {
    ViewerState none = NewViewer(100, 100);
    CHECK_FALSE(ClickViewer(none, {.cursor = {10, 9}}, kPlay));
    CHECK(none.row == 49);
    CHECK(none.column == 49);
    CHECK(none.edit.redraw == ViewFlags{});
    ViewerState horizontal = NewViewer(100, 100);
    horizontal.edit.view_open.h_profile = true;
    CHECK_FALSE(ClickViewer(horizontal, {.cursor = {10, 9}}, kPlay));
    CHECK(horizontal.row == 10);
    CHECK(horizontal.column == 49);
    ViewerState vertical = NewViewer(100, 100);
    vertical.edit.view_open.v_profile = true;
    CHECK_FALSE(ClickViewer(vertical, {.cursor = {10, 9}}, kPlay));
    CHECK(vertical.row == 49);
    CHECK(vertical.column == 10);
}

TEST_CASE("the image limits the lines") {
    ViewerState state = WithProfiles(NewViewer(100, 80));
    CHECK_FALSE(ClickViewer(state, {.cursor = {500, 500}}, kPlay));
    CHECK(state.row == 79);
    CHECK(state.column == 99);
    CHECK_FALSE(ClickViewer(state, {.cursor = {-5, -5}}, kPlay));
    CHECK(state.row == 0);
    CHECK(state.column == 0);
}

TEST_CASE("a region that shows limits the lines") {
    ViewerState state = WithProfiles(RegionViewer(400, 400, {120, 100, 220, 200}));
    CHECK_FALSE(ClickViewer(state, {.cursor = {50, 50}}, kPlay));
    CHECK(state.row == 100);
    CHECK(state.column == 120);
    CHECK_FALSE(ClickViewer(state, {.cursor = {300, 300}}, kPlay));
    CHECK(state.row == 200);
    CHECK(state.column == 220);
    state.region_on = false;
    CHECK_FALSE(ClickViewer(state, {.cursor = {50, 50}}, kPlay));
    CHECK(state.row == 51);
    CHECK(state.column == 50);
}

TEST_CASE("a crossed or outlying region limits the lines to what a line can hold") {
    ViewerState crossed = WithProfiles(RegionViewer(400, 400, {0, 399, 399, 20}));
    CHECK_FALSE(ClickViewer(crossed, {.cursor = {50, 50}}, kPlay));
    CHECK(crossed.row == 20);
    ViewerState outside = WithProfiles(RegionViewer(400, 400, {-9, -9, -2, -2}));
    CHECK_FALSE(ClickViewer(outside, {.cursor = {50, 50}}, kPlay));
    CHECK(outside.row == 0);
    CHECK(outside.column == 0);
    ViewerState far = WithProfiles(RegionViewer(400, 400, {70000, 70000, 80000, 80000}));
    CHECK_FALSE(ClickViewer(far, {.cursor = {50, 50}}, kPlay));
    CHECK(far.row == 65535);
    CHECK(far.column == 65535);
}

TEST_CASE("a click on a line that is fixed warns and moves nothing") {
    ViewerState state = WithProfiles(NewViewer(100, 100));
    const std::optional<Warning> warning = ClickViewer(state, {.cursor = {10, 9}}, kFixed);
    REQUIRE(warning);
    CHECK(warning->title == L"Warning");
    CHECK(warning->text == L"   Line number is fixed\n  Click \"Play\" to update profile");
    CHECK(state.row == 49);
    CHECK(state.column == 49);
    CHECK(state.edit.redraw == ViewFlags{});
    ViewerState closed = NewViewer(100, 100);
    CHECK_FALSE(ClickViewer(closed, {.cursor = {10, 9}}, kFixed));
}

TEST_CASE("a fixed line does not keep the region from being edited") {
    ViewerState state = WithProfiles(RegionViewer(100, 100, {10, 10, 50, 50}));
    state.edit.corner = true;
    CHECK_FALSE(ClickViewer(state, {.cursor = {60, 70}}, kFixed));
    CHECK(state.region == Region{10, 10, 60, 71});
    CHECK(state.row == 49);
}

TEST_CASE("every click remembers the lines as they were") {
    ViewerState state = WithProfiles(NewViewer(100, 100));
    CHECK_FALSE(ClickViewer(state, {.cursor = {10, 19}}, kPlay));
    CHECK(state.saved_row == 49);
    CHECK(state.saved_column == 49);
    CHECK_FALSE(ClickViewer(state, {.cursor = {30, 39}}, kPlay));
    CHECK(state.saved_row == 20);
    CHECK(state.saved_column == 10);
}

TEST_CASE("with the coordinates mode alone a click changes nothing") {
    ViewerState state = WithProfiles(RegionViewer(100, 100, {10, 10, 50, 50}));
    state.edit.coordinates = true;
    CHECK_FALSE(ClickViewer(state, {.cursor = {30, 39}}, kPlay));
    CHECK(state.region == Region{10, 10, 50, 50});
    CHECK(state.row == 49);
    CHECK(state.column == 49);
    CHECK(state.edit.redraw == ViewFlags{});
    CHECK_FALSE(state.edit.redraw_canvas);
    CHECK(state.edit.clicked);
    CHECK_FALSE(ClickViewer(state, {.cursor = {30, 39}}, kFixed));
}

TEST_CASE("a line beyond the image goes back to the middle, one just past its end stays") {
    ViewerState state = NewViewer(100, 81);
    state.row = 81;
    state.column = 100;
    CHECK_FALSE(BringLinesBack(state));
    CHECK(state.row == 81);
    CHECK(state.column == 100);
    state.row = 82;
    CHECK(BringLinesBack(state));
    CHECK(state.row == 39);
    CHECK(state.column == 100);
    state.column = 101;
    CHECK(BringLinesBack(state));
    CHECK(state.column == 49);
    ViewerState smallest = NewViewer(1, 1);
    smallest.row = smallest.column = 65535;
    CHECK(BringLinesBack(smallest));
    CHECK(smallest.row == 0);
    CHECK(smallest.column == 0);
}
