#include "settings/windows/color_button.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/gdi.h"

namespace pixora {

namespace {

constexpr int kFocusMargin = 3;  // from the button's edge to the dotted rectangle of the keyboard focus

}  // namespace

void CColorButton::SetBackColor(COLORREF colour) {
    if (back_ == colour) return;
    back_ = colour;
    Repaint();
}

void CColorButton::SetTextColor(COLORREF colour) {
    if (text_ == colour) return;
    text_ = colour;
    Repaint();
}

void CColorButton::SetRaised(bool raised) {
    if (raised_ == raised) return;
    raised_ = raised;
    Repaint();
}

void CColorButton::SetCaption(std::wstring_view caption) {
    SetWindowTextW(button_, std::wstring(caption).c_str());
    Repaint();
}

bool CColorButton::Draw(const DRAWITEMSTRUCT& item) const {
    if (!button_ || item.hwndItem != button_) return false;
    RECT rectangle = item.rcItem;
    const UniqueBrush face(CreateSolidBrush(back_));
    FillRect(item.hDC, &rectangle, face.Get());
    if (raised_) {
        DrawEdge(item.hDC, &rectangle, item.itemState & ODS_SELECTED ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
    }

    std::array<wchar_t, 128> caption{};
    const int length = GetWindowTextW(button_, caption.data(), static_cast<int>(caption.size()));
    ::SetBkMode(item.hDC, TRANSPARENT);
    const COLORREF usual = item.itemState & ODS_DISABLED ? GetSysColor(COLOR_GRAYTEXT) : RGB(0, 0, 0);
    ::SetTextColor(item.hDC, text_.value_or(usual));
    DrawTextW(item.hDC, caption.data(), length, &rectangle, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    if (item.itemState & ODS_FOCUS && !(item.itemState & ODS_NOFOCUSRECT)) {
        InflateRect(&rectangle, -kFocusMargin, -kFocusMargin);
        ::SetTextColor(item.hDC, RGB(0, 0, 0));
        ::SetBkColor(item.hDC, back_);
        DrawFocusRect(item.hDC, &rectangle);
    }
    return true;
}

void CColorButton::Repaint() const {
    if (button_) InvalidateRect(button_, nullptr, FALSE);
}

bool DrawColorButton(LPARAM draw_item, std::initializer_list<const CColorButton*> buttons) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(draw_item);
    return std::any_of(buttons.begin(), buttons.end(),
                       [&](const CColorButton* button) { return button->Draw(item); });
}

}  // namespace pixora
