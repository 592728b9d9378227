#include "image/valid_bits.h"

#include <doctest/doctest.h>

#include <vector>

using namespace pixora;

namespace {

int Detect(const std::vector<std::uint16_t>& samples) {
    ValidBitsDetector detector;
    detector.Add(samples);
    return detector.Bits();
}

}  // namespace

TEST_CASE("the low bits that never change are padding") {
    CHECK(Detect({}) == 8);
    CHECK(Detect({0x1234}) == 8);
    CHECK(Detect({0, 0, 0}) == 8);
    CHECK(Detect({0x0000, 0x0040, 0xFFC0}) == 10);
    CHECK(Detect({0x0010, 0xFFF0, 0x1230}) == 12);
    CHECK(Detect({0x0004, 0xFFF8}) == 14);
    CHECK(Detect({0x0001, 0xFFFE}) == 16);
    CHECK(Detect({0x0000, 0x0001}) == 16);
    CHECK(Detect({0x0000, 0x0002}) == 16);
}

TEST_CASE("padding is compared with the first sample, not with zero") {
    CHECK(Detect({0x00FF, 0x12FF}) == 8);
    CHECK(Detect({0x003F, 0x007F, 0xFFBF}) == 10);
    CHECK(Detect({0x000F, 0x002F}) == 12);
    CHECK(Detect({0x0003, 0x0007}) == 14);
}

TEST_CASE("samples in pieces give the same answer") {
    ValidBitsDetector detector;
    const std::vector<std::uint16_t> first{0x0100}, second{0x0140}, third{0x0150};
    detector.Add(first);
    CHECK(detector.Bits() == 8);
    detector.Add(second);
    CHECK(detector.Bits() == 10);
    detector.Add({});
    detector.Add(third);
    CHECK(detector.Bits() == 12);
}

TEST_CASE("container values are divided down to their valid bits") {
    for (const auto& [bits, expected] :
         {std::pair{16, 0xFFC7}, {14, 0x3FF1}, {12, 0x0FFC}, {10, 0x03FF}, {8, 0xFF}}) {
        std::vector<std::uint16_t> samples{0xFFC7};
        CHECK(ScaleToValidBits(samples, bits));
        CHECK(samples[0] == expected);
    }
}

TEST_CASE("other numbers of valid bits leave the samples alone") {
    for (const int bits : {0, 1, 7, 9, 11, 15, 17, 32, -8}) {
        std::vector<std::uint16_t> samples{0xABCD};
        CHECK_FALSE(ScaleToValidBits(samples, bits));
        CHECK(samples[0] == 0xABCD);
    }
}

TEST_CASE("the largest sample value follows the bits, 255 for an unknown number") {
    CHECK(MaxSampleValue(8) == 255);
    CHECK(MaxSampleValue(10) == 1023);
    CHECK(MaxSampleValue(12) == 4095);
    CHECK(MaxSampleValue(14) == 16383);
    CHECK(MaxSampleValue(16) == 65535);
    for (const std::uint32_t bits : {0u, 9u, 32u, 0xFFFFFFFFu}) CHECK(MaxSampleValue(bits) == 255);
}
