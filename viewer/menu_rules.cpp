#include "viewer/menu_rules.h"

namespace pixora {

bool IsOffered(const MenuCommand& command, const ViewerState& state) {
    return command.implemented && (command.id != kSaveRegionCommand || state.region_on);
}

}  // namespace pixora
