#include "viewer/edit_modes.h"

#include <doctest/doctest.h>

#include <array>

#include "support/viewer_states.h"

using namespace pixora;
using test::NewViewer;
using test::RegionViewer;

namespace {

constexpr Region kRegion{.left = 10, .top = 20, .right = 30, .bottom = 60};

ViewerState Shown() {
    return RegionViewer(100, 80, kRegion);
}

// Corner, move and coordinates mode.
std::array<bool, 3> Modes(const ViewerState& state) {
    return {state.edit.corner, state.edit.move, state.edit.coordinates};
}
constexpr std::array kNone{false, false, false}, kCorner{true, false, false}, kMove{false, true, false},
    kCoordinates{false, false, true};

}  // namespace

TEST_CASE("a new viewer has no mode, no open view and no request") {
    const ViewerState state = NewViewer(100, 80);
    CHECK(Modes(state) == kNone);
    CHECK_FALSE(AnyEditMode(state));
    CHECK(state.edit.view_open == ViewFlags{});
    CHECK(state.edit.redraw == ViewFlags{});
    CHECK(state.edit.region_changed == ViewFlags{});
    CHECK_FALSE(state.edit.redraw_canvas);
    CHECK_FALSE(state.edit.clicked);
}

TEST_CASE("REGION shows the whole image first and afterwards what was selected") {
    ViewerState state = NewViewer(100, 80);
    PressRegion(state);
    CHECK(state.region_on);
    CHECK(state.region == Region{0, 0, 99, 79});
    state.region = kRegion;
    PressRegion(state);
    CHECK_FALSE(state.region_on);
    CHECK(state.region == kRegion);
    PressRegion(state);
    CHECK(state.region_on);
    CHECK(state.region == kRegion);
}

TEST_CASE("REGION ends every mode, hides the mark and redraws everything, both ways") {
    for (const bool on : {false, true}) {
        CAPTURE(on);
        ViewerState state = Shown();
        state.region_on = on;
        state.edit.move = state.edit.coordinates = true;
        state.canvas.mark_shown = true;
        PressRegion(state);
        CHECK(state.region_on == !on);
        CHECK(Modes(state) == kNone);
        CHECK_FALSE(state.canvas.mark_shown);
        CHECK(state.edit.redraw == kAllViews);
        CHECK(state.edit.redraw_canvas);
        CHECK_FALSE(state.edit.corner_off);
        CHECK_FALSE(state.edit.move_off);
    }
}

TEST_CASE("CORNER switches corner mode on and off") {
    ViewerState state = Shown();
    PressCorner(state);
    CHECK(Modes(state) == kCorner);
    CHECK(EditsRegion(state));
    CHECK(state.edit.redraw == kAllViews);
    state.canvas.mark_shown = true;
    PressCorner(state);
    CHECK(Modes(state) == kNone);
    CHECK_FALSE(state.canvas.mark_shown);
}

TEST_CASE("CORNER ends move mode with its mark and the coordinates mode") {
    ViewerState state = Shown();
    state.edit.move = state.edit.coordinates = true;
    state.canvas.mark_shown = true;
    PressCorner(state);
    CHECK(Modes(state) == kCorner);
    CHECK_FALSE(state.canvas.mark_shown);
}

TEST_CASE("CORNER that ends corner mode leaves the coordinates mode alone") {
    ViewerState state = Shown();
    state.edit.corner = state.edit.coordinates = true;
    PressCorner(state);
    CHECK(Modes(state) == kCoordinates);
}

TEST_CASE("MOVE switches move mode on and off and ends the others") {
    ViewerState state = Shown();
    state.edit.corner = state.edit.coordinates = true;
    state.canvas.mark_shown = true;
    PressMove(state);
    CHECK(Modes(state) == kMove);
    CHECK_FALSE(state.canvas.mark_shown);
    PressMove(state);
    CHECK(Modes(state) == kNone);
}

TEST_CASE("MOVE only redraws while the region does not show") {
    ViewerState state = Shown();
    state.region_on = false;
    state.edit.corner = true;
    PressMove(state);
    CHECK(Modes(state) == kCorner);
    CHECK(state.edit.redraw == kAllViews);
}

TEST_CASE("H-V switches the coordinates mode beside corner or move mode") {
    ViewerState state = Shown();
    state.edit.corner = true;
    PressCoordinates(state);
    CHECK(Modes(state) == std::array{true, false, true});
    PressCoordinates(state);
    CHECK(Modes(state) == kCorner);
    PressCorner(state);
    PressCoordinates(state);
    CHECK(Modes(state) == kCoordinates);
    CHECK(AnyEditMode(state));
    CHECK_FALSE(EditsRegion(state));
}

TEST_CASE("corner and anchor stay chosen when their mode ends") {
    ViewerState state = Shown();
    state.corner_code = 2;
    state.anchor_code = 3;
    state.edit.corner = true;
    ExitRegionChange(state);
    CHECK(state.corner_code == 2);
    CHECK(state.anchor_code == 3);
}

TEST_CASE("Exit Region Change ends every mode and tells the statistics view which") {
    ViewerState corner = Shown();
    corner.edit.corner = corner.edit.coordinates = true;
    corner.canvas.mark_shown = true;
    ExitRegionChange(corner);
    CHECK(Modes(corner) == kNone);
    CHECK(corner.edit.corner_off);
    CHECK_FALSE(corner.edit.move_off);
    CHECK_FALSE(corner.canvas.mark_shown);
    CHECK(corner.edit.redraw_canvas);
    CHECK(corner.region_on);
    ViewerState move = Shown();
    move.edit.move = true;
    ExitRegionChange(move);
    CHECK(Modes(move) == kNone);
    CHECK_FALSE(move.edit.corner_off);
    CHECK(move.edit.move_off);
    ViewerState none = Shown();
    ExitRegionChange(none);
    CHECK_FALSE(none.edit.corner_off);
    CHECK_FALSE(none.edit.move_off);
    CHECK_FALSE(none.edit.redraw_canvas);
}

TEST_CASE("new coordinates end corner and move mode while the readout is active") {
    ViewerState state = Shown();
    state.edit.move = true;
    state.edit.region_changed.statistics = true;
    CHECK(TakeRegionChange(state, true));
    CHECK(Modes(state) == kNone);
    CHECK(state.edit.move_off);
    CHECK(state.edit.redraw == kAllViews);
    CHECK_FALSE(state.edit.region_changed.statistics);
    CHECK_FALSE(TakeRegionChange(state, true));
}

TEST_CASE("new coordinates leave the modes alone while the readout is not active") {
    ViewerState state = Shown();
    state.edit.corner = true;
    state.edit.region_changed.statistics = true;
    CHECK(TakeRegionChange(state, false));
    CHECK(Modes(state) == kCorner);
    CHECK_FALSE(state.edit.corner_off);
    CHECK(state.edit.redraw == kAllViews);
}

TEST_CASE("without new coordinates the modes go on") {
    ViewerState state = Shown();
    state.edit.corner = true;
    CHECK_FALSE(TakeRegionChange(state, true));
    CHECK(Modes(state) == kCorner);
    CHECK(state.edit.redraw == ViewFlags{});
}

TEST_CASE("a closed statistics view leaves the region and no mode") {
    ViewerState state = Shown();
    state.edit.corner = state.edit.coordinates = state.edit.move_off = true;
    state.canvas.mark_shown = true;
    StatisticsClosed(state);
    CHECK(Modes(state) == kNone);
    CHECK(state.region_on);
    CHECK(state.region == kRegion);
    CHECK_FALSE(state.canvas.mark_shown);
    CHECK_FALSE(state.edit.corner_off);
    CHECK_FALSE(state.edit.move_off);
}

TEST_CASE("a viewer is to close when it does, or when its slot is asked to") {
    ViewerState state = NewViewer(100, 80);
    state.image.slot = 3;
    SharedFlags flags;
    CHECK_FALSE(ViewerIsToClose(state, flags));
    flags.close_viewer[2] = true;
    CHECK_FALSE(ViewerIsToClose(state, flags));
    flags.close_viewer[3] = true;
    CHECK(ViewerIsToClose(state, flags));
    flags.close_viewer[3] = false;
    state.closing = true;
    CHECK(ViewerIsToClose(state, flags));
}
