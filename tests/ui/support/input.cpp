#include "tests/ui/support/input.h"

#include <cstdlib>
#include <vector>

#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {
namespace {

void SendAll(std::vector<INPUT> inputs) {
    WatchStep("sending input");
    const auto count = static_cast<UINT>(inputs.size());
    if (SendInput(count, inputs.data(), sizeof(INPUT)) != count) throw UiError("the input was not taken");
}

INPUT MouseInput(DWORD flags, int data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = static_cast<DWORD>(data);
    return input;
}

/// A coordinate of the screen as the system takes it in input: the screen has 65,536 units.
LONG InputUnits(LONG pixel, int screen_pixels) {
    constexpr long long kUnits = 65'536;
    return static_cast<LONG>((pixel * kUnits + screen_pixels - 1) / screen_pixels);
}

/// Mouse input that brings its place with it. A late report of an earlier place may put the cursor back there
/// at any time, also between a move and the press that follows it.
INPUT MouseInputAt(POINT screen, DWORD flags) {
    INPUT input = MouseInput(flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    input.mi.dx = InputUnits(screen.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = InputUnits(screen.y, GetSystemMetrics(SM_CYSCREEN));
    return input;
}

INPUT KeyInput(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    return input;
}

WORD ScanCode(WORD key) {
    return static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
}

struct ButtonFlags {
    DWORD down, up;
    int key;
};
ButtonFlags FlagsOf(Button button) {
    switch (button) {
        case Button::right:
            return {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, VK_RBUTTON};
        case Button::middle:
            return {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP, VK_MBUTTON};
        default:
            return {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, VK_LBUTTON};
    }
}

POINT last_click{-100, -100};
long long last_click_ms = 0;

/// Whether a click there could be taken for the second half of a double click.
bool AtLastClick(POINT screen) {
    return std::abs(screen.x - last_click.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
           std::abs(screen.y - last_click.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
}

/// A person who means two clicks lets some time pass; a little more than needed, because clocks are coarse.
void WaitOutDoubleClick(POINT screen) {
    constexpr long long kMore_ms = 50;
    const long long end = last_click_ms + static_cast<long long>(GetDoubleClickTime()) + kMore_ms;
    if (AtLastClick(screen)) WaitFor("the double-click time to pass", [&] { return Now_ms() > end; });
}

/// The middle of a window, or beside it where the last click was there already.
POINT ClickPoint(const Window& target) {
    constexpr LONG kAside = 8;
    const RECT frame = target.Frame();
    POINT point = target.Centre();
    if (AtLastClick(point) && frame.right - frame.left > 4 * kAside) point.x += kAside;
    return point;
}

}  // namespace

void MoveMouse(POINT screen) {
    WatchStep("moving the mouse");
    if (!SetCursorPos(screen.x, screen.y)) throw UiError("the mouse could not be moved");
}

void Press(Button button) {
    SendAll({MouseInput(FlagsOf(button).down)});
}
void Release(Button button) {
    SendAll({MouseInput(FlagsOf(button).up)});
}

void ClickAt(POINT screen, Button button) {
    WaitOutDoubleClick(screen);
    MoveMouse(screen);
    const ButtonFlags flags = FlagsOf(button);
    SendAll({MouseInputAt(screen, flags.down), MouseInputAt(screen, flags.up)});
    // Taken after the click: on a busy machine some time passes before it.
    last_click = screen;
    last_click_ms = Now_ms();
}

void Click(const Window& target, Button button) {
    POINT point{};
    Window hit;
    const auto lies_open = [&] {
        point = ClickPoint(target);
        hit = Window(WindowFromPoint(point));
        return hit.ProcessId() == target.ProcessId() &&
               GetAncestor(hit.Handle(), GA_ROOT) == GetAncestor(target.Handle(), GA_ROOT);
    };
    // A window that has just appeared comes to the front a moment later.
    constexpr int kMoment_ms = 3'000;
    if (!lies_open())
        WaitFor('"' + Narrow(target.Text()) + "\" to lie open, \"" + Narrow(hit.Text()) + "\" lies over it",
                lies_open, kMoment_ms);
    ClickAt(point, button);
}

void ClickCloseButton(const Window& window) {
    const RECT frame = window.Frame();
    const RECT client = window.Client();
    const LONG y = (frame.top + client.top) / 2;
    for (LONG x = frame.right - 1; x > frame.left; --x) {
        if (window.Send(WM_NCHITTEST, 0, MAKELPARAM(x, y)) != HTCLOSE) continue;
        ClickAt(AtLastClick({x - 4, y}) ? POINT{x - 10, y} : POINT{x - 4, y});
        return;
    }
    throw UiError("\"" + Narrow(window.Text()) + "\" has no close button");
}

void TurnWheel(POINT screen, int delta) {
    MoveMouse(screen);
    SendAll({MouseInput(MOUSEEVENTF_WHEEL, delta)});
}

void Drag(POINT from, POINT to, Button button, int steps) {
    MoveMouse(from);
    Press(button);
    for (int i = 1; i <= steps; ++i)
        MoveMouse({from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
    Release(button);
}

void HoldKey(WORD key) {
    SendAll({KeyInput(key, ScanCode(key), 0)});
}
void ReleaseKey(WORD key) {
    SendAll({KeyInput(key, ScanCode(key), KEYEVENTF_KEYUP)});
}
void PressKey(WORD key) {
    HoldKey(key);
    ReleaseKey(key);
}

void TypeText(std::wstring_view text) {
    for (const wchar_t c : text) {
        const auto code = static_cast<WORD>(c);
        SendAll(
            {KeyInput(0, code, KEYEVENTF_UNICODE), KeyInput(0, code, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
    }
}

void WaitForKeyboard(const Window& target) {
    WaitFor("the keyboard to go to \"" + Narrow(target.Class()) + '"', [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(target.Handle(), nullptr), &info);
        const bool focused =
            info.hwndFocus && (info.hwndFocus == target.Handle() || IsChild(target.Handle(), info.hwndFocus));
        return focused && GetAncestor(info.hwndFocus, GA_ROOT) == GetForegroundWindow();
    });
}

void TypeInto(const Window& edit, std::wstring_view text) {
    Click(edit);
    WaitForKeyboard(edit);
    PressKey(VK_END);
    HoldKey(VK_SHIFT);
    PressKey(VK_HOME);
    ReleaseKey(VK_SHIFT);
    if (text.empty()) PressKey(VK_DELETE);
    TypeText(text);
}

void ReleaseAll() {
    for (const Button button : {Button::left, Button::right, Button::middle})
        if (GetAsyncKeyState(FlagsOf(button).key) < 0) Release(button);
    for (const WORD key : {WORD{VK_SHIFT}, WORD{VK_CONTROL}, WORD{VK_MENU}})
        if (GetAsyncKeyState(key) < 0) ReleaseKey(key);
}

}  // namespace pixora::ui
