// The texts of the statistics view.
#include <doctest/doctest.h>

#include "analysis/statistics_texts.h"

using namespace pixora;

TEST_CASE("the statistics view's title begins with its viewer's number") {
    CHECK(StatisticsTitle(0) == L" [1 ]  Statistics View ");
    CHECK(StatisticsTitle(7) == L" [8 ]  Statistics View ");
    CHECK(StatisticsTitle(std::nullopt) == L"Statistics View ");
}

TEST_CASE("the statistics view tells the image's format, size and colours") {
    CHECK(StatisticsImageLines(L"Mono12", 640, 480, false) ==
          ImageLines{L"Format = Mono12", L"Image size = 640 x 480", L"Color = B/W"});
    CHECK(StatisticsImageLines(L"RGB16", 65535, 65535, true) ==
          ImageLines{L"Format = RGB16", L"Image size = 65535 x 65535", L"Color = RGB"});
}

TEST_CASE("the statistics view tells the display size in percent") {
    CHECK(DisplaySizeLine(L"12.3%") == L"Display Size = 12.3%");
}

TEST_CASE("a region that shows has its size and its statistics with three decimals") {
    const RegionFacts facts{{10, 20, 12, 29}, true, {3, 65535, 1234.5678, 0.0004}};
    CHECK(LinesOf(facts) == RegionLines{L"Region = 3 x 10", L"65535", L"3", L"1234.568", L"0.000"});
}

TEST_CASE("a hidden region has its size, but no statistics") {
    const RegionFacts facts{{0, 0, 639, 479}, false, {3, 200, 12.5, 4.5}};
    CHECK(LinesOf(facts) == RegionLines{L"Region = 640 x 480", L"N/A", L"N/A", L"N/A", L"N/A"});
}

TEST_CASE("a single pixel is a region of 1 x 1") {
    CHECK(LinesOf(RegionFacts{{5, 6, 5, 6}, true, {7, 7, 7.0, 0.0}}) ==
          RegionLines{L"Region = 1 x 1", L"7", L"7", L"7.000", L"0.000"});
}

TEST_CASE("a region that is crossed or far outside shows its size as it is") {
    CHECK(LinesOf(RegionFacts{{10, 10, 4, 9}, true, {}}) ==
          RegionLines{L"Region = -5 x 0", L"0", L"0", L"0.000", L"0.000"});
    CHECK(LinesOf(RegionFacts{{-2147483647, 0, 2147483647, 0}, true, {}}).size == L"Region = 4294967295 x 1");
}
