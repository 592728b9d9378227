// Pages of memory.
#pragma once

#include <cstddef>
#include <span>

namespace pixora {

/// What an allocation is aligned to that shall begin at a page.
inline constexpr std::size_t kPageBytes = 4096;

/// Has the system make the whole pages of some memory ready at once. Otherwise it does that page by page as
/// they are touched, which takes several times as long. Changes nothing of what they hold, and nothing at all
/// where the system does not know how.
void PreparePages(std::span<std::byte> memory);

}  // namespace pixora
