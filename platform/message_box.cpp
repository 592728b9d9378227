#include "platform/message_box.h"

#include "platform/dialog.h"

namespace pixora {

void ShowPlainBox(HWND owner, const std::wstring& text) {
    const HWND root = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    const Dialog::ModalScope scope(root);
    // An empty title: the system would put a word of its own into a missing one.
    MessageBoxW(root, text.c_str(), L"", MB_OK | MB_TOPMOST | MB_SETFOREGROUND);
}

}  // namespace pixora
