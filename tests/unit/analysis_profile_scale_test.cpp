#include "analysis/profile_scale.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

using Levels = std::vector<std::uint32_t>;

constexpr ProfileScale Scale(std::uint32_t bits, int width = 503, int height = 256) {
    return {.width = width, .height = height, .bits = bits};
}

}  // namespace

TEST_CASE("level 0 lies on the bottom edge and the largest level on the top edge") {
    for (const auto& [bits, max] :
         {std::pair{8u, 255u}, {10u, 1023u}, {12u, 4095u}, {14u, 16383u}, {16u, 65535u}}) {
        CAPTURE(bits);
        CHECK(RowOfLevel(Scale(bits), 0) == 255);
        CHECK(RowOfLevel(Scale(bits), (max + 1) / 2) == 127);
        CHECK(RowOfLevel(Scale(bits), max) == 0);
        CHECK(RowOfLevel(Scale(bits), max + 1) == -1);
    }
}

TEST_CASE("heights are truncated") {
    CHECK(RowOfLevel(Scale(8, 503, 100), 2) == 99);     // 0.78
    CHECK(RowOfLevel(Scale(8, 503, 100), 3) == 98);     // 1.17
    CHECK(RowOfLevel(Scale(8, 503, 100), 255) == 0);    // 99.6
    CHECK(RowOfLevel(Scale(12, 503, 300), 4000) == 7);  // 292.97
}

TEST_CASE("an unknown depth is scaled as 8 bits") {
    for (const std::uint32_t bits : {0u, 1u, 9u, 13u, 32u}) {
        CHECK(RowOfLevel(Scale(bits), 128) == 127);
        CHECK(GridLevels(bits) == Levels{32, 64, 96, 128, 160, 192, 224});
        CHECK(LabelLevels(bits) == std::array<std::uint32_t, 4>{255, 192, 128, 64});
        CHECK(LevelAt(Scale(bits), {0, -1}) == 255);
    }
}

TEST_CASE("a low level cursor is drawn on the bottom edge") {
    CHECK(RowOfCursor(Scale(8), 0) == 255);
    CHECK(RowOfCursor(Scale(8), 1) == 255);
    CHECK(RowOfCursor(Scale(8), 2) == 253);
    CHECK(RowOfCursor(Scale(16), 511) == 255);
    CHECK(RowOfCursor(Scale(16), 512) == 253);
    CHECK(RowOfCursor(Scale(16), 65535) == 0);
}

TEST_CASE("the grid of levels has its own spacing for each depth") {
    CHECK(GridLevels(8) == Levels{32, 64, 96, 128, 160, 192, 224});
    CHECK(GridLevels(10) == Levels{128, 256, 384, 512, 640, 768, 896});
    CHECK(GridLevels(12) == Levels{512, 1024, 1536, 2048, 2560, 3072, 3584});
    CHECK(GridLevels(14) == Levels{2048, 4096, 6144, 8192, 10240, 12288, 14336});
}

TEST_CASE("the grid of 16 bits stands at multiples of 8196") {
    CHECK(GridLevels(16) == Levels{8196, 16392, 24588, 32784, 40980, 49176, 57372});
}

TEST_CASE("the top label is the largest level, the others are quarters of the range") {
    using Labels = std::array<std::uint32_t, 4>;
    CHECK(LabelLevels(8) == Labels{255, 192, 128, 64});
    CHECK(LabelLevels(10) == Labels{1023, 768, 512, 256});
    CHECK(LabelLevels(12) == Labels{4095, 3072, 2048, 1024});
    CHECK(LabelLevels(14) == Labels{16383, 12288, 8192, 4096});
    CHECK(LabelLevels(16) == Labels{65535, 49152, 32768, 16384});
}

TEST_CASE("a label stands in the middle of its level") {
    CHECK(LabelTop(Scale(8), 255, 13) == -6);
    CHECK(LabelTop(Scale(8), 64, 13) == 185);
}

TEST_CASE("a click sets the level at its height") {
    // 254 pixels for 256 levels: 0.992 of a pixel each.
    CHECK(LevelAt(Scale(8), {10, 0}) == 255);
    CHECK(LevelAt(Scale(8), {10, 1}) == 254);
    CHECK(LevelAt(Scale(8), {10, 127}) == 127);
    CHECK(LevelAt(Scale(8), {10, 128}) == 126);
    CHECK(LevelAt(Scale(8), {10, 253}) == 1);
    CHECK(LevelAt(Scale(8), {10, 254}) == 0);
    CHECK(LevelAt(Scale(8), {10, 255}) == 0);
    CHECK(LevelAt(Scale(16), {10, 1}) == 65277);
    CHECK(LevelAt(Scale(12), {10, 127}) == 2047);
}

TEST_CASE("a click below the plot sets 0 and one above it the largest level") {
    CHECK(LevelAt(Scale(10), {10, 256}) == 0);
    CHECK(LevelAt(Scale(10), {10, 900}) == 0);
    CHECK(LevelAt(Scale(10), {10, -1}) == 1023);
    CHECK(LevelAt(Scale(10), {10, -900}) == 1023);
}

TEST_CASE("a click beside the plot sets nothing") {
    for (const int y : {-5, 100, 300}) {
        CHECK_FALSE(LevelAt(Scale(8), {-1, y}));
        CHECK_FALSE(LevelAt(Scale(8), {503, y}));
        CHECK(LevelAt(Scale(8), {0, y}));
        CHECK(LevelAt(Scale(8), {502, y}));
    }
}

TEST_CASE("a plot without an inside takes clicks without harm") {
    CHECK(LevelAt(Scale(8, 10, 2), {1, 1}) == 0);
    CHECK(LevelAt(Scale(8, 10, 0), {1, 0}) == 0);
    CHECK(UsableWidth(Scale(8, 2, 10)) == 0);
}

TEST_CASE("the positions are spread over the width but three pixels") {
    const ProfileScale scale = Scale(8);
    CHECK(UsableWidth(scale) == 500);
    CHECK(PositionStep(scale, 101) == 5.0);
    CHECK(PositionStep(scale, 1001) == 0.5);
    CHECK(PositionStep(scale, 1) == 1.0);
    CHECK(PositionStep(scale, 0) == 1.0);
    CHECK(ColumnOf(0, 5.0) == 1);
    CHECK(ColumnOf(100, 5.0) == 501);
    CHECK(ColumnOf(3, 0.5) == 2);
}

TEST_CASE("the positions are divided by 1, 2 or 5 times a power of ten") {
    CHECK(PositionsPerDivision(2) == 1);
    CHECK(PositionsPerDivision(10) == 1);
    CHECK(PositionsPerDivision(11) == 2);
    CHECK(PositionsPerDivision(20) == 2);
    CHECK(PositionsPerDivision(21) == 5);
    CHECK(PositionsPerDivision(50) == 5);
    CHECK(PositionsPerDivision(51) == 10);
    CHECK(PositionsPerDivision(640) == 100);
    CHECK(PositionsPerDivision(1000) == 100);
    CHECK(PositionsPerDivision(1001) == 200);
    CHECK(PositionsPerDivision(65535) == 10000);
}

TEST_CASE("one position has no division, and its text shows 1") {
    for (const int positions : {-3, 0, 1}) {
        CHECK(PositionsPerDivision(positions) == 1);
        CHECK(GridColumns(Scale(8), positions).empty());
    }
}

TEST_CASE("the vertical grid stands at whole divisions of the positions") {
    CHECK(GridColumns(Scale(8), 2).empty());
    CHECK(GridColumns(Scale(8), 4) == std::vector{166, 333});
    CHECK(GridColumns(Scale(8), 101) == std::vector{100, 200, 300, 400});
    // 640 positions: 100 of 639 are 78.2 pixels.
    CHECK(GridColumns(Scale(8), 640) == std::vector{78, 156, 234, 312, 391, 469});
}
