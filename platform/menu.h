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

}  // namespace pixora
