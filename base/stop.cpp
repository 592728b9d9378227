#include "base/stop.h"

#include <atomic>

namespace pixora {
namespace {

std::atomic<bool> stop_requested{false};
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

void RequestStop() noexcept {
    stop_requested.store(true);
}

bool StopRequested() noexcept {
    return stop_requested.load(std::memory_order_relaxed);
}

}  // namespace pixora
