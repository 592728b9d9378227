#include "viewer/menu_rules.h"

namespace pixora {

bool IsOffered(const MenuCommand& command, const ViewerState& state) {
    if (command.view) return !(state.edit.view_open.*command.view);
    return command.id != kSaveRegionCommand || state.region_on;
}

}  // namespace pixora
