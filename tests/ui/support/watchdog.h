// Ends a run that stands still, and says where.
#pragma once

#include <string>

namespace pixora::ui {

/// Starts the watch over all tests of this run. A test that takes longer than any of its waits could ends the
/// process with exit code 3.
void StartWatchdog();
/// A test begins, or with an empty name the last one has ended.
void WatchTest(const std::string& name);
/// What is done next; `step` must be a literal. Told when the run stands still.
void WatchStep(const char* step);

}  // namespace pixora::ui
