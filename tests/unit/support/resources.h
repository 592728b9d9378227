// The resource scripts in the source tree, read as text.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pixora {

/// The lines of a file in resources/.
[[nodiscard]] std::vector<std::string> ResourceLines(const char* name);
/// What resource.h defines.
[[nodiscard]] const std::map<std::string, int>& ResourceIds();

/// A control of a dialog template; places and sizes in dialog units.
struct TemplateControl {
    std::string kind;  ///< as the script has it: "LTEXT", "CONTROL", ...
    std::wstring text;
    int id = 0;
    int x = 0, y = 0, width = 0, height = 0;
    std::string style;
};
struct DialogTemplate {
    int id = 0;
    int width = 0, height = 0;
    std::wstring caption;
    std::string style;                      ///< of both kinds
    std::vector<TemplateControl> controls;  ///< in tab order
};
/// A template by the name of its id; the test fails when there is none.
[[nodiscard]] DialogTemplate ReadTemplate(const std::string& name);
/// The ids and texts of a template's controls, in tab order.
using ControlTexts = std::vector<std::pair<int, std::wstring>>;
[[nodiscard]] ControlTexts ControlsOf(const DialogTemplate& dialog);
/// The control with this id; the test fails when there is none.
[[nodiscard]] const TemplateControl& FindControl(const DialogTemplate& dialog, int id);
/// The names of all templates.
[[nodiscard]] std::vector<std::string> TemplateNames();

/// An item of a menu; a popup and a separator have the id 0, a separator no text. The items of a popup follow
/// it, one deeper.
struct MenuItem {
    int depth = 0, id = 0;
    std::wstring text;
    friend bool operator==(const MenuItem&, const MenuItem&) = default;
};
[[nodiscard]] std::vector<MenuItem> ReadMenu(const std::string& name);

}  // namespace pixora
