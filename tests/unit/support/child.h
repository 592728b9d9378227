// Work done in a process of its own, so that it can be given less than the tests have.
#pragma once

#include <cstdint>
#include <functional>

namespace pixora::test {

/// Runs `work` in a child process. @return its exit status, -1 when the process did not end by itself.
[[nodiscard]] int InChild(const std::function<int()>& work);

/// The same on a disk that is full as soon as a file has `file_bytes` bytes. @return also -1 when the limit
/// cannot be set.
[[nodiscard]] int InChildOnFullDisk(std::uint64_t file_bytes, const std::function<int()>& work);

}  // namespace pixora::test
