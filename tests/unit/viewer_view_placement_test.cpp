#include "viewer/view_placement.h"

#include <doctest/doctest.h>

#include <vector>

using namespace pixora;

namespace {

constexpr PixelRect kWork{0, 0, 1920, 1040};

PixelPoint Place(const PixelRect& viewer, int number, PixelSize size) {
    return PlaceView({viewer, kWork, number, 23}, size);
}

}  // namespace

TEST_CASE("the first view stands beside its viewer, the others a caption further each") {
    constexpr PixelRect viewer{100, 50, 500, 400};
    CHECK(Place(viewer, 0, {300, 200}) == PixelPoint{500, 50});
    CHECK(Place(viewer, 1, {300, 200}) == PixelPoint{523, 73});
    CHECK(Place(viewer, 4, {300, 200}) == PixelPoint{592, 142});
}

TEST_CASE("views without room to the right of their viewer stand to its left") {
    constexpr PixelRect viewer{1500, 50, 1900, 400};
    CHECK(Place(viewer, 0, {300, 200}) == PixelPoint{1200, 50});
    CHECK(Place(viewer, 2, {300, 200}) == PixelPoint{1246, 96});
}

TEST_CASE("where the work area ends the steps lead back") {
    constexpr PixelRect viewer{100, 800, 1620, 1030};
    CHECK(Place(viewer, 0, {300, 200}) == PixelPoint{1620, 800});
    CHECK(Place(viewer, 1, {300, 200}) == PixelPoint{1597, 823});
    CHECK(Place(viewer, 2, {300, 200}) == PixelPoint{1574, 754});
}

TEST_CASE("a view lies wholly inside the work area, and no two in one place") {
    constexpr PixelRect work{-1280, 20, 0, 1020};
    for (const PixelRect& viewer :
         {PixelRect{-1280, 20, 0, 1020}, PixelRect{-1300, -10, 50, 1100},
          PixelRect{-5000, -5000, -4900, -4900}, PixelRect{3000, 900, 3100, 1000}}) {
        std::vector<PixelPoint> taken;
        for (int number = 0; number < 5; ++number) {
            const PixelPoint corner = PlaceView({viewer, work, number, 23}, {520, 380});
            CHECK(corner.x >= -1280);
            CHECK(corner.y >= 20);
            CHECK(corner.x + 520 <= 0);
            CHECK(corner.y + 380 <= 1020);
            for (const PixelPoint& other : taken) CHECK_FALSE(other == corner);
            taken.push_back(corner);
        }
    }
}

TEST_CASE("a view larger than the work area starts at the area's corner") {
    CHECK(PlaceView({{10, 10, 90, 90}, {0, 0, 200, 150}, 3, 23}, {300, 400}) == PixelPoint{0, 0});
}
