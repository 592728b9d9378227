#include "image/region.h"

#include <doctest/doctest.h>

#include <limits>

using namespace pixora;

TEST_CASE("the region of a whole image has its last pixel inside") {
    CHECK(WholeImage(640, 480) == Region{0, 0, 639, 479});
    CHECK(WholeImage(1, 1) == Region{0, 0, 0, 0});
}

TEST_CASE("a region is clipped to its image") {
    CHECK(ClippedTo({10, 20, 30, 40}, 100, 100) == Region{10, 20, 30, 40});
    CHECK(ClippedTo({-5, -6, 30, 40}, 20, 100) == Region{0, 0, 19, 40});
    CHECK(ClippedTo({0, 0, 100, 100}, 100, 100) == Region{0, 0, 99, 99});
}

TEST_CASE("a region outside its image or with crossed edges holds no pixel") {
    CHECK(IsEmpty(ClippedTo({100, 0, 120, 10}, 100, 100)));
    CHECK(IsEmpty(ClippedTo({0, -10, 10, -1}, 100, 100)));
    CHECK(IsEmpty(ClippedTo({20, 20, 10, 30}, 100, 100)));
    CHECK(IsEmpty(ClippedTo({20, 99, 30, 50}, 100, 100)));
    constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
    CHECK(IsEmpty(ClippedTo({kMost, kMost, kLeast, kLeast}, 100, 100)));
    CHECK_FALSE(IsEmpty(ClippedTo({kLeast, kLeast, kMost, kMost}, 100, 100)));
    CHECK_FALSE(IsEmpty({5, 5, 5, 5}));
}
