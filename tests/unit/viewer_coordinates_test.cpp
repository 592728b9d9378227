#include "viewer/coordinates.h"

#include <doctest/doctest.h>

#include "support/viewer_states.h"
#include "viewer/edit_modes.h"
#include "viewer/undo.h"

using namespace pixora;
using test::RegionViewer;

namespace {

constexpr PixelSize kImage{100, 80};
constexpr Region kRegion{.left = 10, .top = 20, .right = 30, .bottom = 60};

CoordinateCheck Check(const CoordinateTexts& typed) {
    return CheckCoordinates(typed, kImage);
}

Warning Invalid(const wchar_t* text) {
    return {L"Error", text};
}

}  // namespace

TEST_CASE("the coordinates dialog is numbered like its viewer") {
    CHECK(CoordinatesCaption(0) == L" [1 ]  Region Coordinates");
    CHECK(CoordinatesCaption(7) == L" [8 ]  Region Coordinates");
    CHECK(CoordinatesCaption(std::nullopt) == L"Region Coordinates");
    CHECK(kCoordinatesEdit == L"EDIT");
    CHECK(kCoordinatesEnter == L"ENTER");
}

TEST_CASE("the entries show the region as it is stored") {
    CHECK(TextsOf(kRegion) == CoordinateTexts{L"10", L"20", L"30", L"60"});
    CHECK(TextsOf({-1, 79, 100, 5}) == CoordinateTexts{L"-1", L"79", L"100", L"5"});
}

TEST_CASE("coordinates inside the image and in order are accepted") {
    const CoordinateCheck check = Check({L"1", L"2", L"3", L"4"});
    CHECK(check.region == Region{1, 2, 3, 4});
    CHECK(check.warnings.empty());
    CHECK_FALSE(check.order);
    CHECK(Check({L"0", L"0", L"99", L"79"}).region == Region{0, 0, 99, 79});
    CHECK(Check({L"007", L"5", L"7", L"5"}).region == Region{7, 5, 7, 5});
}

TEST_CASE("each coordinate must lie in the image") {
    const CoordinateCheck top = Check({L"1", L"80", L"3", L"80"});
    CHECK(top.warnings ==
          std::vector{Invalid(L"Invalid value in \"top\""), Invalid(L"Invalid value in \"bottom\"")});
    CHECK_FALSE(top.region);
    CHECK(Check({L"1", L"2", L"3", L"80"}).warnings == std::vector{Invalid(L"Invalid value in \"bottom\"")});
    CHECK(Check({L"1", L"2", L"100", L"4"}).warnings == std::vector{Invalid(L"Invalid value in \"right\"")});
    CHECK(Check({L"-1", L"2", L"3", L"4"}).warnings == std::vector{Invalid(L"Invalid value in \"left\"")});
    CHECK(Check({L"99999999999999999999", L"2", L"3", L"4"}).warnings ==
          std::vector{Invalid(L"Invalid value in \"left\"")});
}

TEST_CASE("each coordinate must be digits alone") {
    for (const wchar_t* typed : {L"", L" ", L"12abc", L" 12", L"12 ", L"+12", L"1.5", L"abc", L"\xFF11"}) {
        CAPTURE(typed);
        const CoordinateCheck check = Check({typed, L"20", L"30", L"60"});
        CHECK(check.warnings == std::vector{Invalid(L"Invalid value in \"left\"")});
        CHECK_FALSE(check.region);
    }
}

TEST_CASE("all four entries are checked, top and bottom first") {
    const CoordinateCheck check = Check({L"a", L"b", L"c", L"d"});
    CHECK(check.warnings ==
          std::vector{Invalid(L"Invalid value in \"top\""), Invalid(L"Invalid value in \"bottom\""),
                      Invalid(L"Invalid value in \"left\""), Invalid(L"Invalid value in \"right\"")});
    CHECK_FALSE(check.order);  // all count as 0
    CHECK_FALSE(check.region);
}

TEST_CASE("crossed corners are refused, top and bottom first and alone") {
    const CoordinateCheck left = Check({L"10", L"2", L"5", L"4"});
    CHECK(left.warnings.empty());
    CHECK(left.order == Message{L"- Error", L"Left = 10 , Right = 5", L"Must be : Left <= Right", L""});
    CHECK_FALSE(left.region);
    const CoordinateCheck both = Check({L"30", L"20", L"5", L"10"});
    CHECK(both.order == Message{L"- Error", L"Top = 20 , Bottom = 10", L"Must be : Top <= Bottom", L""});
}

TEST_CASE("the order is checked also when entries are invalid, by what they convert to") {
    const CoordinateCheck check = Check({L"1", L"12abc", L"3", L"5"});
    CHECK(check.warnings == std::vector{Invalid(L"Invalid value in \"top\"")});
    CHECK(check.order == Message{L"- Error", L"Top = 12 , Bottom = 5", L"Must be : Top <= Bottom", L""});
    CHECK(Check({L"99999999999", L"1", L"3", L"5"}).order ==
          Message{L"- Error", L"Left = 2147483647 , Right = 3", L"Must be : Left <= Right", L""});
    CHECK(Check({L"1", L"1", L"3", L"-5"}).order ==
          Message{L"- Error", L"Top = 1 , Bottom = -5", L"Must be : Top <= Bottom", L""});
}

TEST_CASE("a single pixel is a region, a crossed one by a pixel is none") {
    CHECK(Check({L"7", L"8", L"7", L"8"}).region == Region{7, 8, 7, 8});
    CHECK_FALSE(Check({L"8", L"8", L"7", L"8"}).region);
    CHECK_FALSE(Check({L"7", L"9", L"7", L"8"}).region);
}

TEST_CASE("entered coordinates show without their last column and row") {
    CHECK(EnteredRectangle(kRegion, 2.0) == PixelRect{20, 40, 60, 120});
    CHECK(EnteredRectangle({3, 3, 3, 3}, 0.5) == PixelRect{1, 1, 1, 1});
    CHECK(EnteredRectangle({2147483647, 0, 2147483647, 2147483647}, 10.0) ==
          PixelRect{2147483647, 0, 2147483647, 2147483647});
}

TEST_CASE("accepted coordinates become the region, for canvas and views") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CoordinateEntry entry(state.region);
    entry.Apply(Check({L"1", L"2", L"3", L"4"}), state);
    CHECK(state.region == Region{1, 2, 3, 4});
    CHECK(state.canvas.region == PixelRect{1, 2, 3, 4});
    CHECK(state.edit.region_changed == kAllViews);
    CHECK(state.edit.redraw == kAllViews);
    CHECK(state.edit.redraw_canvas);
    CHECK_FALSE(entry.Follow(state.region));
}

TEST_CASE("the smaller frame stays until the next layout") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CoordinateEntry entry(state.region);
    entry.Apply(Check({L"1", L"2", L"3", L"4"}), state);
    CHECK(FollowRegion(state));
    CHECK_FALSE(FollowRegion(state));
    CHECK(state.undo_region == kRegion);
    CHECK(state.canvas.region == PixelRect{1, 2, 3, 4});
    UpdateCanvas(state);  // what a layout does
    CHECK(state.canvas.region == PixelRect{1, 2, 4, 5});
}

TEST_CASE("a refusal gives the region back that was there before") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CoordinateEntry entry(state.region);
    entry.Apply(Check({L"10", L"2", L"5", L"4"}), state);
    CHECK(state.region == kRegion);
    CHECK(state.canvas.region == PixelRect{10, 20, 30, 60});
    CHECK(state.edit.region_changed == kAllViews);
    entry.Apply(Check({L"1", L"2", L"3", L"4"}), state);
    entry.Apply(Check({L"x", L"2", L"3", L"4"}), state);
    CHECK(state.region == Region{1, 2, 3, 4});
}

TEST_CASE("a click while the messages show is not taken back by the refusal") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CoordinateEntry entry(state.region);
    const CoordinateCheck refused = Check({L"10", L"2", L"5", L"4"});
    state.region = {40, 41, 42, 43};
    entry.Apply(refused, state);
    CHECK(state.region == Region{40, 41, 42, 43});
}

TEST_CASE("entries are written anew only when the region has changed elsewhere") {
    CoordinateEntry entry(kRegion);
    CHECK_FALSE(entry.Follow(kRegion));
    const Region moved{11, 21, 31, 61};
    CHECK(entry.Follow(moved));
    CHECK_FALSE(entry.Follow(moved));
    CHECK(entry.Follow(kRegion));
}

TEST_CASE("a refusal after a change elsewhere keeps that change") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CoordinateEntry entry(state.region);
    state.region = {40, 41, 42, 43};
    CHECK(entry.Follow(state.region));
    entry.Apply(Check({L"", L"", L"", L""}), state);
    CHECK(state.region == Region{40, 41, 42, 43});
}

TEST_CASE("the dialog goes on while its mode is on, the region shows and the viewer stays") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    CHECK_FALSE(CoordinatesWanted(state));
    PressCoordinates(state);
    CHECK(CoordinatesWanted(state));
    state.closing = true;
    CHECK_FALSE(CoordinatesWanted(state));
    state.closing = false;
    PressRegion(state);
    CHECK_FALSE(CoordinatesWanted(state));
    CHECK_FALSE(state.edit.coordinates);
}

TEST_CASE("closing the dialog ends its mode and tells the statistics view") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.coordinates = true;
    CoordinatesOpened(state);
    CHECK(state.edit.coordinates_open);
    CoordinatesClosed(state);
    CHECK_FALSE(state.edit.coordinates_open);
    CHECK_FALSE(state.edit.coordinates);
    CHECK(state.edit.redraw == ViewFlags{.statistics = true});
}
