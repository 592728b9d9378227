#include <windowsx.h>

#include <string>

#include "dialogs/windows/messages.h"
#include "dialogs/windows/value_entry_dialog.h"
#include "platform/menu.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "settings/settings_changes.h"
#include "settings/stored_keys.h"
#include "viewer/display_sizes.h"
#include "viewer/edit_modes.h"
#include "viewer/menu_rules.h"
#include "viewer/windows/display.h"
#include "viewer/windows/geometry_win.h"

namespace pixora {

MonitorFacts MeasureMonitor() {
    return {FromWin(SizeOf(PrimaryWorkArea())), GetSystemMetrics(SM_CYCAPTION)};
}

PixelPoint CDisplay::ClientPoint(POINT screen) const {
    ScreenToClient(Window(), &screen);
    return FromWin(screen);
}

PixelRect CDisplay::ClientOnScreen() const {
    RECT client{};
    GetClientRect(Window(), &client);
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&client), 2);
    return FromWin(client);
}

POINT CDisplay::MenuPoint(LPARAM position) const {
    if (position != -1) return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    const PixelPoint point = KeyboardMenuPoint(FromWin(CursorPosition()), ClientOnScreen());
    return {point.x, point.y};
}

bool CDisplay::ShowContextMenu(LPARAM position) {
    const POINT point = MenuPoint(position);
    const bool by_keyboard = position == -1;
    // The caption and a minimised window have a menu of their own.
    if (by_keyboard ? IsIconic(Window()) != 0 : !Contains(ClientOnScreen(), FromWin(point))) return false;
    if (InModal()) return true;
    if (!by_keyboard && !right_press_.EndsAsClick()) return true;
    if (PickMarkInstead()) return true;
    menu_point_ = point;
    const UniqueMenu menu = LoadMenuResource(IDR_DISPLAY_MENU);
    const HMENU popup = GetSubMenu(menu.get(), 0);
    for (const MenuCommand& command : kMenuCommands)
        EnableMenuItem(popup, static_cast<UINT>(command.id),
                       IsOffered(command, *state_) ? MF_ENABLED : MF_GRAYED);
    const int command = TrackPopup(Window(), popup, point);
    RequestRedraw(*state_);
    if (command != 0) SendMessageW(Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    return true;
}

Handled CDisplay::OnSizeCommand(int id) {
    if (const std::optional<std::wstring_view> ratio = RatioOfCommand(id)) {
        Report(SetDisplayRatio(*state_, *ratio, ClientPoint(menu_point_)));
        return Handled::yes;
    }
    switch (id) {
        case IDM_SIZE_BY_VALUE:
            AskForSize();
            return Handled::yes;
        case IDM_SIZE_FIT:
            FitToMonitor();
            return Handled::yes;
        case IDM_SIZE_DEFINED:
            SetDefinedSize();
            return Handled::yes;
        case IDM_SIZE_SAVE_DEFAULT:
            SaveDefaultSize();
            return Handled::yes;
        default:
            return Handled::no;
    }
}

void CDisplay::Report(const std::optional<Message>& refusal) {
    if (refusal) ShowErrorBox(Window(), *refusal);
}

void CDisplay::AskForSize() {
    CValueEntry entry(PercentSignText(state_->ratio_text), CursorPosition(), [this](std::wstring_view ratio) {
        return CheckDisplayLimit(ImageSizeOf(*state_), ratio);
    });
    entry.RunModal(Window());
    SetTypedSize(*state_, entry.NewRatio());
}

void CDisplay::FitToMonitor() {
    if (const std::optional<PixelPoint> corner = pixora::FitToMonitor(*state_, context_.monitor))
        MoveWindowTo(Window(), {corner->x, corner->y});
}

void CDisplay::SetDefinedSize() {
    std::wstring stored;
    if (!GetSettingValue(context_.settings_path, kImgSize.key, stored)) stored.clear();
    Report(pixora::SetDefinedSize(*state_, stored, ClientPoint(menu_point_)));
}

void CDisplay::SaveDefaultSize() {
    const std::optional<std::wstring> size = DefaultSizeOf(state_->ratio_text);
    if (!size) return;
    StoreTypedDisplaySize(context_.settings_path, *context_.settings, *size);
    context_.flags->refresh_main = true;
}

void CDisplay::OnWheel(WPARAM w, LPARAM l) {
    if (InModal()) return;
    const POINT cursor{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
    const WheelResult result = ZoomByWheel(*state_, GET_WHEEL_DELTA_WPARAM(w), ClientPoint(cursor));
    if (!result.tip.empty()) zoom_tip_.Show(Window(), cursor, result.tip);
    Report(result.refusal);
}

}  // namespace pixora
