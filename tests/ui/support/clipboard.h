// The clipboard as a person finds it after copying.
#pragma once

#include <string>

namespace pixora::ui {

/// Empty when there is no text.
[[nodiscard]] std::wstring ClipboardText();
void SetClipboardText(const std::wstring& text);

}  // namespace pixora::ui
