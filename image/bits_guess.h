// Scaling samples by their valid bits while these are still being found.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "image/valid_bits.h"

namespace pixora {

/// The valid bits by which samples are scaled: given beforehand, or guessed from the first piece.
class BitsGuess {
public:
    explicit BitsGuess(int given_bits) : automatic_(!IsValidBitCount(given_bits)), bits_(given_bits) {}

    /// Looks at the next samples as they are stored. @return false once any has proved the guess wrong.
    bool Add(std::span<const std::uint16_t> samples) {
        if (!automatic_) return true;
        detector_.Add(samples);
        if (!IsValidBitCount(bits_)) bits_ = detector_.Bits();
        failed_ = failed_ || detector_.Bits() != bits_;
        return !failed_;
    }
    /// The same for the zeros that a short file lacks.
    bool AddMissing() { return Add(std::array<std::uint16_t, 1>{}); }

    /// Guesses anew by what has been seen so far, if anything has.
    void Mend() {
        if (failed_) bits_ = detector_.Bits();
        failed_ = false;
    }

    [[nodiscard]] bool Automatic() const { return automatic_; }
    [[nodiscard]] bool Failed() const { return failed_; }
    /// True when no further sample can change anything.
    [[nodiscard]] bool Settled() const { return !automatic_ || detector_.Bits() == 16; }
    [[nodiscard]] int Bits() const { return bits_; }

private:
    bool automatic_;
    int bits_;
    bool failed_ = false;
    ValidBitsDetector detector_;
};

}  // namespace pixora
