#include "tests/ui/support/window.h"

#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {
namespace {

constexpr UINT kAnswer_ms = 10'000;

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<Window>*>(list)->push_back(Window(window));
    return TRUE;
}

}  // namespace

DWORD Window::ProcessId() const {
    DWORD process = 0;
    GetWindowThreadProcessId(handle_, &process);
    return process;
}

std::wstring Window::Class() const {
    wchar_t name[256] = L"";
    GetClassNameW(handle_, name, 256);
    return name;
}

LRESULT Window::Send(UINT message, WPARAM w, LPARAM l) const {
    WatchStep("sending a message");
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutW(handle_, message, w, l, SMTO_NORMAL, kAnswer_ms, &result) && Exists())
        throw UiError("message " + std::to_string(message) + " to window \"" + Narrow(Class()) +
                      "\" was not answered");
    return static_cast<LRESULT>(result);
}

bool Window::Checked() const {
    return Send(BM_GETCHECK) == BST_CHECKED;
}

std::wstring Window::Text() const {
    const LRESULT length = Send(WM_GETTEXTLENGTH);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = Send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void Window::SetText(const std::wstring& text) const {
    Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

RECT Window::Frame() const {
    RECT frame{};
    GetWindowRect(handle_, &frame);
    return frame;
}

RECT Window::Client() const {
    RECT client{};
    GetClientRect(handle_, &client);
    MapWindowPoints(handle_, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

POINT Window::Centre() const {
    const RECT frame = Frame();
    return {(frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2};
}

POINT Window::ClientPoint(int x, int y) const {
    POINT point{x, y};
    ClientToScreen(handle_, &point);
    return point;
}

std::vector<Window> Window::Controls() const {
    std::vector<Window> controls;
    EnumChildWindows(handle_, &Collect, reinterpret_cast<LPARAM>(&controls));
    return controls;
}

std::optional<Window> Window::FindItem(int id) const {
    // The dialog's own controls come first: a control's inner windows may bear any number.
    if (HWND own = GetDlgItem(handle_, id)) return Window(own);
    for (const Window& control : Controls())
        if (control.Id() == id) return control;
    return std::nullopt;
}

Window Window::Item(int id) const {
    if (const std::optional<Window> item = FindItem(id)) return *item;
    throw UiError("there is no control " + std::to_string(id) + " in \"" + Narrow(Text()) + '"');
}

std::vector<Window> WindowsOf(DWORD process_id) {
    WatchStep("listing windows");
    std::vector<Window> all, own;
    EnumWindows(&Collect, reinterpret_cast<LPARAM>(&all));
    for (const Window& window : all)
        if (window.ProcessId() == process_id && window.Visible()) own.push_back(window);
    return own;
}

std::vector<std::wstring> ComboItems(const Window& combo) {
    std::vector<std::wstring> items(static_cast<std::size_t>(combo.Send(CB_GETCOUNT)));
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].resize(static_cast<std::size_t>(combo.Send(CB_GETLBTEXTLEN, i)) + 1);
        const LRESULT length = combo.Send(CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(items[i].data()));
        items[i].resize(static_cast<std::size_t>(length));
    }
    return items;
}

}  // namespace pixora::ui
