// The clipboard as a person finds it after copying.
#pragma once

#include <string>

namespace pixora::ui {

/// The clipboard held open, as a program does that watches it; no other program can open it meanwhile.
class HeldClipboard {
public:
    HeldClipboard();
    ~HeldClipboard();
    HeldClipboard(const HeldClipboard&) = delete;
    HeldClipboard& operator=(const HeldClipboard&) = delete;
};

/// Empty when there is no text.
[[nodiscard]] std::wstring ClipboardText();
void SetClipboardText(const std::wstring& text);

}  // namespace pixora::ui
