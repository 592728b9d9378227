#include "platform/font.h"

#include <array>

namespace pixora {

namespace {

HFONT FontOf(HWND control) {
    return reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
}

template <typename Change>
UniqueFont ChangeFont(HWND control, Change change) {
    LOGFONTW facts{};
    if (!GetObjectW(FontOf(control), sizeof facts, &facts)) return UniqueFont();
    change(facts);
    UniqueFont font(CreateFontIndirectW(&facts));
    if (font) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    return font;
}

}  // namespace

UniqueFont MakeBold(HWND control) {
    return ChangeFont(control, [](LOGFONTW& facts) { facts.lfWeight = FW_BOLD; });
}

UniqueFont MakeUnderlined(HWND control) {
    return ChangeFont(control, [](LOGFONTW& facts) { facts.lfUnderline = TRUE; });
}

SIZE TextExtent(HWND control) {
    std::array<wchar_t, 512> text{};
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    const HDC dc = GetDC(control);
    SIZE extent{};
    {
        const Selected font(dc, FontOf(control));
        GetTextExtentPoint32W(dc, text.data(), length, &extent);
    }
    ReleaseDC(control, dc);
    return extent;
}

}  // namespace pixora
