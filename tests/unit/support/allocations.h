// How often memory is taken, and what happens when there is none.
#pragma once

namespace pixora::test {

/// How often the process has taken memory by `new` since its start, containers included.
[[nodiscard]] unsigned long long Allocations();

/// For as long as it lives, `new` gives memory so many times more and throws from then on. No test framework
/// may be used meanwhile.
class [[nodiscard]] ShortMemory {
public:
    explicit ShortMemory(unsigned long long allocations);
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;
};

}  // namespace pixora::test
