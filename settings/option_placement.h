// Where an option dialog appears.
#pragma once

#include <cstdint>

#include "dialogs/placement.h"
#include "settings/option_choices.h"

namespace pixora {

/// Top-left corner of an option dialog: beside the main window and inside the work area, each kind a
/// caption's height lower than the one before, so that the captions of all three can be seen.
[[nodiscard]] ScreenPoint PlaceOptionDialog(OptionDialog kind, ScreenRect main_window, ScreenSize dialog,
                                            ScreenRect work_area, std::int32_t caption_height);

}  // namespace pixora
