#include "app/viewer_start.h"

#include <doctest/doctest.h>

using namespace pixora;

TEST_CASE("the first viewer stands in the corner of the work area") {
    CHECK(PlaceViewer({0, 0, 1920, 1040}, 0, 23) == ScreenPoint{0, 0});
    CHECK(PlaceViewer({-1280, 40, 0, 1024}, 0, 23) == ScreenPoint{-1280, 40});
}

TEST_CASE("each further viewer stands a caption's height to the right and below") {
    CHECK(PlaceViewer({0, 0, 1920, 1040}, 1, 23) == ScreenPoint{23, 23});
    CHECK(PlaceViewer({1920, 30, 3840, 1080}, 7, 46) == ScreenPoint{2242, 352});
}
