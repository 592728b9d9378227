// The dialog templates say the same as the tables: which radio button has which id and label, row by row.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/utf8.h"
#include "settings/option_choices.h"

using namespace pixora;

namespace {

using Buttons = std::vector<std::pair<int, std::wstring>>;

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

struct Template {
    Buttons buttons;
    std::vector<std::wstring> rows;
};

/// The part of `line` between the first `from` and the next `to`; the rest of the line is left in it.
std::string Cut(std::string& line, const std::string& from, const std::string& to) {
    line.erase(0, line.find(from) + from.size());
    const std::size_t end = line.find(to);
    REQUIRE(end != std::string::npos);
    const std::string text = line.substr(0, end);
    line.erase(0, end + to.size());
    return text;
}

/// What the template of a dialog holds, in the order in which it stands there.
Template ReadTemplate(const std::string& dialog) {
    const std::map<std::string, int> ids = ResourceIds();
    Template result;
    bool inside = false;
    for (std::string line : LinesOf("options.rc")) {
        if (line.starts_with(dialog + " DIALOGEX")) inside = true;
        if (line == "END") inside = false;
        if (!inside || !line.starts_with("    ")) continue;
        const bool is_button = line.find("BS_RADIOBUTTON | WS_GROUP") != std::string::npos;
        const std::wstring text = WideFromUtf8(Cut(line, "\"", "\""));
        if (is_button) result.buttons.emplace_back(ids.at(Cut(line, ", ", ",")), text);
        if (!is_button) result.rows.push_back(text);
    }
    return result;
}

Template TableOf(OptionDialog dialog) {
    Template result;
    for (const OptionChoice& choice : OptionChoices(dialog))
        result.buttons.emplace_back(choice.control, choice.label);
    for (const std::wstring_view row : OptionRows(dialog)) result.rows.emplace_back(row);
    return result;
}

}  // namespace

TEST_CASE("the option dialogs' templates hold the buttons and row labels of the tables") {
    for (const auto& [name, dialog] : {std::pair{"IDD_VIEWER_OPTION", OptionDialog::viewer_option},
                                       std::pair{"IDD_REGION_STYLE", OptionDialog::region_style},
                                       std::pair{"IDD_MAIN_OPTION", OptionDialog::main_option}}) {
        CAPTURE(name);
        const Template read = ReadTemplate(name);
        const Template table = TableOf(dialog);
        CHECK(read.buttons == table.buttons);
        CHECK(read.rows == table.rows);
    }
}
