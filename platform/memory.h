// The machine's memory.
#pragma once

#include <cstdint>

namespace pixora {

/// How many bytes this program can still get.
[[nodiscard]] std::uint64_t AvailableMemory();

}  // namespace pixora
