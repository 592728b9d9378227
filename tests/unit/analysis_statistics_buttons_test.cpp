// The buttons of the statistics view.
#include <doctest/doctest.h>

#include "analysis/statistics_buttons.h"

using namespace pixora;

namespace {

constexpr ButtonLook kOff{L"REGION ON", 0xE1E1E1, 0x000000, true, true};
constexpr ButtonLook kOn{L"REGION OFF", 0xCAF7BB, 0x000000, true, true};

constexpr ButtonLook Disabled(std::wstring_view caption) {
    return {caption, 0xCCCCCC, 0x838383, false, true};
}
constexpr ButtonLook Plain(std::wstring_view caption) {
    return {caption, 0xE1E1E1, 0x000000, true, true};
}
constexpr ButtonLook Chosen(std::wstring_view caption) {
    return {caption, 0xA8D3FF, 0x000000, true, true};
}

}  // namespace

TEST_CASE("without a region only REGION can be pressed") {
    const RegionButtons look = LookOfRegionButtons({});
    CHECK(look.region == kOff);
    CHECK(look.corner == Disabled(L"CORNER"));
    CHECK(look.move == Disabled(L"MOVE"));
    CHECK(look.coordinates == Disabled(L"H-V ON"));
}

TEST_CASE("a region that shows enables the buttons of the modes") {
    const RegionButtons look = LookOfRegionButtons({.region_on = true});
    CHECK(look.region == kOn);
    CHECK(look.corner == Plain(L"CORNER"));
    CHECK(look.move == Plain(L"MOVE"));
    CHECK(look.coordinates == Plain(L"H-V ON"));
}

TEST_CASE("the button of the mode that is on has a face of its own") {
    const RegionButtons corner = LookOfRegionButtons({.region_on = true, .corner = true});
    CHECK(corner.corner == Chosen(L"CORNER"));
    CHECK(corner.move == Plain(L"MOVE"));
    const RegionButtons move = LookOfRegionButtons({.region_on = true, .move = true});
    CHECK(move.corner == Plain(L"CORNER"));
    CHECK(move.move == Chosen(L"MOVE"));
}

TEST_CASE("the coordinates mode shows in its button's caption, and only while the region shows") {
    CHECK(LookOfRegionButtons({.region_on = true, .coordinates = true}).coordinates == Plain(L"H-V OFF"));
    CHECK(LookOfRegionButtons({.region_on = false, .coordinates = true}).coordinates == Disabled(L"H-V ON"));
}

TEST_CASE("a mode that is on shows nowhere while the region is hidden") {
    const RegionButtons look = LookOfRegionButtons({.corner = true, .move = true});
    CHECK(look.corner == Disabled(L"CORNER"));
    CHECK(look.move == Disabled(L"MOVE"));
}

TEST_CASE("the channel button has the channel's name and colour") {
    CHECK(LookOfChannelButton(true, 1) == ButtonLook{L"R", 0xCFCFFB, 0, true, true});
    CHECK(LookOfChannelButton(true, 2) == ButtonLook{L"G", 0xCAF7BB, 0, true, true});
    CHECK(LookOfChannelButton(true, 3) == ButtonLook{L"B", 0xFBD09B, 0, true, true});
    CHECK(LookOfChannelButton(true, 4) == ButtonLook{L"RGB", 0xE1E1E1, 0, true, true});
}

TEST_CASE("a grey image has no channel button") {
    CHECK(LookOfChannelButton(false, 0) == ButtonLook{L" ", 0xE1E1E1, 0, true, false});
}

TEST_CASE("a colour image's channel selector that names no channel becomes red") {
    for (const int channel : {-1, 0, 5, 99}) CHECK(ValidChannel(channel, true) == 1);
    for (const int channel : {1, 2, 3, 4}) CHECK(ValidChannel(channel, true) == channel);
    CHECK(ValidChannel(0, false) == 0);
}
