#include "app/main_rules.h"

#include <algorithm>
#include <cstddef>

#include "dialogs/keys.h"

namespace pixora {

MainKey FilterMainKey(std::uint32_t message, std::uint64_t first_parameter, bool path_editing) {
    if (message != kKeyDownMessage) return MainKey::pass;
    if (first_parameter == kEscapeKey) return MainKey::swallow;
    if (first_parameter != kReturnKey) return MainKey::pass;
    return path_editing ? MainKey::leave_path_edit : MainKey::apply_size;
}

void OnMainSize(SharedFlags& flags, bool minimised) {
    flags.hide.fill(minimised);
    if (!minimised) flags.created.fill(true);
}

bool AnyViewerOpen(const SharedFlags& flags) {
    return std::ranges::any_of(flags.viewer_open, [](bool open) { return open; });
}

void RequestCloseAll(SharedFlags& flags) {
    flags.close_viewer.fill(true);
}

void ClearSlot(SharedFlags& flags, int slot) {
    const auto index = static_cast<std::size_t>(slot);
    flags.viewer_open[index] = false;
    flags.close_viewer[index] = false;
    flags.created[index] = false;
    flags.redraw_viewer[index] = false;
}

}  // namespace pixora
