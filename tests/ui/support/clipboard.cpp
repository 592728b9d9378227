#include "tests/ui/support/clipboard.h"

#include <windows.h>

#include <cstring>

#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {

HeldClipboard::HeldClipboard() {
    WatchStep("opening the clipboard");
    WaitFor("the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
}

HeldClipboard::~HeldClipboard() {
    CloseClipboard();
}

std::wstring ClipboardText() {
    const HeldClipboard clipboard;
    HGLOBAL memory = GetClipboardData(CF_UNICODETEXT);
    const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    std::wstring copy = text ? text : L"";
    if (text) GlobalUnlock(memory);
    return copy;
}

void SetClipboardText(const std::wstring& text) {
    const HeldClipboard clipboard;
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    void* target = memory ? GlobalLock(memory) : nullptr;
    if (!target) throw UiError("there is no memory for the clipboard");
    std::memcpy(target, text.c_str(), bytes);
    GlobalUnlock(memory);
    if (!EmptyClipboard() || !SetClipboardData(CF_UNICODETEXT, memory))
        throw UiError("the clipboard does not take the text");
}

}  // namespace pixora::ui
