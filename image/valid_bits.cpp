#include "image/valid_bits.h"

namespace pixora {

void ValidBitsDetector::Add(std::span<const std::uint16_t> samples) {
    if (samples.empty() || Bits() == 16) return;  // nothing can change 16 any more
    if (!has_first_) {
        has_first_ = true;
        first_ = samples.front();
    }
    std::uint16_t differing = differing_;
    for (const std::uint16_t sample : samples) differing |= static_cast<std::uint16_t>(sample ^ first_);
    differing_ = differing;
}

int ValidBitsDetector::Bits() const {
    if ((differing_ & 0xFF) == 0) return 8;
    if ((differing_ & 0x3F) == 0) return 10;
    if ((differing_ & 0x0F) == 0) return 12;
    if ((differing_ & 0x03) == 0) return 14;
    return 16;
}

bool ScaleToValidBits(std::span<std::uint16_t> samples, int valid_bits) {
    if (!IsValidBitCount(valid_bits)) return false;
    const int shift = 16 - valid_bits;
    if (shift == 0) return true;
    for (std::uint16_t& sample : samples) sample = static_cast<std::uint16_t>(sample >> shift);
    return true;
}

}  // namespace pixora
