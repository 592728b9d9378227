#include "image/pixels.h"

#include <doctest/doctest.h>

#include <random>
#include <vector>

using namespace pixora;

namespace {

using Samples = std::vector<std::uint16_t>;
using Stored = std::vector<std::byte>;

// Lengths around the sizes of the blocks that are handled at once, so that every remainder is met.
std::vector<std::size_t> Lengths() {
    std::vector<std::size_t> lengths;
    for (std::size_t length = 0; length <= 70; ++length) lengths.push_back(length);
    lengths.push_back(1000);
    return lengths;
}

Samples Random(std::size_t count) {
    static std::mt19937 random(11);
    Samples samples(count);
    for (std::uint16_t& sample : samples) sample = static_cast<std::uint16_t>(random());
    return samples;
}

Stored RandomBytes(std::size_t count) {
    Stored bytes(count);
    const Samples samples = Random(count);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<std::byte>(samples[i] & 0xFF);
    return bytes;
}

// Sample `index` of packed 12-bit samples, as their digits stand one after another.
std::uint16_t Packed12(const Stored& stored, std::size_t index) {
    std::uint16_t value = 0;
    for (std::size_t digit = 3 * index; digit < 3 * index + 3; ++digit) {
        const auto byte = std::to_integer<unsigned>(stored[digit / 2]);
        value = static_cast<std::uint16_t>(16 * value + (digit % 2 == 0 ? byte / 16 : byte % 16));
    }
    return value;
}

// What sample `i` of a decoded image must be.
std::uint16_t Expected(PixelLayout layout, const Stored& stored, std::size_t i) {
    const std::size_t turned = i / 3 * 3 + 2 - i % 3;
    switch (layout) {
        case PixelLayout::mono12:
            return Packed12(stored, i);
        case PixelLayout::rgb12:
            return Packed12(stored, turned);
        case PixelLayout::rgb8:
            return std::to_integer<std::uint16_t>(stored[turned]);
        case PixelLayout::bgrx8:
            return std::to_integer<std::uint16_t>(stored[i / 3 * 4 + i % 3]);
        default:
            return std::to_integer<std::uint16_t>(stored[i]);
    }
}

}  // namespace

TEST_CASE("stored bytes become samples, whatever their number and place") {
    for (const PixelLayout layout : {PixelLayout::mono8, PixelLayout::mono12, PixelLayout::rgb8,
                                     PixelLayout::rgb12, PixelLayout::bgrx8}) {
        const PixelUnit unit = UnitOf(layout);
        for (const std::size_t units : Lengths()) {
            CAPTURE(static_cast<int>(layout));
            CAPTURE(units);
            const Stored stored = RandomBytes(units * unit.bytes);
            Samples samples(units * unit.pixels * ChannelsOf(layout));
            DecodePixels(layout, stored, samples);
            bool right = true;
            for (std::size_t i = 0; i < samples.size(); ++i)
                right = right && samples[i] == Expected(layout, stored, i);
            CHECK(right);
        }
    }
}

TEST_CASE("red and blue change places in every pixel") {
    for (const std::size_t pixels : Lengths()) {
        CAPTURE(pixels);
        const Samples before = Random(3 * pixels);
        Samples after = before;
        SwapRedAndBlue(after);
        bool right = true;
        for (std::size_t i = 0; i < before.size(); i += 3)
            right = right && after[i] == before[i + 2] && after[i + 1] == before[i + 1] &&
                    after[i + 2] == before[i];
        CHECK(right);
    }
}

TEST_CASE("eight bits of each sample are taken, from any place") {
    for (const std::size_t count : Lengths()) {
        for (const int shift : {0, 2, 4, 8}) {
            CAPTURE(count);
            CAPTURE(shift);
            const Samples samples = Random(count);
            Stored bytes(count), triples(3 * count);
            NarrowSamples(samples, shift, bytes);
            NarrowGrey(samples, shift, triples);
            bool right = true;
            for (std::size_t i = 0; i < count; ++i) {
                const auto expected = static_cast<std::byte>((samples[i] / (1 << shift)) % 256);
                right = right && bytes[i] == expected && triples[3 * i] == expected &&
                        triples[3 * i + 1] == expected && triples[3 * i + 2] == expected;
            }
            CHECK(right);
        }
    }
}

TEST_CASE("grey samples are repeated three times") {
    for (const std::size_t count : Lengths()) {
        CAPTURE(count);
        const Samples grey = Random(count);
        Samples triples(3 * count);
        RepeatGrey(grey, triples);
        bool right = true;
        for (std::size_t i = 0; i < triples.size(); ++i) right = right && triples[i] == grey[i / 3];
        CHECK(right);
    }
}

TEST_CASE("one channel that differs anywhere makes pixels coloured") {
    for (const std::size_t count : {std::size_t{1}, std::size_t{5}, std::size_t{32}, std::size_t{33},
                                    std::size_t{70}, std::size_t{600}}) {
        Stored triples(3 * count);
        for (std::size_t i = 0; i < triples.size(); ++i) triples[i] = static_cast<std::byte>(i / 3);
        CHECK_FALSE(HasColour(triples));
        for (std::size_t i = 0; i < triples.size(); ++i) {
            CAPTURE(count);
            CAPTURE(i);
            triples[i] ^= std::byte{0x80};
            CHECK(HasColour(triples));
            triples[i] ^= std::byte{0x80};
        }
    }
    CHECK_FALSE(HasColour({}));
}

TEST_CASE("a piece of a pixel at the end counts as if zeros followed") {
    CHECK(HasColour(Stored{std::byte{1}}));
    CHECK(HasColour(Stored{std::byte{0}, std::byte{1}}));
    CHECK_FALSE(HasColour(Stored{std::byte{0}, std::byte{0}}));
}

TEST_CASE("layouts that store words are decoded in place") {
    Samples samples{0x0104, 0x0208, 0x0310};
    DecodeWords(PixelLayout::mono16, samples);
    DecodeWords(PixelLayout::mono10, samples);
    CHECK(samples == Samples{0x0104, 0x0208, 0x0310});
    DecodeWords(PixelLayout::mono14, samples);
    CHECK(samples == Samples{0x0041, 0x0082, 0x00C4});
    DecodeWords(PixelLayout::rgb16, samples);
    CHECK(samples == Samples{0x00C4, 0x0082, 0x0041});
    CHECK(StoresWords(PixelLayout::rgb16));
    CHECK(StoresWords(PixelLayout::mono14));
    CHECK_FALSE(StoresWords(PixelLayout::rgb12));
    CHECK_FALSE(StoresWords(PixelLayout::mono8));
    CHECK_FALSE(StoresWords(PixelLayout::bgrx8));
}
