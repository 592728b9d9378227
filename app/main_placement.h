// Where the main window appears at start.
#pragma once

#include <functional>

#include "dialogs/placement.h"
#include "settings/settings.h"

namespace pixora {

/// Tells whether a screen point lies on one of the monitors that are attached now.
using OnMonitor = std::function<bool(ScreenPoint)>;

/// Top-left corner of the main window: by MAIN_POS at the top left, at the top right, or where it was last,
/// if that point still lies on a monitor.
[[nodiscard]] ScreenPoint PlaceMainWindow(const Settings& settings, ScreenSize screen, ScreenSize window,
                                          const OnMonitor& on_monitor);

}  // namespace pixora
