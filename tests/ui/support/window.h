// Windows and controls of another process, looked at from outside.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace pixora::ui {

/// A window or control. Copies name the same window; it may be gone at any time.
class Window {
public:
    explicit Window(HWND handle = nullptr) : handle_(handle) {}

    [[nodiscard]] HWND Handle() const { return handle_; }
    [[nodiscard]] bool Exists() const { return handle_ && IsWindow(handle_); }
    [[nodiscard]] bool Visible() const { return handle_ && IsWindowVisible(handle_); }
    [[nodiscard]] bool Enabled() const { return handle_ && IsWindowEnabled(handle_); }
    [[nodiscard]] bool Checked() const;
    [[nodiscard]] int Id() const { return GetDlgCtrlID(handle_); }
    [[nodiscard]] DWORD ProcessId() const;
    [[nodiscard]] std::wstring Class() const;
    [[nodiscard]] LONG_PTR Style() const { return GetWindowLongPtrW(handle_, GWL_STYLE); }
    [[nodiscard]] LONG_PTR ExtendedStyle() const { return GetWindowLongPtrW(handle_, GWL_EXSTYLE); }
    /// The caption of a window, the text of a control.
    [[nodiscard]] std::wstring Text() const;
    /// Replaces the text without the keyboard.
    void SetText(const std::wstring& text) const;

    /// Screen rectangle of the whole window.
    [[nodiscard]] RECT Frame() const;
    /// Screen rectangle of the client area.
    [[nodiscard]] RECT Client() const;
    [[nodiscard]] POINT Centre() const;
    /// A point of the client area in screen coordinates.
    [[nodiscard]] POINT ClientPoint(int x, int y) const;

    /// The control with this id; the window's own come before those inside of controls.
    [[nodiscard]] std::optional<Window> FindItem(int id) const;
    /// The same; throws when there is none.
    [[nodiscard]] Window Item(int id) const;
    /// The text of control `id`.
    [[nodiscard]] std::wstring ItemText(int id) const { return Item(id).Text(); }
    /// All controls, at any depth.
    [[nodiscard]] std::vector<Window> Controls() const;

    /// Sends a message; throws when it is not answered in time. A window that is gone answers 0.
    LRESULT Send(UINT message, WPARAM w = 0, LPARAM l = 0) const;
    void Post(UINT message, WPARAM w = 0, LPARAM l = 0) const { PostMessageW(handle_, message, w, l); }
    /// Posts a menu command or the press of a button.
    void Command(int id) const { Post(WM_COMMAND, static_cast<WPARAM>(id), 0); }

    friend bool operator==(const Window& a, const Window& b) { return a.handle_ == b.handle_; }

private:
    HWND handle_;
};

/// The visible top-level windows of a process, the topmost first.
[[nodiscard]] std::vector<Window> WindowsOf(DWORD process_id);

/// The items of a combo box.
[[nodiscard]] std::vector<std::wstring> ComboItems(const Window& combo);

}  // namespace pixora::ui
