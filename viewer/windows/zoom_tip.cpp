#include "viewer/windows/zoom_tip.h"

#include <commctrl.h>

namespace pixora {
namespace {

constexpr UINT kShown_ms = 3000;
// Beside the cursor, which would otherwise cover the text.
constexpr POINT kBesideCursor{14, 18};

TTTOOLINFOW ToolOf(HWND owner, wchar_t* text) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = owner;
    tool.uId = 1;
    tool.lpszText = text;
    return tool;
}

}  // namespace

bool ZoomTip::Create(HWND owner) {
    if (tip_) return true;
    owner_ = owner;
    tip_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                           WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!tip_) return false;
    wchar_t nothing[] = L"";
    TTTOOLINFOW tool = ToolOf(owner, nothing);
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip_, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    SendMessageW(tip_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShown_ms);
    SendMessageW(tip_, TTM_SETDELAYTIME, TTDT_RESHOW, 0);
    return true;
}

void ZoomTip::Show(HWND owner, POINT cursor, const std::wstring& text) {
    if (!Create(owner)) return;
    std::wstring shown = text;
    TTTOOLINFOW tool = ToolOf(owner, shown.data());
    SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip_, TTM_TRACKPOSITION, 0,
                 MAKELPARAM(cursor.x + kBesideCursor.x, cursor.y + kBesideCursor.y));
    SendMessageW(tip_, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
    SetTimer(owner, kTimer, kShown_ms, nullptr);  // a tracked tooltip does not end by itself
}

void ZoomTip::Hide() {
    if (!tip_) return;
    KillTimer(owner_, kTimer);
    TTTOOLINFOW tool = ToolOf(owner_, nullptr);
    SendMessageW(tip_, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace pixora
