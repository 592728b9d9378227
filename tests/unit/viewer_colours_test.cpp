#include <doctest/doctest.h>
#include "viewer/colours.h"

using namespace pixora;

TEST_CASE("colour settings are mapped to their index") {
    CHECK(ColorIndexOf(L"GREEN", ColorIndex::gray) == ColorIndex::green);
    CHECK(ColorIndexOf(L"RED", ColorIndex::green) == ColorIndex::red);
    CHECK(ColorIndexOf(L"GRAY", ColorIndex::green) == ColorIndex::gray);
    CHECK(MarkColorIndexOf(L"WHITE", ColorIndex::green) == ColorIndex::white);
    CHECK(MarkColorIndexOf(L"GREEN", ColorIndex::white) == ColorIndex::green);
    CHECK(MarkColorIndexOf(L"RED", ColorIndex::white) == ColorIndex::red);
    CHECK(MarkColorIndexOf(L"GRAY", ColorIndex::white) == ColorIndex::gray);
}

TEST_CASE("an unknown colour setting leaves the index as it was") {
    for (const auto* text : {L"", L"BLUE", L"green", L" RED", L"GRAY "})
        CHECK(ColorIndexOf(text, ColorIndex::gray) == ColorIndex::gray);
    CHECK(MarkColorIndexOf(L"BLUE", ColorIndex::white) == ColorIndex::white);
}

TEST_CASE("white is a colour of the mark only") {
    CHECK(ColorIndexOf(L"WHITE", ColorIndex::green) == ColorIndex::green);
}

TEST_CASE("only the border type LINE is a frame") {
    CHECK(BorderStyleOf(L"LINE") == BorderStyle::line);
    CHECK(BorderStyleOf(L"AREA") == BorderStyle::area);
    CHECK(BorderStyleOf(L"") == BorderStyle::area);
    CHECK(BorderStyleOf(L"line") == BorderStyle::area);
}

TEST_CASE("each use has its own green") {
    CHECK(LineColour(ColorIndex::green) == Rgb{0, 200, 0});
    CHECK(FrameColour(ColorIndex::green) == Rgb{53, 158, 66});
    CHECK(TintColour(ColorIndex::green) == Rgb{153, 255, 255});
    CHECK(MarkColour(ColorIndex::green) == Rgb{0, 200, 0});
}

TEST_CASE("red is the same everywhere") {
    CHECK(LineColour(ColorIndex::red) == Rgb{200, 0, 0});
    CHECK(FrameColour(ColorIndex::red) == Rgb{200, 0, 0});
    CHECK(TintColour(ColorIndex::red) == Rgb{200, 0, 0});
    CHECK(MarkColour(ColorIndex::red) == Rgb{200, 0, 0});
}

TEST_CASE("gray is lighter around a region than in lines and marks") {
    CHECK(LineColour(ColorIndex::gray) == Rgb{200, 200, 200});
    CHECK(FrameColour(ColorIndex::gray) == Rgb{240, 240, 240});
    CHECK(TintColour(ColorIndex::gray) == Rgb{240, 240, 240});
    CHECK(MarkColour(ColorIndex::gray) == Rgb{200, 200, 200});
}

TEST_CASE("white and every other index share one colour a use") {
    for (const auto index : {ColorIndex::white, ColorIndex{4}, ColorIndex{-1}, ColorIndex{1000}}) {
        CHECK(LineColour(index) == Rgb{200, 0, 0});
        CHECK(FrameColour(index) == Rgb{53, 158, 66});
        CHECK(TintColour(index) == Rgb{153, 255, 255});
        CHECK(MarkColour(index) == Rgb{250, 250, 250});
    }
}
