#include "tests/ui/support/option_windows.h"

#include <algorithm>

#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"

namespace pixora::ui {
namespace {

/// A mark is black, or blue under the mouse; a circle without one is as good as white.
bool IsMark(std::uint32_t colour) {
    const auto red = colour >> 16 & 0xFF, green = colour >> 8 & 0xFF, blue = colour & 0xFF;
    return red + green + blue < 3 * 180;
}

const Choice& Find(const std::vector<Choice>& all, int id) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const Choice& c) { return c.id == id; });
    if (found == all.end()) throw UiError("there is no choice " + std::to_string(id));
    return *found;
}

}  // namespace

Window OpenOptions(Program& program, const OptionDialog& dialog) {
    program.Choose(dialog.menu_item);
    return WaitForOptions(program, dialog);
}

Window WaitForOptions(const Program& program, const OptionDialog& dialog) {
    const Window window = program.Running().WaitForWindow(
        Narrow(dialog.caption), [&](const Window& other) { return other.Text() == dialog.caption; });
    WaitForKeyboard(window);
    return window;
}

std::vector<Window> OpenDialogs(const Program& program, const OptionDialog& dialog) {
    std::vector<Window> windows = program.Running().Windows();
    std::erase_if(windows, [&](const Window& window) { return window.Text() != dialog.caption; });
    return windows;
}

void CloseOptions(const Window& dialog) {
    ClickCloseButton(dialog);
    WaitFor("the option dialog to close", [&] { return !dialog.Exists(); });
}

void ClickChoice(Program& program, const Window& dialog, const std::vector<Choice>& all, int id) {
    Click(dialog.Item(id));
    WaitFor("the button to be on", [&] { return dialog.Item(id).Checked(); });
    for (const Choice& choice : all) {
        if (choice.row != Find(all, id).row) continue;
        CAPTURE(choice.id);
        WaitFor("the row to show its choice",
                [&] { return ShowsMark(program, dialog.Item(choice.id)) == (choice.id == id); });
    }
}

std::vector<int> ButtonsOn(const Window& dialog, const std::vector<Choice>& all) {
    std::vector<int> on;
    for (const Choice& choice : all)
        if (dialog.Item(choice.id).Checked()) on.push_back(choice.id);
    return on;
}

bool ShowsMark(Program& program, const Window& button) {
    constexpr int kCircle = 13;
    const Picture picture = program.See(button);
    return IsMark(picture.At(kCircle / 2, picture.height / 2));
}

void ClickAll(Program& program, const Window& dialog, const std::vector<Choice>& all, SettingValues values,
              std::vector<int> on) {
    for (const Choice& choice : all) {
        CAPTURE(choice.id);
        CHECK(dialog.Item(choice.id).Text() == choice.text);
        ClickChoice(program, dialog, all, choice.id);
        for (const auto& [key, value] : choice.stored) values[key] = value;
        WaitForSettings(values);
        std::erase_if(on, [&](int id) { return Find(all, id).row == choice.row; });
        on.push_back(choice.id);
        std::vector<int> shown = ButtonsOn(dialog, all);
        std::sort(on.begin(), on.end());
        std::sort(shown.begin(), shown.end());
        CHECK(shown == on);
    }
}

void WaitForSettings(const SettingValues& values) {
    WaitFor("the settings file", [&] {
        return std::all_of(values.begin(), values.end(),
                           [](const auto& entry) { return StoredSetting(entry.first) == entry.second; });
    });
}

}  // namespace pixora::ui
