// How many bits of a 16-bit sample carry signal, and the scaling that follows from it.
#pragma once

#include <cstdint>
#include <span>

namespace pixora {

/// True for 8, 10, 12, 14 and 16, the only counts of valid bits.
[[nodiscard]] constexpr bool IsValidBitCount(int bits) {
    return bits == 8 || bits == 10 || bits == 12 || bits == 14 || bits == 16;
}

/// The largest sample value of `bits` valid bits: 255, 1023, 4095, 16383 or 65535; 255 for any other count.
[[nodiscard]] constexpr std::uint16_t MaxSampleValue(std::uint32_t bits) {
    const bool known = bits <= 16 && IsValidBitCount(static_cast<int>(bits));
    return static_cast<std::uint16_t>((1u << (known ? bits : 8u)) - 1u);
}

/// The valid bits of samples: the lowest group of bits that never changes over the whole image is padding
/// below them.
/// @param differing  every bit in which some sample differs from another.
/// @return 8 when none of the low 8 bits differs, else 10, 12 or 14 for the low 6, 4 or 2 bits, else 16.
[[nodiscard]] int ValidBitsOf(std::uint16_t differing);

/// Finds the valid bits from the samples themselves. Samples can be added in any number of pieces.
class ValidBitsDetector {
public:
    void Add(std::span<const std::uint16_t> samples);

    /// @return 8 when there was no sample at all.
    [[nodiscard]] int Bits() const { return ValidBitsOf(differing_); }

private:
    bool has_first_ = false;
    std::uint16_t first_ = 0;      // the comparison is with the first sample, not with zero
    std::uint16_t differing_ = 0;  // every bit in which some sample differed from the first
};

/// Divides 16-bit samples down to their valid bits, truncating, in place.
/// @param samples     any number of container values; 0 .. 2^valid_bits - 1 afterwards.
/// @param valid_bits  how many upper bits of a sample carry signal: 8, 10, 12, 14 or 16.
/// @return false, with `samples` untouched, for any other number of bits.
[[nodiscard]] bool ScaleToValidBits(std::span<std::uint16_t> samples, int valid_bits);

}  // namespace pixora
