// What the main window does with keys, with its size changes and with the flags that it shares.
#pragma once

#include <cstdint>

#include "base/flags.h"

namespace pixora {

enum class MainKey {
    pass,             ///< goes on as usual
    swallow,          ///< nothing happens
    apply_size,       ///< the size box's text is checked and stored
    leave_path_edit,  ///< path edit mode ends and the typed path is opened
};

/// What a message in the main window means before the dialog sees it. Enter counts wherever the focus is;
/// Escape never closes the window.
/// @param message          the message's number.
/// @param first_parameter  of a key message the virtual key.
[[nodiscard]] MainKey FilterMainKey(std::uint32_t message, std::uint64_t first_parameter, bool path_editing);

/// A size change of the main window: minimising hides the windows of every kind, any other change shows them
/// and sets every slot's created flag.
void OnMainSize(SharedFlags& flags, bool minimised);

/// True when at least one viewer is open: the menu item "Close All Files" is enabled then.
[[nodiscard]] bool AnyViewerOpen(const SharedFlags& flags);
/// Asks every viewer to close.
void RequestCloseAll(SharedFlags& flags);
/// Clears the flags of one slot, so that no request to an earlier viewer reaches the next one.
void ClearSlot(SharedFlags& flags, int slot);

}  // namespace pixora
