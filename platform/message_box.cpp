#include "platform/message_box.h"

#include "platform/dialog.h"

namespace pixora {

namespace {

// An empty title shows as such; the system would put a word of its own into a missing one.
void ShowBox(HWND owner, const std::wstring& title, const std::wstring& text, UINT icon) {
    const HWND root = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    const Dialog::ModalScope scope(root);
    MessageBoxW(root, text.c_str(), title.c_str(), MB_OK | MB_TOPMOST | MB_SETFOREGROUND | icon);
}

}  // namespace

void ShowPlainBox(HWND owner, const std::wstring& text) {
    ShowBox(owner, L"", text, 0);
}

void ShowWarningBox(HWND owner, const std::wstring& title, const std::wstring& text) {
    ShowBox(owner, title, text, MB_ICONEXCLAMATION);
}

}  // namespace pixora
