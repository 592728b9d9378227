// Which commands of a viewer's context menu are greyed.
#pragma once

#include <array>
#include <cstddef>

#include "viewer/viewer_state.h"

namespace pixora {

/// A command of the context menu that is not always available.
struct MenuCommand {
    int id;
    bool ViewFlags::*view = nullptr;  ///< the flags of the view that it opens, if it opens one
};

inline constexpr int kSaveRegionCommand = 32810;

/// In the order of the menu; all other commands are never greyed.
inline constexpr std::array kMenuCommands = {
    MenuCommand{32923, &ViewFlags::statistics},  // Statistics
    MenuCommand{32917, &ViewFlags::h_profile},   // H-Profile
    MenuCommand{32918, &ViewFlags::v_profile},   // V-Profie
    MenuCommand{32919, &ViewFlags::histogram},   // Histogram
    MenuCommand{32921, &ViewFlags::image_info},  // Image Info.
    MenuCommand{kSaveRegionCommand},
};
/// The views are the first of them.
inline constexpr std::size_t kViews = 5;

/// Whether the menu offers `command` or greys it. What would do nothing is greyed: a view that is open
/// already, and saving a region while none shows.
[[nodiscard]] bool IsOffered(const MenuCommand& command, const ViewerState& state);

}  // namespace pixora
