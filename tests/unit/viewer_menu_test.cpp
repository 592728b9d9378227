// The viewer's menus in the resources: which item has which id and text.
#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/unit/support/resources.h"
#include "viewer/display_sizes.h"

using namespace pixora;

namespace {

struct FixedSize {
    int command;
    std::wstring label;
    std::wstring_view ratio;
};

const std::vector<FixedSize> kFixedSizes = {
    {32806, L"   5%", L"0.05"}, {32782, L"  10%", L"0.10"}, {32783, L"  20%", L"0.20"},
    {32784, L"  30%", L"0.30"}, {32785, L"  40%", L"0.40"}, {32786, L"  50%", L"0.50"},
    {32787, L"  60%", L"0.60"}, {32788, L"  70%", L"0.70"}, {32789, L"  80%", L"0.80"},
    {32790, L"  90%", L"0.90"}, {32791, L" 100%", L"1.00"}, {32792, L" 150%", L"1.50"},
    {32793, L" 200%", L"2.00"}, {32795, L" 500%", L"5.00"}, {32796, L"1000% ", L"10.00"},
};

using Items = std::vector<std::pair<int, std::wstring>>;

/// The commands of a menu and of its popups, in the order in which they stand there; a popup counts as 0.
Items MenuItems(const std::string& menu) {
    Items items;
    for (const MenuItem& item : ReadMenu(menu))
        if (!item.text.empty()) items.emplace_back(item.id, item.text);
    return items;
}

}  // namespace

TEST_CASE("the viewer's menu holds the views, the display sizes and the rest") {
    Items expected = {{0, L"Display"},           {32923, L"Statistics"},
                      {32917, L"H-Profile"},     {32918, L"V-Profie"},
                      {32919, L"Histogram"},     {32921, L"Image Info."},
                      {0, L"Display Size"},      {32805, L"Set Display Size by Value"},
                      {32812, L"Fit to Monitor"}};
    for (const FixedSize& size : kFixedSizes) expected.emplace_back(size.command, size.label);
    expected.insert(expected.end(), {{32802, L"Defined Size"},
                                     {32801, L"Save as Default Size"},
                                     {32810, L"Save Region Image"},
                                     {32794, L"Close"}});
    CHECK(MenuItems("IDR_DISPLAY_MENU") == expected);
}

TEST_CASE("each size of the menu sets its ratio") {
    REQUIRE(kDisplaySizes.size() == kFixedSizes.size());
    for (std::size_t i = 0; i < kFixedSizes.size(); ++i) {
        CAPTURE(kFixedSizes[i].command);
        CHECK(kDisplaySizes[i].command == kFixedSizes[i].command);
        CHECK(kDisplaySizes[i].label == kFixedSizes[i].label);
        CHECK(RatioOfCommand(kFixedSizes[i].command) == kFixedSizes[i].ratio);
    }
}

TEST_CASE("the quit menu holds undo and the end of region changes") {
    CHECK(MenuItems("IDR_QUIT_MENU") ==
          Items{{0, L"Quit Setting  (&Q)"}, {32800, L"Undo Last Change"}, {32799, L"Exit Region Change "}});
}
