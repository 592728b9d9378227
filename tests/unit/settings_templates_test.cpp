// The dialog templates say the same as the tables: which radio button has which id and label, row by row.
#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

#include "settings/option_choices.h"
#include "tests/unit/support/resources.h"

using namespace pixora;

namespace {

using Buttons = std::vector<std::pair<int, std::wstring>>;

struct Contents {
    Buttons buttons;
    std::vector<std::wstring> rows;
};

/// What a template holds, in the order in which it stands there.
Contents ContentsOf(const DialogTemplate& dialog) {
    Contents result;
    for (const TemplateControl& control : dialog.controls) {
        const bool is_button = control.style.find("BS_RADIOBUTTON | WS_GROUP") != std::string::npos;
        if (is_button) result.buttons.emplace_back(control.id, control.text);
        if (!is_button) result.rows.push_back(control.text);
    }
    return result;
}

Contents ContentsOf(OptionDialog dialog) {
    Contents result;
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
        const Contents read = ContentsOf(ReadTemplate(name));
        const Contents table = ContentsOf(dialog);
        CHECK(read.buttons == table.buttons);
        CHECK(read.rows == table.rows);
    }
}
