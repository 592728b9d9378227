#include "platform/screen.h"

namespace pixora {

SIZE PrimaryScreenSize() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

RECT PrimaryWorkArea() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

RECT WorkAreaOf(HWND window) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info)) return info.rcWork;
    return PrimaryWorkArea();
}

bool IsOnMonitor(POINT point) {
    return MonitorFromPoint(point, MONITOR_DEFAULTTONULL) != nullptr;
}

SIZE SizeOf(const RECT& rectangle) {
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

RECT ScreenRectangle(HWND window) {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return rectangle;
}

SIZE FrameExtent(HWND window) {
    const SIZE outer = SizeOf(ScreenRectangle(window));
    RECT client{};
    GetClientRect(window, &client);
    return {outer.cx - client.right, outer.cy - client.bottom};
}

int CaptionHeight(HWND window) {
    return GetSystemMetricsForDpi(SM_CYCAPTION, GetDpiForWindow(window));
}

int ScaleForDpi(HWND window, int length) {
    return MulDiv(length, static_cast<int>(GetDpiForWindow(window)), USER_DEFAULT_SCREEN_DPI);
}

POINT RestoredPosition(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!IsIconic(window) || !GetWindowPlacement(window, &placement)) {
        const RECT rectangle = ScreenRectangle(window);
        return {rectangle.left, rectangle.top};
    }
    // The placement is told in coordinates that start at the work area instead of the monitor.
    const RECT& normal = placement.rcNormalPosition;
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromRect(&normal, MONITOR_DEFAULTTONEAREST), &info);
    return {normal.left + info.rcWork.left - info.rcMonitor.left,
            normal.top + info.rcWork.top - info.rcMonitor.top};
}

RECT ClientRectangleOf(HWND child) {
    RECT rectangle = ScreenRectangle(child);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&rectangle), 2);
    return rectangle;
}

POINT CursorPosition() {
    POINT point{};
    GetCursorPos(&point);
    return point;
}

void MoveWindowTo(HWND window, POINT top_left) {
    SetWindowPos(window, nullptr, top_left.x, top_left.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PaintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    GdiFlush();
}

BusyCursor::BusyCursor() noexcept : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
BusyCursor::~BusyCursor() {
    SetCursor(previous_);
}

}  // namespace pixora
