#include "platform/menu.h"

#include "platform/dialog.h"

namespace pixora {

UniqueMenu LoadMenuResource(int id) {
    return UniqueMenu(LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id)));
}

int TrackPopup(HWND owner, HMENU popup, POINT at) {
    const Dialog::ModalScope scope(owner);
    return TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, at.x, at.y,
                          0, owner, nullptr);
}

}  // namespace pixora
