#include "image/valid_bits.h"

#include "base/cpu_x86.h"

namespace pixora {
namespace {

// The compiler makes of each loop as many samples at a time as the processor's registers hold.
#if PIXORA_X86
#define PIXORA_INLINE __attribute__((always_inline)) inline
#else
#define PIXORA_INLINE inline
#endif

// The bits in which any sample differs from `first`.
PIXORA_INLINE std::uint16_t DifferingBits(std::span<const std::uint16_t> samples, std::uint16_t first) {
    std::uint16_t differing = 0;
    for (const std::uint16_t sample : samples) differing |= static_cast<std::uint16_t>(sample ^ first);
    return differing;
}

PIXORA_INLINE void ShiftDown(std::span<std::uint16_t> samples, int shift) {
    for (std::uint16_t& sample : samples) sample = static_cast<std::uint16_t>(sample >> shift);
}

PIXORA_AVX2 std::uint16_t DifferingBitsAvx2(std::span<const std::uint16_t> samples, std::uint16_t first) {
    return DifferingBits(samples, first);
}
PIXORA_AVX2 void ShiftDownAvx2(std::span<std::uint16_t> samples, int shift) {
    ShiftDown(samples, shift);
}

}  // namespace

int ValidBitsOf(std::uint16_t differing) {
    if ((differing & 0xFF) == 0) return 8;
    if ((differing & 0x3F) == 0) return 10;
    if ((differing & 0x0F) == 0) return 12;
    if ((differing & 0x03) == 0) return 14;
    return 16;
}

void ValidBitsDetector::Add(std::span<const std::uint16_t> samples) {
    if (samples.empty() || Bits() == 16) return;  // nothing can change 16 any more
    if (!has_first_) {
        has_first_ = true;
        first_ = samples.front();
    }
    differing_ |= HasAvx2() ? DifferingBitsAvx2(samples, first_) : DifferingBits(samples, first_);
}

bool ScaleToValidBits(std::span<std::uint16_t> samples, int valid_bits) {
    if (!IsValidBitCount(valid_bits)) return false;
    const int shift = 16 - valid_bits;
    if (shift == 0) return true;
    if (HasAvx2())
        ShiftDownAvx2(samples, shift);
    else
        ShiftDown(samples, shift);
    return true;
}

}  // namespace pixora
