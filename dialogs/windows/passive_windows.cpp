#include "dialogs/windows/passive_windows.h"

#include <shellapi.h>

#include <string>

#include "dialogs/identity.h"
#include "dialogs/windows/messages.h"
#include "platform/font.h"
#include "platform/picture.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

namespace {

constexpr UINT_PTR kSplashTimer = 0;
constexpr COLORREF kLinkColour = RGB(0, 0, 255);

template <typename Texts>
void ShowIdentity(HWND dialog, const Texts& texts) {
    for (const IdentityText& entry : texts) {
        SetDlgItemTextW(dialog, entry.control, std::wstring(entry.text).c_str());
    }
}

}  // namespace

CSplashPage::CSplashPage() : Dialog(IDD_SPLASH) {}

void CSplashPage::OnInit() {
    SetTimer(Window(), kSplashTimer, kSplash_ms, nullptr);
    bold_ = MakeBold(Item(kVersionControl));
    ShowIdentity(Window(), kSplashTexts);
    banner_ = ShowPicture(Item(IDC_IDENTITY_PICTURE), IDB_BANNER);
}

void CSplashPage::OnTimer(UINT_PTR id) {
    if (id == kSplashTimer) EndModal(1);
}

CAboutBox::CAboutBox() : Dialog(IDD_ABOUT) {}

void CAboutBox::OnInit() {
    bold_ = MakeBold(Item(kVersionControl));
    ShowIdentity(Window(), kAboutTexts);
    CentreOnScreen(Window());
    const HWND link = Item(kLinkControl);
    underlined_ = MakeUnderlined(link);
    // Only the text itself is to be clicked, not the rest of its line.
    const SIZE line = SizeOf(ScreenRectangle(link));
    SetWindowPos(link, nullptr, 0, 0, TextExtent(link).cx, line.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    banner_ = ShowPicture(Item(IDC_IDENTITY_PICTURE), IDB_BANNER);
}

Handled CAboutBox::OnCommand(const Command& command) {
    if (command.id != kLinkControl || command.code != STN_CLICKED) return Handled::no;
    ShellExecuteW(Window(), L"open", std::wstring(kWebAddressToOpen).c_str(), nullptr, nullptr,
                  SW_SHOWNORMAL);
    link_visited_ = true;
    return Handled::yes;
}

std::optional<LRESULT> CAboutBox::OnMessage(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(l) == Item(kLinkControl)) {
        const auto dc = reinterpret_cast<HDC>(w);
        SetTextColor(dc, kLinkColour);
        SetBkColor(dc, GetSysColor(COLOR_3DFACE));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE));
    }
    if (message == WM_SETCURSOR && reinterpret_cast<HWND>(w) == Item(kLinkControl)) {
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return TRUE;
    }
    return std::nullopt;
}

CPleaseWait::CPleaseWait() : Dialog(IDD_PLEASE_WAIT) {}

void CPleaseWait::OnInit() {
    SetCaption(std::wstring(kWaitCaption));
    SetText(IDC_WAIT_TEXT, std::wstring(kWaitText));
    SetWindowLongPtrW(Window(), GWL_STYLE, GetWindowLongPtrW(Window(), GWL_STYLE) & ~LONG_PTR{WS_SYSMENU});
    SetWindowPos(Window(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    CentreOnScreen(Window());
}

void CPleaseWait::Show(HWND owner) {
    if (!CreateModeless(owner)) return;
    ShowWindow(Window(), SW_SHOWNOACTIVATE);
    PaintNow(Window());
}

}  // namespace pixora
