// The program's own message windows.
#pragma once

#include <doctest/doctest.h>

#include <string>

#include "tests/ui/support/program.h"

namespace pixora::ui {

/// An error box read off the screen: its caption and its lines in the order in which they were passed.
struct ErrorTexts {
    std::wstring caption, line1, line2, line3;
    friend bool operator==(const ErrorTexts&, const ErrorTexts&) = default;
};

/// Checks that a box is centred on the screen, 30 pixels above its middle.
void CheckCentred(const Window& box);

/// Waits for the error box with the error symbol.
[[nodiscard]] Window WaitForErrorBox(const Program& program);
[[nodiscard]] ErrorTexts ReadErrorBox(const Window& box);
/// Waits for an error box, checks its place and its symbol, presses OK and returns what it said.
[[nodiscard]] ErrorTexts DismissErrorBox(Program& program);

/// Whether one of the system's own boxes shows an icon.
[[nodiscard]] bool HasIcon(const Window& box);

/// The box about a number out of its range, read like an error box: its lines from top to bottom.
[[nodiscard]] Window WaitForRangeBox(const Program& program);
[[nodiscard]] ErrorTexts ReadRangeBox(const Window& box);

/// Waits for a question with OK and CANCEL.
[[nodiscard]] Window WaitForQuestion(const Program& program);
/// The line of a question that has only one.
[[nodiscard]] std::wstring QuestionText(const Window& question);
/// Presses one of its buttons with the mouse and waits until it is gone.
void Answer(const Window& question, bool yes);

/// Waits for a notice with an OK button and no symbol, that has only one line.
[[nodiscard]] Window WaitForNotice(const Program& program);
[[nodiscard]] std::wstring NoticeText(const Window& notice);

}  // namespace pixora::ui

namespace doctest {
template <>
struct StringMaker<pixora::ui::ErrorTexts> {
    static String convert(const pixora::ui::ErrorTexts& texts);
};
}  // namespace doctest
