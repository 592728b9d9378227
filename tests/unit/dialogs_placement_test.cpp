#include "dialogs/placement.h"

#include <doctest/doctest.h>

using namespace pixora;

TEST_CASE("a centred dialog stands 30 pixels above the centre") {
    CHECK(PlaceCentred({1920, 1080}, {400, 200}) == ScreenPoint{760, 410});
    CHECK(PlaceCentred({1921, 1081}, {401, 201}) ==
          ScreenPoint{760, 410});  // each half is truncated by itself
    CHECK(PlaceCentred({1921, 1081}, {400, 200}) == ScreenPoint{760, 410});
    CHECK(PlaceCentred({1920, 1080}, {401, 201}) == ScreenPoint{760, 410});
}

TEST_CASE("a centred dialog never stands above the top, but may stand left of the screen") {
    CHECK(PlaceCentred({800, 600}, {400, 541}) == ScreenPoint{200, 0});
    CHECK(PlaceCentred({800, 600}, {1000, 2000}) == ScreenPoint{-100, 0});
}

TEST_CASE("the value dialog stands left of and above the point that was asked for") {
    CHECK(PlaceValueEntry({100, 200}) == ScreenPoint{60, 155});
    CHECK(PlaceValueEntry({0, 0}) == ScreenPoint{-40, -45});
}

TEST_CASE("a window is moved inside an area, top left first") {
    const ScreenRect area{100, 50, 1100, 850};
    CHECK(MoveInside({300, 300}, {200, 100}, area) == ScreenPoint{300, 300});
    CHECK(MoveInside({1000, 800}, {200, 100}, area) == ScreenPoint{900, 750});
    CHECK(MoveInside({0, 0}, {200, 100}, area) == ScreenPoint{100, 50});
    CHECK(MoveInside({500, 500}, {2000, 2000}, area) == ScreenPoint{100, 50});
}

TEST_CASE("a dialog stands to the right of its window, else to its left, else inside the work area") {
    const ScreenRect work{0, 0, 1920, 1040};
    CHECK(PlaceBeside({100, 40, 500, 200}, {300, 400}, work) == ScreenPoint{500, 40});
    CHECK(PlaceBeside({1500, 40, 1900, 200}, {300, 400}, work) == ScreenPoint{1200, 40});
    CHECK(PlaceBeside({100, 900, 500, 1040}, {300, 400}, work) == ScreenPoint{500, 640});
    CHECK(PlaceBeside({200, 40, 1800, 200}, {300, 400}, work) == ScreenPoint{1620, 40});
}
