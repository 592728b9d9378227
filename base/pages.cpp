#include "base/pages.h"

#ifndef _WIN32
#include <sys/mman.h>
#endif

#include <cstdint>

namespace pixora {

void PreparePages([[maybe_unused]] std::span<std::byte> memory) {
#ifdef MADV_POPULATE_WRITE
    const std::size_t before =
        (kPageBytes - reinterpret_cast<std::uintptr_t>(memory.data()) % kPageBytes) % kPageBytes;
    if (memory.size() < before + kPageBytes) return;
    const std::size_t whole = (memory.size() - before) / kPageBytes * kPageBytes;
    // Older systems refuse; the pages then come one by one.
    [[maybe_unused]] const int refused = madvise(memory.data() + before, whole, MADV_POPULATE_WRITE);
#endif
}

}  // namespace pixora
