// Mouse and keyboard, as the system gets them from a person.
#pragma once

#include <windows.h>

#include <string_view>

#include "tests/ui/support/window.h"

namespace pixora::ui {

enum class Button { left, right, middle };

void MoveMouse(POINT screen);
void Press(Button button);
void Release(Button button);
/// Clicks at a screen point.
void ClickAt(POINT screen, Button button = Button::left);
/// Clicks in the middle of a window or control. Throws when that point stays covered by another window,
/// because a person could not click there either.
void Click(const Window& target, Button button = Button::left);
/// Clicks the close button in a window's caption.
void ClickCloseButton(const Window& window);
/// Turns the wheel over a screen point; positive away from the user, one notch is 120.
void TurnWheel(POINT screen, int delta);
/// Presses a button at one point and releases it at another, moving in `steps` steps.
void Drag(POINT from, POINT to, Button button, int steps = 4);

/// Presses and releases a key by its virtual key code.
void PressKey(WORD key);
void HoldKey(WORD key);
void ReleaseKey(WORD key);
/// Types any characters.
void TypeText(std::wstring_view text);
/// Waits until what is typed goes to this control, or to one of this window's controls.
void WaitForKeyboard(const Window& target);
/// Clicks into an edit control, marks all of its text and types over it.
void TypeInto(const Window& edit, std::wstring_view text);

/// Takes all fingers off: releases what a failed test may have left pressed.
void ReleaseAll();

}  // namespace pixora::ui
