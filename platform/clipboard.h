// The clipboard.
#pragma once

#include <windows.h>

#include <string>

namespace pixora {

/// Replaces what the clipboard holds by `text`. @return false when another program keeps it open for long or
/// memory lacks; the clipboard is then unchanged or empty.
bool PutTextOnClipboard(HWND owner, const std::wstring& text);

}  // namespace pixora
