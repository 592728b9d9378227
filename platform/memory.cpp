#include "platform/memory.h"

#include <windows.h>

#include <limits>

namespace pixora {

std::uint64_t AvailableMemory() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status)) return std::numeric_limits<std::uint64_t>::max();
    return status.ullAvailPageFile;
}

}  // namespace pixora
