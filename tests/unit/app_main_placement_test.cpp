#include "app/main_placement.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

constexpr ScreenSize kScreen{1920, 1080};
constexpr ScreenSize kWindow{420, 180};

bool Everywhere(ScreenPoint) {
    return true;
}
bool Nowhere(ScreenPoint) {
    return false;
}

Settings At(const wchar_t* position, const wchar_t* x = L"100", const wchar_t* y = L"200") {
    Settings settings;
    settings.MAIN_POS = position;
    settings.MAIN_POS_X = x;
    settings.MAIN_POS_Y = y;
    return settings;
}

}  // namespace

TEST_CASE("the main window starts at the top left, 3% of the free way across and down") {
    CHECK(PlaceMainWindow(At(L"TL"), kScreen, kWindow, Everywhere) == ScreenPoint{45, 27});
    // 1501 * 3 / 100 and 901 * 3 / 100 are truncated.
    CHECK(PlaceMainWindow(At(L"TL"), {1921, 1081}, kWindow, Everywhere) == ScreenPoint{45, 27});
}

TEST_CASE("the main window starts at the top right, 98% across") {
    CHECK(PlaceMainWindow(At(L"TR"), kScreen, kWindow, Everywhere) == ScreenPoint{1470, 27});
}

TEST_CASE("the main window starts where it was last, if that is on a monitor") {
    CHECK(PlaceMainWindow(At(L"LAST", L"-1280", L"35"), kScreen, kWindow, Everywhere) ==
          ScreenPoint{-1280, 35});
    CHECK(PlaceMainWindow(At(L"LAST", L"5000", L"35"), kScreen, kWindow, Nowhere) == ScreenPoint{45, 27});
    const OnMonitor only_there = [](ScreenPoint at) { return at == ScreenPoint{7, 8}; };
    CHECK(PlaceMainWindow(At(L"LAST", L"7", L"8"), kScreen, kWindow, only_there) == ScreenPoint{7, 8});
    CHECK(PlaceMainWindow(At(L"LAST", L"8", L"7"), kScreen, kWindow, only_there) == ScreenPoint{45, 27});
}

TEST_CASE("a last position that is no number counts as 0") {
    CHECK(PlaceMainWindow(At(L"LAST", L"abc", L""), kScreen, kWindow, Everywhere) == ScreenPoint{0, 0});
    CHECK(PlaceMainWindow(At(L"LAST", L"99999999999", L"0"), kScreen, kWindow, Everywhere) ==
          ScreenPoint{2147483647, 0});
}

TEST_CASE("any other start position is the top left") {
    for (const wchar_t* position : {L"", L"last", L"BR", L"TL "})
        CHECK(PlaceMainWindow(At(position), kScreen, kWindow, Everywhere) == ScreenPoint{45, 27});
}

TEST_CASE("a window larger than the screen starts left of it") {
    CHECK(PlaceMainWindow(At(L"TL"), {320, 200}, {420, 250}, Everywhere) == ScreenPoint{-3, -1});
    CHECK(PlaceMainWindow(At(L"TR"), {320, 200}, {420, 250}, Everywhere) == ScreenPoint{-98, -1});
}
