// One run of a fuzzer: the bytes of a file through everything that opening an image does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixora::fuzz {

/// Imports `bytes` as a file, reads the samples of what was accepted, and checks what every import promises:
/// a refusal leaves no file, an accepted image has its copies and a full sample buffer.
void ImportBytes(std::span<const std::uint8_t> bytes);

}  // namespace pixora::fuzz
