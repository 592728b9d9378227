#include "platform/picture.h"

#include <optional>
#include <utility>

#include "platform/bitmap24.h"
#include "platform/screen.h"

namespace pixora {

UniqueBitmap LoadPicture(int id, SIZE size, bool transparent) {
    const UniqueBitmap source(static_cast<HBITMAP>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                                              IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP facts{};
    if (!source || !GetObjectW(source.Get(), sizeof facts, &facts)) return UniqueBitmap();
    // Without an alpha channel: of a bitmap with one a picture control would keep a copy of its own, which
    // nobody deletes.
    std::optional<Bitmap24> target = MakeBitmap24(size.cx, size.cy);
    const UniqueMemoryDc from(CreateCompatibleDC(nullptr)), to(CreateCompatibleDC(nullptr));
    if (!target || !from || !to) return UniqueBitmap();

    const Selected selected_source(from.Get(), source.Get());
    const Selected selected_target(to.Get(), target->bitmap.Get());
    const RECT whole{0, 0, size.cx, size.cy};
    FillRect(to.Get(), &whole, GetSysColorBrush(COLOR_3DFACE));
    SetStretchBltMode(to.Get(), HALFTONE);
    SetBrushOrgEx(to.Get(), 0, 0, nullptr);
    if (transparent) {
        TransparentBlt(to.Get(), 0, 0, size.cx, size.cy, from.Get(), 0, 0, facts.bmWidth, facts.bmHeight,
                       GetPixel(from.Get(), 0, 0));
    } else {
        StretchBlt(to.Get(), 0, 0, size.cx, size.cy, from.Get(), 0, 0, facts.bmWidth, facts.bmHeight,
                   SRCCOPY);
    }
    return std::move(target->bitmap);
}

UniqueBitmap ShowPicture(HWND control, int id, bool transparent) {
    UniqueBitmap picture = LoadPicture(id, SizeOf(ScreenRectangle(control)), transparent);
    if (picture) {
        SendMessageW(control, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(picture.Get()));
    }
    return picture;
}

void SetWindowIcons(HWND window, int id) {
    const auto set = [&](WPARAM kind, int width, int height) {
        // Shared icons are the system's to free.
        const HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON,
                                       GetSystemMetrics(width), GetSystemMetrics(height), LR_SHARED);
        SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
    };
    set(ICON_BIG, SM_CXICON, SM_CYICON);
    set(ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
}

}  // namespace pixora
