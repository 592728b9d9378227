#include "tests/ui/support/file_dialog.h"

#include <array>

#include "tests/ui/support/input.h"

namespace pixora::ui {
namespace {

constexpr int kNameCombo = 1148, kTypeCombo = 1136;

std::optional<Window> NameEdit(const Window& box) {
    const std::optional<Window> combo = box.FindItem(kNameCombo);
    if (!combo) return std::nullopt;
    if (combo->Class() == L"Edit") return combo;
    for (const Window& control : combo->Controls())
        if (control.Class() == L"Edit") return control;
    return std::nullopt;
}

/// The dialog shows before it has found its folder, its size and its place: clicks would miss. It has them
/// once it has given one of its controls the keyboard and nothing moves any more.
void WaitUntilSettled(const Window& box) {
    WaitFor("the file dialog to take the keyboard", [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(box.Handle(), nullptr), &info);
        return info.hwndFocus && IsChild(box.Handle(), info.hwndFocus);
    });
    (void)WaitUntilStill("the file dialog to settle", [&] {
        const RECT frame = box.Item(IDOK).Frame();
        return std::array{frame.left, frame.top, frame.right, frame.bottom};
    });
}

}  // namespace

FileDialog::FileDialog(const Process& process) {
    box_ = process.WaitForWindow("a file dialog", [](const Window& window) {
        return window.FindItem(kTypeCombo) && NameEdit(window) && window.FindItem(IDOK);
    });
    WaitUntilSettled(box_);
    name_ = *NameEdit(box_);
}

std::vector<std::wstring> FileDialog::Types() const {
    return ComboItems(box_.Item(kTypeCombo));
}

void FileDialog::Accept(const std::wstring& name) const {
    name_.SetText(name);
    Click(box_.Item(IDOK));
    WaitUntilGone();
}

void FileDialog::Cancel() const {
    Click(box_.Item(IDCANCEL));
    WaitUntilGone();
}

void FileDialog::WaitUntilGone() const {
    WaitFor("the file dialog to close", [this] { return !box_.Exists(); });
}

}  // namespace pixora::ui
