#include <doctest/doctest.h>
#include "viewer/layout.h"

using namespace pixora;
using Change = Visibility::Change;

TEST_CASE("the canvas is the image times the ratio, truncated") {
    CHECK(CanvasSize({640, 480}, 0.5) == PixelSize{320, 240});
    CHECK(CanvasSize({641, 3}, 0.5) == PixelSize{320, 1});
    CHECK(CanvasSize({19, 30}, 0.05) == PixelSize{0, 1});
}

TEST_CASE("the canvas is never larger than a window can be") {
    CHECK(CanvasSize({65535, 65535}, 10.0) == PixelSize{32767, 32767});
    CHECK(CanvasSize({1, 1}, 1e300) == PixelSize{32767, 32767});
}

TEST_CASE("a window is placed so that its client area takes the canvas") {
    CHECK(PlaceWindow({100, 50, 306, 175}, {6, 25}, {640, 480}, {}) == PixelRect{100, 50, 746, 555});
}

TEST_CASE("a window moves back by the anchor offset") {
    CHECK(PlaceWindow({100, 50, 306, 175}, {6, 25}, {200, 100}, {30, -20}) == PixelRect{70, 70, 276, 195});
}

TEST_CASE("an anchor of any size moves a window no farther than one can lie") {
    CHECK(PlaceWindow({100, 50, 306, 175}, {6, 25}, {200, 100}, {2147483647, -2147483647}) ==
          PixelRect{-32767, 32767, -32561, 32892});
}

TEST_CASE("a menu that the keyboard asks for opens at the cursor or in the middle") {
    constexpr PixelRect kClient{100, 50, 300, 151};
    CHECK(KeyboardMenuPoint({100, 50}, kClient) == PixelPoint{100, 50});
    CHECK(KeyboardMenuPoint({299, 150}, kClient) == PixelPoint{299, 150});
    for (const PixelPoint outside : {PixelPoint{99, 60}, {300, 60}, {150, 49}, {150, 151}})
        CHECK(KeyboardMenuPoint(outside, kClient) == PixelPoint{200, 100});
    CHECK(KeyboardMenuPoint({99, 60}, {100, 50, 100, 51}) == PixelPoint{100, 50});  // nothing shows
}

TEST_CASE("a viewer shows at its second tick") {
    Visibility visibility;
    CHECK(visibility.Tick(false) == Change::none);
    CHECK(visibility.Tick(false) == Change::show_first);
    CHECK(visibility.Tick(false) == Change::none);
}

TEST_CASE("a viewer follows the hide flag only when it changes") {
    Visibility visibility;
    static_cast<void>(visibility.Tick(false));
    static_cast<void>(visibility.Tick(false));
    CHECK(visibility.Tick(true) == Change::hide);
    CHECK(visibility.Tick(true) == Change::none);
    CHECK(visibility.Tick(false) == Change::show_again);
    CHECK(visibility.Tick(false) == Change::none);
}

TEST_CASE("a viewer created while all are hidden shows when they do") {
    Visibility visibility;
    CHECK(visibility.Tick(true) == Change::none);
    CHECK(visibility.Tick(true) == Change::none);
    CHECK(visibility.Tick(true) == Change::none);
    CHECK(visibility.Tick(false) == Change::show_first);
}

TEST_CASE("a flag that passes before the second tick shows nothing early") {
    Visibility visibility;
    CHECK(visibility.Tick(true) == Change::none);
    CHECK(visibility.Tick(false) == Change::show_first);
}

TEST_CASE("a dragged window moves by what the mouse moved since the last time") {
    WindowDrag drag;
    CHECK_FALSE(drag.Active());
    drag.Begin({500, 400});
    CHECK(drag.Active());
    const PixelRect moved = drag.Follow({10, 20, 110, 220}, {507, 390});
    CHECK(moved == PixelRect{17, 10, 117, 210});
    CHECK(drag.Follow(moved, {507, 390}) == moved);
    CHECK(drag.Follow(moved, {400, 395}) == PixelRect{-90, 15, 10, 215});
    drag.End();
    CHECK_FALSE(drag.Active());
}
