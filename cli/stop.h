// The user's wish to stop, which comes at any time.
#pragma once

namespace pixora::cli {

/// Asks the program to stop as soon as nothing is half done. Safe in a signal handler and in any thread.
void RequestStop() noexcept;
[[nodiscard]] bool StopRequested() noexcept;

}  // namespace pixora::cli
