// The viewer's menus in the resources: which item has which id and text.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/utf8.h"
#include "viewer/display_sizes.h"

using namespace pixora;

namespace {

using Items = std::vector<std::pair<int, std::wstring>>;

std::vector<std::string> LinesOf(const char* name) {
    std::ifstream file(std::filesystem::path(PIXORA_SOURCE_FOLDER) / "resources" / name);
    REQUIRE(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

std::map<std::string, int> ResourceIds() {
    std::map<std::string, int> ids;
    for (const std::string& line : LinesOf("resource.h")) {
        std::istringstream words(line);
        std::string define, name;
        int value = 0;
        if (words >> define >> name >> value && define == "#define") ids[name] = value;
    }
    return ids;
}

/// The commands of a menu and of its popups, in the order in which they stand there; a popup counts as 0.
Items MenuItems(const std::string& menu) {
    const std::map<std::string, int> ids = ResourceIds();
    Items items;
    bool inside = false;
    for (const std::string& line : LinesOf("viewer.rc")) {
        if (line == menu + " MENU") inside = true;
        if (line == "END") inside = false;
        const std::size_t open = line.find('"'), close = line.rfind('"');
        if (!inside || open == std::string::npos) continue;
        const std::wstring text = WideFromUtf8(line.substr(open + 1, close - open - 1));
        const std::size_t id = line.find("IDM_");
        items.emplace_back(id == std::string::npos ? 0 : ids.at(line.substr(id)), text);
    }
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
