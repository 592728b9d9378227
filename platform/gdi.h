// Owners of GDI handles. DeleteObject, DeleteDC and SelectObject are called here and nowhere else.
#pragma once

#include <windows.h>

#include <atomic>
#include <utility>

namespace pixora {

/// How many GDI handles the program's owners hold; the tests compare it before and after.
inline std::atomic<int> live_gdi_handles = 0;

/// Owns one handle; `Close` releases it.
template <typename Handle, auto Close>
class UniqueGdi {
public:
    explicit UniqueGdi(Handle handle = nullptr) noexcept : handle_(handle) {
        if (handle_) ++live_gdi_handles;
    }
    UniqueGdi(UniqueGdi&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    UniqueGdi& operator=(UniqueGdi other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~UniqueGdi() {
        if (!handle_) return;
        Close(handle_);
        --live_gdi_handles;
    }
    [[nodiscard]] Handle Get() const noexcept { return handle_; }
    [[nodiscard]] explicit operator bool() const noexcept { return handle_ != nullptr; }

private:
    Handle handle_;
};

using UniquePen = UniqueGdi<HPEN, &DeleteObject>;
using UniqueBrush = UniqueGdi<HBRUSH, &DeleteObject>;
using UniqueFont = UniqueGdi<HFONT, &DeleteObject>;
using UniqueBitmap = UniqueGdi<HBITMAP, &DeleteObject>;
using UniqueMemoryDc = UniqueGdi<HDC, &DeleteDC>;

/// Selects `object` for one scope. Declare it after that object, so that it is deselected before it is
/// deleted.
class [[nodiscard]] Selected {
public:
    Selected(HDC dc, HGDIOBJ object) noexcept : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, previous_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};

/// The device context of one WM_PAINT.
class [[nodiscard]] PaintScope {
public:
    explicit PaintScope(HWND window) noexcept : window_(window), dc_(BeginPaint(window, &paint_)) {}
    ~PaintScope() { EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    [[nodiscard]] HDC Dc() const noexcept { return dc_; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

}  // namespace pixora
