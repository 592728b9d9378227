// Pop-up menus.
#pragma once

#include <windows.h>

#include <memory>

namespace pixora {

struct MenuCloser {
    void operator()(HMENU menu) const noexcept { DestroyMenu(menu); }
};
/// Owns a menu that is no window's menu bar.
using UniqueMenu = std::unique_ptr<HMENU__, MenuCloser>;

/// A menu of the program's resources.
[[nodiscard]] UniqueMenu LoadMenuResource(int id);

/// Shows `popup` at a point of the screen until an item is chosen or the menu is closed; either mouse button
/// chooses. Counts as a modal operation of `owner`.
/// @return the chosen command, or 0.
[[nodiscard]] int TrackPopup(HWND owner, HMENU popup, POINT at);

/// Where a menu of `control` opens that WM_CONTEXTMENU asks for with `position`: there, or, when the keyboard
/// asks, at the control's own corner.
[[nodiscard]] POINT MenuPosition(HWND control, LPARAM position);

/// Lets the parent of an edit control have its WM_CONTEXTMENU, instead of the control's own menu.
void ForwardContextMenu(HWND edit_control);

}  // namespace pixora
