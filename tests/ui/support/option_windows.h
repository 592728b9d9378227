// The option dialogs under a person's hands.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/ui/support/program.h"

namespace pixora::ui {

/// One of the three: its item in the menu "Option" and its caption.
struct OptionDialog {
    std::wstring_view menu_item;
    std::wstring caption;
};
inline const OptionDialog kViewerOption{L"Viewer Option  (&V)", L"Pixora - Viewer Option"};
inline const OptionDialog kRegionStyle{L"Line and Region Style (&S)", L"Pixora - Line and Region Style"};
inline const OptionDialog kMainOption{L"Main Dialog Option (&M)", L"Pixora - Main Dialog Option "};

/// What the program says when a click could not be stored completely.
inline constexpr wchar_t kSaveNotComplete[] = L"\"Save settings\" is not complete";

/// Opens a dialog by the command of the main menu and waits for it. An open one comes to the front.
Window OpenOptions(Program& program, const OptionDialog& dialog);
/// Waits until the dialog of this kind is there and has the keyboard.
Window WaitForOptions(const Program& program, const OptionDialog& dialog);
/// The open dialogs of this kind.
[[nodiscard]] std::vector<Window> OpenDialogs(const Program& program, const OptionDialog& dialog);
/// Closes a dialog with the button in its caption.
void CloseOptions(const Window& dialog);

/// A radio button and what a click on it stores.
struct Choice {
    int id;
    const wchar_t* text;
    int row;
    SettingValues stored;
};
/// Clicks a button with the mouse, waits until it is on and checks that all the rest of the row is off, on
/// the screen too.
void ClickChoice(Program& program, const Window& dialog, const std::vector<Choice>& all, int id);
/// The ids of the buttons that are on, in the order of `all`.
[[nodiscard]] std::vector<int> ButtonsOn(const Window& dialog, const std::vector<Choice>& all);
/// Whether a radio button has a mark in its circle on the screen.
[[nodiscard]] bool ShowsMark(Program& program, const Window& button);
/// Clicks every button in the order of `all`, and after each compares all buttons and the whole settings file
/// with what was clicked so far. `values` is what the file holds, `on` what is on at first.
void ClickAll(Program& program, const Window& dialog, const std::vector<Choice>& all, SettingValues values,
              std::vector<int> on);

/// Waits until the settings file holds exactly these values.
void WaitForSettings(const SettingValues& values);

}  // namespace pixora::ui
