// The analysis views of a viewer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/ui/support/viewer_hands.h"

namespace pixora::ui {

/// The titles of the views of viewer `number`.
[[nodiscard]] std::wstring StatisticsTitle(int number = 1);
[[nodiscard]] std::wstring ImageInfoTitle(int number = 1);

/// Whether the viewer's context menu offers the item with this text; else it is greyed.
[[nodiscard]] bool Offers(Program& program, const Window& viewer, std::wstring_view item);

/// Waits for the window of a viewer or view with this title.
[[nodiscard]] Window WaitForTitled(const Program& program, const std::wstring& title);
[[nodiscard]] Window OpenStatistics(const Program& program, const Window& viewer, int number = 1);
[[nodiscard]] Window OpenImageInfo(const Program& program, const Window& viewer, int number = 1);
/// Closes a window with the button in its caption.
void CloseWindow(const Window& window);

/// Clicks a button once it can be pressed.
void PressButton(const Window& window, int control);

/// The colour of a colour button's face.
[[nodiscard]] std::uint32_t Face(Program& program, const Window& button);
/// Waits until a button has a caption and a face, and can be pressed or not.
void WaitForButton(Program& program, const Window& window, int control, const std::wstring& caption,
                   std::uint32_t face, bool enabled = true);

/// Moves a window's top-left corner to a point of the screen.
void MoveTo(const Window& window, POINT corner);

}  // namespace pixora::ui
