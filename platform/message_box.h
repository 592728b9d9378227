// The system's own message box, as the program's plain notices use it.
#pragma once

#include <windows.h>

#include <string>

namespace pixora {

/// Shows `text` with an OK button and an empty title, above all windows. Disables `owner` (may be nullptr)
/// and counts as a modal operation of it.
void ShowPlainBox(HWND owner, const std::wstring& text);
/// The same with a title and an exclamation mark.
void ShowWarningBox(HWND owner, const std::wstring& title, const std::wstring& text);

}  // namespace pixora
