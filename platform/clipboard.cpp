#include "platform/clipboard.h"

#include <cstring>

namespace pixora {

namespace {

/// A copy of `text` in memory that the clipboard can take over; nullptr when there is none left.
HGLOBAL GlobalCopy(const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!memory) return nullptr;
    void* target = GlobalLock(memory);
    if (!target) {
        GlobalFree(memory);
        return nullptr;
    }
    std::memcpy(target, text.c_str(), bytes);
    GlobalUnlock(memory);
    return memory;
}

/// Programs that watch the clipboard open it for a moment after each change.
bool OpenWhenFree(HWND owner) {
    constexpr int kAttempts = 20;
    constexpr DWORD kPause_ms = 10;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (OpenClipboard(owner)) return true;
        Sleep(kPause_ms);
    }
    return false;
}

}  // namespace

bool PutTextOnClipboard(HWND owner, const std::wstring& text) {
    const HGLOBAL memory = GlobalCopy(text);
    if (!memory) return false;
    bool done = false;
    if (OpenWhenFree(owner)) {
        done = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    if (!done) GlobalFree(memory);  // otherwise the clipboard owns it
    return done;
}

}  // namespace pixora
