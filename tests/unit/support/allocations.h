// How often memory is taken.
#pragma once

namespace pixora::test {

/// How often the process has taken memory by `new` since its start, containers included.
[[nodiscard]] unsigned long long Allocations();

}  // namespace pixora::test
