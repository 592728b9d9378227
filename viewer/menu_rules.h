// Which commands of a viewer's context menu are greyed.
#pragma once

#include <array>

#include "viewer/viewer_state.h"

namespace pixora {

/// A command of the context menu that is not always available.
struct MenuCommand {
    int id;
    bool implemented;  ///< the viewer does something when it is chosen
};

inline constexpr int kSaveRegionCommand = 32810;

/// In the order of the menu; all other commands are never greyed.
inline constexpr std::array kMenuCommands = {
    MenuCommand{32923, false},  // Statistics
    MenuCommand{32917, false},  // H-Profile
    MenuCommand{32918, false},  // V-Profie
    MenuCommand{32919, false},  // Histogram
    MenuCommand{32921, false},  // Image Info.
    MenuCommand{kSaveRegionCommand, false},
};

/// Whether the menu offers `command` or greys it. What would do nothing is greyed, and a region can only be
/// saved while one shows.
[[nodiscard]] bool IsOffered(const MenuCommand& command, const ViewerState& state);

}  // namespace pixora
