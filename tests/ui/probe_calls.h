// Counting what the program asks the system for.
#pragma once

#include "tests/ui/support/probe_block.h"

namespace pixora::ui {

/// Lets the program's own calls for memory and files pass by here, from the first time on, and counts from
/// zero. @return false when the program has none of them.
bool CountCalls();
/// What was counted.
CallCounts CountedCalls();

}  // namespace pixora::ui
