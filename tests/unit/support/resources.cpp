#include "tests/unit/support/resources.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/utf8.h"

namespace pixora {
namespace {

constexpr std::array kTextlessKinds = {"EDITTEXT", "COMBOBOX"};

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// What stands between the commas of a statement, quotes removed.
std::vector<std::string> Arguments(const std::string& text) {
    std::vector<std::string> arguments(1);
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (c == ',' && !quoted) arguments.emplace_back();
        if (c != ',' || quoted) arguments.back() += c;
    }
    for (std::string& argument : arguments) {
        argument = Trimmed(argument);
        if (argument.starts_with('"')) argument = argument.substr(1, argument.size() - 2);
    }
    return arguments;
}

/// The statement's first word and what follows it.
std::pair<std::string, std::string> Statement(const std::string& line) {
    const std::string text = Trimmed(line);
    const std::size_t end = std::min(text.find(' '), text.size());
    return {text.substr(0, end), Trimmed(text.substr(end))};
}

TemplateControl ReadControl(const std::string& line) {
    const auto [kind, rest] = Statement(line);
    std::vector<std::string> arguments = Arguments(rest);
    TemplateControl control;
    control.kind = kind;
    if (std::ranges::find(kTextlessKinds, kind) == kTextlessKinds.end()) {
        control.text = WideFromUtf8(arguments.front());
        arguments.erase(arguments.begin());
    }
    control.id = ResourceIds().at(arguments.at(0));
    arguments.erase(arguments.begin());
    if (kind == "CONTROL") {
        control.style = arguments.at(0) + " | " + arguments.at(1);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    control.x = std::stoi(arguments.at(0));
    control.y = std::stoi(arguments.at(1));
    control.width = std::stoi(arguments.at(2));
    control.height = std::stoi(arguments.at(3));
    if (arguments.size() > 4) control.style += arguments[4];
    return control;
}

/// The names of the resource scripts.
const std::vector<std::string>& Scripts() {
    static const std::vector<std::string> scripts = [] {
        std::vector<std::string> names;
        for (const auto& file :
             std::filesystem::directory_iterator(std::filesystem::path(PIXORA_SOURCE_FOLDER) / "resources"))
            if (file.path().extension() == ".rc") names.push_back(file.path().filename().string());
        std::ranges::sort(names);
        return names;
    }();
    return scripts;
}

/// The lines from the one that starts with `head` to the end of its block.
std::vector<std::string> Block(const std::string& head) {
    for (const std::string& script : Scripts()) {
        const std::vector<std::string> lines = ResourceLines(script.c_str());
        const auto first =
            std::ranges::find_if(lines, [&](const std::string& line) { return line.starts_with(head); });
        if (first != lines.end()) return {first, std::find(first, lines.end(), "END")};
    }
    FAIL("the scripts have no " << head);
    return {};
}

}  // namespace

std::vector<std::string> ResourceLines(const char* name) {
    std::ifstream file(std::filesystem::path(PIXORA_SOURCE_FOLDER) / "resources" / name);
    REQUIRE(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

const std::map<std::string, int>& ResourceIds() {
    static const std::map<std::string, int> ids = [] {
        std::map<std::string, int> read = {{"IDOK", 1}, {"IDCANCEL", 2}};
        for (const std::string& line : ResourceLines("resource.h")) {
            std::istringstream words(line);
            std::string define, name;
            int value = 0;
            if (words >> define >> name >> value && define == "#define") read[name] = value;
        }
        return read;
    }();
    return ids;
}

DialogTemplate ReadTemplate(const std::string& name) {
    DialogTemplate result;
    result.id = ResourceIds().at(name);
    const std::vector<std::string> lines = Block(name + " DIALOGEX ");
    const std::vector<std::string> place = Arguments(lines.front().substr(name.size() + 10));
    result.width = std::stoi(place.at(2));
    result.height = std::stoi(place.at(3));
    bool inside = false;
    for (const std::string& line : lines) {
        const auto [word, rest] = Statement(line);
        if (inside) result.controls.push_back(ReadControl(line));
        if (word == "BEGIN") inside = true;
        if (word == "STYLE" || word == "EXSTYLE") result.style += " " + rest;
        if (word == "CAPTION") result.caption = WideFromUtf8(Arguments(rest).front());
    }
    return result;
}

ControlTexts ControlsOf(const DialogTemplate& dialog) {
    ControlTexts texts;
    for (const TemplateControl& control : dialog.controls) texts.emplace_back(control.id, control.text);
    return texts;
}

const TemplateControl& FindControl(const DialogTemplate& dialog, int id) {
    const auto found = std::ranges::find(dialog.controls, id, &TemplateControl::id);
    REQUIRE(found != dialog.controls.end());
    return *found;
}

std::vector<std::string> TemplateNames() {
    std::vector<std::string> names;
    for (const std::string& script : Scripts())
        for (const std::string& line : ResourceLines(script.c_str()))
            if (const auto [name, rest] = Statement(line); rest.starts_with("DIALOGEX "))
                names.push_back(name);
    return names;
}

std::vector<MenuItem> ReadMenu(const std::string& name) {
    std::vector<MenuItem> items;
    int depth = -1;
    for (const std::string& line : Block(name + " MENU")) {
        const auto [word, rest] = Statement(line);
        if (word == "BEGIN") ++depth;
        if (word == "END") --depth;
        if (word != "POPUP" && word != "MENUITEM") continue;
        const std::vector<std::string> arguments = Arguments(rest);
        const bool separator = arguments.front() == "SEPARATOR";
        items.push_back({depth, arguments.size() > 1 ? ResourceIds().at(arguments[1]) : 0,
                         separator ? L"" : WideFromUtf8(arguments.front())});
    }
    return items;
}

}  // namespace pixora
