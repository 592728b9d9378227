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

}  // namespace

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
    for (const std::size_t count :
         {std::size_t{1}, std::size_t{5}, std::size_t{16}, std::size_t{17}, std::size_t{40}}) {
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
