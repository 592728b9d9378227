// The viewer's menus in the resources: which item has which id and text.
#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/unit/support/resources.h"
#include "viewer/display_sizes.h"

using namespace pixora;

namespace {

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
    for (const DisplaySize& size : kDisplaySizes) expected.emplace_back(size.command, size.label);
    expected.insert(expected.end(), {{32802, L"Defined Size"},
                                     {32801, L"Save as Default Size"},
                                     {32810, L"Save Region Image"},
                                     {32794, L"Close"}});
    CHECK(MenuItems("IDR_DISPLAY_MENU") == expected);
}

TEST_CASE("the quit menu holds undo and the end of region changes") {
    CHECK(MenuItems("IDR_QUIT_MENU") ==
          Items{{0, L"Quit Setting  (&Q)"}, {32800, L"Undo Last Change"}, {32799, L"Exit Region Change "}});
}
