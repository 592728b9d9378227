#include "platform/file_dialog.h"

#include <commdlg.h>

#include <cderr.h>

#include <algorithm>
#include <vector>

#include "platform/dialog.h"

namespace pixora {

namespace {

/// Longest path that a file dialog can give back, in characters with the terminator.
constexpr std::size_t kPathCapacity = 32768;

/// Puts the first window that this thread activates above all others: a file dialog takes no such wish, and
/// one of an ordinary window would open behind the main window, which is always on top.
class [[nodiscard]] FirstWindowTopmost {
public:
    FirstWindowTopmost() : hook_(SetWindowsHookExW(WH_CBT, &Hook, nullptr, GetCurrentThreadId())) {
        current = this;
    }
    ~FirstWindowTopmost() {
        current = nullptr;
        Release();
    }
    FirstWindowTopmost(const FirstWindowTopmost&) = delete;
    FirstWindowTopmost& operator=(const FirstWindowTopmost&) = delete;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM w, LPARAM l) noexcept {
        if (code == HCBT_ACTIVATE && current) {
            current->Release();
            SetWindowPos(reinterpret_cast<HWND>(w), HWND_TOPMOST, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            return 0;
        }
        return CallNextHookEx(nullptr, code, w, l);
    }
    void Release() {
        if (hook_) UnhookWindowsHookEx(hook_);
        hook_ = nullptr;
    }

    static inline FirstWindowTopmost* current = nullptr;
    HHOOK hook_;
};

/// The buffers that an OPENFILENAMEW points into.
struct Buffers {
    std::vector<wchar_t> file = std::vector<wchar_t>(kPathCapacity);
    std::wstring filter;
};

OPENFILENAMEW Prepare(const FileDialogRequest& request, HWND owner, Buffers& buffers) {
    const std::size_t length = std::min(request.initial_name.size(), kPathCapacity - 1);
    std::copy_n(request.initial_name.begin(), length, buffers.file.begin());
    buffers.filter = request.filter;
    std::replace(buffers.filter.begin(), buffers.filter.end(), L'|', L'\0');

    OPENFILENAMEW open{};
    open.lStructSize = sizeof open;
    open.hwndOwner = owner;
    open.lpstrFilter = buffers.filter.c_str();
    open.lpstrFile = buffers.file.data();
    open.nMaxFile = static_cast<DWORD>(buffers.file.size());
    open.lpstrInitialDir = request.initial_folder.empty() ? nullptr : request.initial_folder.c_str();
    open.lpstrDefExt = request.default_extension.empty() ? nullptr : request.default_extension.c_str();
    // The current folder stays, because relative paths that the user types are meant against it.
    open.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
    return open;
}

std::optional<std::filesystem::path> Ask(const FileDialogRequest& request, DWORD flags,
                                         BOOL(WINAPI* show)(OPENFILENAMEW*)) {
    const HWND owner = request.owner ? GetAncestor(request.owner, GA_ROOT) : nullptr;
    const Dialog::ModalScope scope(owner);
    Buffers buffers;
    OPENFILENAMEW open = Prepare(request, owner, buffers);
    open.Flags |= flags;
    const auto run = [&] {
        const FirstWindowTopmost topmost;
        return show(&open);
    };
    BOOL chosen = run();
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        // The proposed name is no possible file name; the user still gets the dialog, with an empty one.
        buffers.file[0] = L'\0';
        chosen = run();
    }
    if (!chosen) return std::nullopt;
    return std::filesystem::path(buffers.file.data());
}

}  // namespace

std::optional<std::filesystem::path> AskForFileToOpen(const FileDialogRequest& request) {
    return Ask(request, 0, &GetOpenFileNameW);
}

std::optional<std::filesystem::path> AskForFileToSave(const FileDialogRequest& request) {
    return Ask(request, OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST, &GetSaveFileNameW);
}

}  // namespace pixora
