#include "viewer/region_edit.h"

#include <doctest/doctest.h>

#include "support/viewer_states.h"
#include "viewer/click.h"

using namespace pixora;
using test::RegionViewer;

namespace {

constexpr Region kRegion{.left = 10, .top = 20, .right = 30, .bottom = 50};
constexpr PixelSize kImage{100, 80};
constexpr int kCentre = 0, kTopLeft = 1, kTopRight = 2, kBottomLeft = 3, kBottomRight = 4;

Region Moved(int anchor, ClickedPixel at) {
    return MoveRegion(kRegion, anchor, at, kImage);
}

}  // namespace

TEST_CASE("a clicked pixel lies inside the image") {
    CHECK(PixelAt({7, 9}, 2.0, kImage) == ClickedPixel{.row = 4, .column = 3});
    CHECK(PixelAt({500, 500}, 1.0, kImage) == ClickedPixel{.row = 79, .column = 99});
    CHECK(PixelAt({30000, 30000}, 0.01, {65535, 65535}) == ClickedPixel{.row = 65534, .column = 65534});
    CHECK(PixelAt({0, 0}, 1.0, {1, 1}) == ClickedPixel{.row = 0, .column = 0});
}

TEST_CASE("a click moves the chosen corner, the opposite one stays") {
    const ClickedPixel at{.row = 40, .column = 15};
    CHECK(MoveCorner(kRegion, kTopLeft, at) == Region{15, 40, 30, 50});
    CHECK(MoveCorner(kRegion, kTopRight, at) == Region{10, 40, 15, 50});
    CHECK(MoveCorner(kRegion, kBottomLeft, at) == Region{15, 20, 30, 40});
    CHECK(MoveCorner(kRegion, kBottomRight, at) == Region{10, 20, 15, 40});
}

TEST_CASE("any other corner code acts as bottom right") {
    for (const int code : {0, -1, 5, 1000})
        CHECK(MoveCorner(kRegion, code, {.row = 40, .column = 15}) == Region{10, 20, 15, 40});
}

TEST_CASE("a click on or past an opposite edge leaves the region alone") {
    for (const ClickedPixel at : {ClickedPixel{50, 15}, ClickedPixel{40, 30}, ClickedPixel{79, 15}})
        CHECK(MoveCorner(kRegion, kTopLeft, at) == kRegion);
    for (const ClickedPixel at : {ClickedPixel{50, 15}, ClickedPixel{40, 10}})
        CHECK(MoveCorner(kRegion, kTopRight, at) == kRegion);
    for (const ClickedPixel at : {ClickedPixel{20, 15}, ClickedPixel{40, 30}})
        CHECK(MoveCorner(kRegion, kBottomLeft, at) == kRegion);
    for (const ClickedPixel at : {ClickedPixel{20, 15}, ClickedPixel{40, 10}})
        CHECK(MoveCorner(kRegion, kBottomRight, at) == kRegion);
}

TEST_CASE("a region moves by each of its anchors and keeps its size") {
    const ClickedPixel at{.row = 40, .column = 60};
    CHECK(Moved(kCentre, at) == Region{50, 25, 70, 55});
    CHECK(MoveRegion(kRegion, kTopLeft, {.row = 30, .column = 60}, kImage) == Region{60, 30, 80, 60});
    CHECK(MoveRegion(kRegion, kTopRight, {.row = 30, .column = 60}, kImage) == Region{40, 30, 60, 60});
    CHECK(Moved(kBottomLeft, at) == Region{60, 10, 80, 40});
    CHECK(Moved(kBottomRight, at) == Region{40, 10, 60, 40});
}

TEST_CASE("an unknown anchor leaves the region alone") {
    for (const int code : {-1, 5, 1000}) CHECK(Moved(code, {.row = 40, .column = 60}) == kRegion);
}

TEST_CASE("a region that is moved over an edge ends at that edge") {
    CHECK(Moved(kCentre, {.row = 0, .column = 0}) == Region{0, 0, 20, 30});
    CHECK(Moved(kCentre, {.row = 79, .column = 99}) == Region{79, 49, 99, 79});
    CHECK(Moved(kTopLeft, {.row = 79, .column = 99}) == Region{79, 49, 99, 79});
    CHECK(Moved(kTopRight, {.row = 79, .column = 5}) == Region{0, 49, 20, 79});
    CHECK(Moved(kBottomRight, {.row = 5, .column = 5}) == Region{0, 0, 20, 30});
}

TEST_CASE("an odd size loses no line when it is centred") {
    const Region odd{10, 20, 31, 41};
    CHECK(MoveRegion(odd, kCentre, {.row = 40, .column = 60}, kImage) == Region{50, 30, 71, 51});
}

TEST_CASE("a centred region of odd size can end one line past the image") {
    const Region odd{10, 20, 31, 41};
    // The halves of 10 just fit; the line that halving lost goes to the far side.
    CHECK(MoveRegion(odd, kCentre, {.row = 69, .column = 89}, kImage) == Region{79, 59, 100, 80});
}

TEST_CASE("the bottom left corner above the top edge sends the top to the last row") {
    // The bottom is the old height, and one more because the height looks lost.
    CHECK(Moved(kBottomLeft, {.row = 29, .column = 60}) == Region{60, 79, 80, 31});
    CHECK(Moved(kBottomLeft, {.row = 30, .column = 60}) == Region{60, 0, 80, 30});
}

TEST_CASE("the bottom left corner at the right edge goes one column past the image") {
    CHECK(Moved(kBottomLeft, {.row = 40, .column = 79}) == Region{79, 10, 99, 40});
    CHECK(Moved(kBottomLeft, {.row = 40, .column = 80}) == Region{80, 10, 100, 40});
    CHECK(Moved(kBottomLeft, {.row = 40, .column = 99}) == Region{80, 10, 100, 40});
}

TEST_CASE("a region one column wider than the image can start before it") {
    CHECK(MoveRegion({0, 0, 100, 10}, kCentre, {.row = 40, .column = 99}, kImage) == Region{-1, 35, 99, 45});
}

TEST_CASE("the bottom is lowered by the width") {
    // A width below zero, halved toward zero, grows by one: right and bottom both lose one.
    CHECK(MoveRegion({13, 20, 10, 30}, kCentre, {.row = 40, .column = 60}, kImage) == Region{61, 35, 58, 44});
    // A lost row comes first.
    CHECK(MoveRegion({13, 20, 10, 31}, kCentre, {.row = 40, .column = 60}, kImage) == Region{61, 35, 58, 46});
}

TEST_CASE("a lost line is added before a region that is past the image already") {
    // Only a height above the image's rows brings the bottom there.
    CHECK(MoveRegion({0, 0, 10, 85}, kBottomLeft, {.row = 3, .column = 5}, kImage) == Region{5, 78, 15, 85});
}

TEST_CASE("edges at the ends of their range do not overflow") {
    constexpr std::int32_t kLow = -2147483647 - 1, kHigh = 2147483647;
    for (int anchor = -1; anchor <= 5; ++anchor)
        for (const Region& region : {Region{kLow, kLow, kHigh, kHigh}, Region{kHigh, kHigh, kLow, kLow}})
            for (const ClickedPixel at : {ClickedPixel{0, 0}, ClickedPixel{79, 99}}) {
                const Region part = ClippedTo(MoveRegion(region, anchor, at, kImage), 100, 80);
                CHECK((IsEmpty(part) || (part.left >= 0 && part.right < 100)));
            }
}

TEST_CASE("a click in corner mode changes region and canvas and asks for redrawing") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.ratio_text = L"2.00";
    state.edit.corner = true;
    state.corner_code = kTopLeft;
    CHECK_FALSE(ClickViewer(state, {.cursor = {31, 80}}, true));
    CHECK(state.edit.clicked_row == 40);
    CHECK(state.edit.clicked_column == 15);
    CHECK(state.region == Region{15, 40, 30, 50});
    CHECK(state.canvas.region == PixelRect{30, 80, 62, 102});
    CHECK(state.edit.redraw == ViewFlags{.h_profile = true, .v_profile = true});
    CHECK(state.edit.redraw_canvas);
    CHECK(state.edit.region_changed == ViewFlags{});
    CHECK(state.edit.corner);
}

TEST_CASE("a click that a corner cannot follow still counts as a click") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.corner = true;
    state.corner_code = kTopLeft;
    CHECK_FALSE(ClickViewer(state, {.cursor = {90, 70}}, true));
    CHECK(state.region == kRegion);
    CHECK(state.edit.clicked_row == 71);
    CHECK(state.edit.clicked_column == 90);
    CHECK(state.edit.redraw_canvas);
}

TEST_CASE("a click in move mode moves the region by its anchor; corner mode comes first") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.move = true;
    state.anchor_code = kTopLeft;
    CHECK_FALSE(ClickViewer(state, {.cursor = {60, 29}}, true));
    CHECK(state.region == Region{60, 30, 80, 60});
    CHECK(state.canvas.region == PixelRect{60, 30, 81, 61});
    state.edit.corner = true;
    CHECK_FALSE(ClickViewer(state, {.cursor = {90, 69}}, true));
    CHECK(state.region == Region{60, 30, 90, 70});
}

TEST_CASE("the coordinates mode does not keep corner mode from editing") {
    ViewerState state = RegionViewer(100, 80, kRegion);
    state.edit.corner = state.edit.coordinates = true;
    CHECK_FALSE(ClickViewer(state, {.cursor = {25, 44}}, true));
    CHECK(state.region == Region{10, 20, 25, 45});
}
