#include "platform/menu.h"

#include <commctrl.h>
#include <windowsx.h>

#include "platform/dialog.h"
#include "platform/screen.h"

namespace pixora {

namespace {

constexpr UINT_PTR kForwarder = 1;

LRESULT CALLBACK ForwardProcedure(HWND control, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                  DWORD_PTR) noexcept {
    if (message == WM_CONTEXTMENU) return SendMessageW(GetParent(control), message, w, l);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(control, &ForwardProcedure, kForwarder);
    return DefSubclassProc(control, message, w, l);
}

}  // namespace

UniqueMenu LoadMenuResource(int id) {
    return UniqueMenu(LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id)));
}

int TrackPopup(HWND owner, HMENU popup, POINT at) {
    const Dialog::ModalScope scope(owner);
    return TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, at.x, at.y,
                          0, owner, nullptr);
}

POINT MenuPosition(HWND control, LPARAM position) {
    if (position != -1) return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    const RECT rectangle = ScreenRectangle(control);
    return {rectangle.left, rectangle.bottom};
}

void ForwardContextMenu(HWND edit_control) {
    SetWindowSubclass(edit_control, &ForwardProcedure, kForwarder, 0);
}

}  // namespace pixora
