// What the statistics view says about the pixel under the mouse.
#include <doctest/doctest.h>

#include "analysis/statistics_readout.h"

using namespace pixora;

namespace {

// An image of 100 x 50 pixels whose pixel under the mouse is red 65535, green 20, blue 3.
ReadoutFacts At(int x, int y, double ratio = 1.0) {
    ReadoutFacts facts;
    facts.mouse_x = x;
    facts.mouse_y = y;
    facts.ratio = ratio;
    facts.width = 100;
    facts.height = 50;
    facts.active = true;
    facts.rgb = {65535, 20, 3};
    return facts;
}

}  // namespace

TEST_CASE("the pixel under the mouse is the place divided by the ratio, without its fraction") {
    CHECK(FindPixelUnderMouse(10, 20, 1.0, 100, 50) == PixelUnderMouse{10, 20, true});
    CHECK(FindPixelUnderMouse(19, 20, 2.0, 100, 50) == PixelUnderMouse{9, 10, true});
    CHECK(FindPixelUnderMouse(19, 20, 0.5, 100, 50) == PixelUnderMouse{38, 40, true});
    CHECK(FindPixelUnderMouse(33, 44, 1.5, 100, 50) == PixelUnderMouse{22, 29, true});
}

TEST_CASE("one pixel left of and above the image still counts as its edge") {
    CHECK(FindPixelUnderMouse(-1, -1, 1.0, 100, 50) == PixelUnderMouse{0, 0, true});
    CHECK(FindPixelUnderMouse(-2, 10, 1.0, 100, 50) == PixelUnderMouse{0, 10, false});
    CHECK(FindPixelUnderMouse(10, -2, 1.0, 100, 50) == PixelUnderMouse{10, 0, false});
    // At twice the size the fraction of -1.5 goes, too.
    CHECK(FindPixelUnderMouse(-3, 0, 2.0, 100, 50) == PixelUnderMouse{0, 0, true});
    CHECK(FindPixelUnderMouse(-4, 0, 2.0, 100, 50) == PixelUnderMouse{0, 0, false});
    CHECK(FindPixelUnderMouse(-1, 0, 0.5, 100, 50) == PixelUnderMouse{0, 0, false});
}

TEST_CASE("the right and bottom edges count as the last column and row, one more is outside") {
    CHECK(FindPixelUnderMouse(99, 49, 1.0, 100, 50) == PixelUnderMouse{99, 49, true});
    CHECK(FindPixelUnderMouse(100, 50, 1.0, 100, 50) == PixelUnderMouse{99, 49, true});
    CHECK(FindPixelUnderMouse(101, 10, 1.0, 100, 50) == PixelUnderMouse{99, 10, false});
    CHECK(FindPixelUnderMouse(10, 51, 1.0, 100, 50) == PixelUnderMouse{10, 49, false});
    CHECK(FindPixelUnderMouse(201, 101, 2.0, 100, 50) == PixelUnderMouse{99, 49, true});
    CHECK(FindPixelUnderMouse(202, 0, 2.0, 100, 50) == PixelUnderMouse{99, 0, false});
}

TEST_CASE("far away and at tiny ratios nothing runs over") {
    CHECK(FindPixelUnderMouse(2147483647, -2147483647, 0.001, 100, 50) == PixelUnderMouse{99, 0, false});
}

TEST_CASE("a grey image shows its location and one value") {
    CHECK(LinesOf(At(12, 34)) == ReadoutLines{L"Location = (12, 34)", L"", L"Value = 65535", L""});
}

TEST_CASE("a colour image shows its location and red, green and blue") {
    ReadoutFacts facts = At(12, 34);
    facts.colour = true;
    CHECK(LinesOf(facts) ==
          ReadoutLines{L"Location = (12, 34)", L"Value R = 65535", L"Value G = 20", L"Value B = 3"});
}

TEST_CASE("the location at the edges is that of the edge's pixel") {
    CHECK(LinesOf(At(100, 50)).location == L"Location = (99, 49)");
    CHECK(LinesOf(At(-1, -1)).location == L"Location = (0, 0)");
}

TEST_CASE("outside the image there is no value") {
    const ReadoutLines outside{L"Location = Out of image", L"", L"Value = N/A", L""};
    CHECK(LinesOf(At(101, 10)) == outside);
    CHECK(LinesOf(At(10, -2)) == outside);
    ReadoutFacts facts = At(101, 10);
    facts.colour = true;
    CHECK(LinesOf(facts) == outside);
    facts.active = false;
    CHECK(LinesOf(facts) == outside);
}

TEST_CASE("samples that could not be read leave no location outside and no format inside") {
    ReadoutFacts facts = At(101, 10);
    facts.none = true;
    CHECK(LinesOf(facts) == ReadoutLines{L"Location = N/A", L"", L"Value = N/A", L""});
    facts.mouse_x = 10;
    CHECK(LinesOf(facts) == ReadoutLines{L"Format = N/A", L"", L"Value = N/A", L""});
}

TEST_CASE("the location has no blank while there is no readout") {
    ReadoutFacts facts = At(12, 34);
    facts.active = false;
    CHECK(LinesOf(facts) == ReadoutLines{L"Location = (12,34)", L"", L"Value = N/A", L""});
    facts.none = true;
    CHECK(LinesOf(facts) == ReadoutLines{L"Location = (12,34)", L"", L"Value = N/A", L""});
}
