// The user's wish to stop, which comes at any time.
#pragma once

namespace pixora {

/// Asks for all reading of files to end at the next block, as if its caller had said so. Safe in a signal
/// handler and in any thread.
void RequestStop() noexcept;
[[nodiscard]] bool StopRequested() noexcept;

}  // namespace pixora
