#include <doctest/doctest.h>

#include <random>
#include <vector>

#include "analysis/stored_counts.h"
#include "analysis/stored_sums.h"
#include "image/stored_pixels.h"
#include "image/valid_bits.h"

using namespace pixora;

namespace {

constexpr PixelLayout kLayouts[] = {PixelLayout::mono8,  PixelLayout::mono10, PixelLayout::mono12,
                                    PixelLayout::mono14, PixelLayout::mono16, PixelLayout::rgb8,
                                    PixelLayout::rgb12,  PixelLayout::rgb16,  PixelLayout::bgr8,
                                    PixelLayout::bgr16,  PixelLayout::bgrx8};

enum class Fill { noise, zeros, ones, one_low_bit };

std::vector<std::byte> Filled(std::size_t bytes, Fill fill, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<std::byte> stored(bytes);
    for (std::byte& byte : stored) {
        const auto value = static_cast<std::byte>(random() & 0xFF);
        byte = fill == Fill::noise ? value : fill == Fill::ones ? std::byte{0xFF} : std::byte{};
    }
    if (fill == Fill::one_low_bit && bytes > 0) stored[bytes / 2] = std::byte{1};
    return stored;
}

std::uint16_t Byte(std::byte byte) {
    return std::to_integer<std::uint16_t>(byte);
}

// The samples of one pixel after the other, blue, green, red or grey, by what the layouts are.
std::vector<std::uint16_t> Plain(const StoredPixels& pixels) {
    const auto at = [&](std::size_t i) { return Byte(pixels.bytes[i]); };
    const auto packed = [&](std::size_t sample) {
        const std::size_t i = sample / 2 * 3;
        return static_cast<std::uint16_t>(sample % 2 == 0 ? at(i) << 4 | at(i + 1) >> 4
                                                          : (at(i + 1) & 15) << 8 | at(i + 2));
    };
    const auto word = [&](std::size_t sample) {
        return static_cast<std::uint16_t>(at(2 * sample) | at(2 * sample + 1) << 8);
    };
    std::vector<std::uint16_t> samples;
    for (std::size_t i = 0; i < pixels.Pixels(); ++i) {
        const auto channels = [&](auto sample, std::size_t c0, std::size_t c1, std::size_t c2) {
            for (const std::size_t c : {c0, c1, c2}) samples.push_back(sample(c));
        };
        if (pixels.palette) {
            const auto& colour = pixels.palette->colours[at(i)];
            for (std::size_t c = 0; c < pixels.Channels(); ++c) samples.push_back(colour[c]);
            continue;
        }
        switch (pixels.layout) {
            case PixelLayout::mono8:
                samples.push_back(at(i));
                break;
            case PixelLayout::mono12:
                samples.push_back(packed(i));
                break;
            case PixelLayout::mono10:
            case PixelLayout::mono16:
                samples.push_back(word(i));
                break;
            case PixelLayout::mono14:
                samples.push_back(static_cast<std::uint16_t>(word(i) >> 2));
                break;
            case PixelLayout::rgb8:
                channels(at, 3 * i + 2, 3 * i + 1, 3 * i);
                break;
            case PixelLayout::rgb12:
                channels(packed, 3 * i + 2, 3 * i + 1, 3 * i);
                break;
            case PixelLayout::rgb16:
                channels(word, 3 * i + 2, 3 * i + 1, 3 * i);
                break;
            case PixelLayout::bgr16:
                channels(word, 3 * i, 3 * i + 1, 3 * i + 2);
                break;
            case PixelLayout::bgr8:
                channels(at, 3 * i, 3 * i + 1, 3 * i + 2);
                break;
            case PixelLayout::bgrx8:
                channels(at, 4 * i, 4 * i + 1, 4 * i + 2);
                break;
        }
    }
    return samples;
}

SampleSums PlainSums(const std::vector<std::uint16_t>& samples, std::size_t place, std::size_t channels) {
    SampleSums sums;
    for (std::size_t i = place; i < samples.size(); i += channels) sums.Add(samples[i], 1);
    return sums;
}

HistogramCounts Bins(std::size_t channels, std::size_t bins) {
    HistogramCounts counts;
    for (std::size_t place = 0; place < channels; ++place) counts[place].assign(bins, 0);
    return counts;
}

void CheckAll(const StoredPixels& pixels) {
    const std::vector<std::uint16_t> samples = Plain(pixels);
    const std::size_t channels = pixels.Channels();
    std::vector<std::uint16_t> decoded(samples.size());
    DecodeStored(pixels, decoded);
    CHECK(decoded == samples);

    // All at once, and in pieces, as blocks and rows come.
    const std::size_t unit = UnitOf(pixels.layout).bytes, cut = pixels.bytes.size() / 3 / unit * unit;
    StoredSums whole, pieces;
    StoredCounts counted;
    whole.Add(pixels);
    for (const StoredPixels& piece : {pixels.Part(0, cut), pixels.Part(cut, pixels.bytes.size() - cut)}) {
        pieces.Add(piece);
        counted.Add(piece);
    }
    HistogramCounts counts = Bins(channels, 65536), expected = Bins(channels, 65536);
    counted.AddTo(counts);
    for (std::size_t i = 0; i < samples.size(); ++i) ++expected[i % channels][samples[i]];
    for (std::size_t place = 0; place < channels; ++place) {
        CAPTURE(place);
        const SampleSums sums = PlainSums(samples, place, channels);
        CHECK(whole.Channels()[place] == sums);
        CHECK(pieces.Channels()[place] == sums);
        CHECK(counts[place] == expected[place]);
    }
}

}  // namespace

TEST_CASE("stored pixels of every layout and number are added up and counted like their samples") {
    for (const PixelLayout layout : kLayouts)
        for (const Fill fill : {Fill::noise, Fill::zeros, Fill::ones})
            for (const std::size_t units : {0, 1, 2, 3, 5, 16, 31, 33, 64, 97, 129, 1000, 4099}) {
                CAPTURE(static_cast<int>(layout));
                CAPTURE(static_cast<int>(fill));
                CAPTURE(units);
                const auto bytes = Filled(units * UnitOf(layout).bytes, fill, static_cast<unsigned>(units));
                CheckAll({layout, bytes});
            }
}

TEST_CASE("sums of stored pixels do not overflow in one large piece") {
    for (const PixelLayout layout : kLayouts)
        for (const Fill fill : {Fill::noise, Fill::zeros, Fill::ones}) {
            CAPTURE(static_cast<int>(layout));
            CAPTURE(static_cast<int>(fill));
            const auto bytes = Filled(std::size_t{750'000} * UnitOf(layout).bytes, fill, 7);
            CheckAll({layout, bytes});
        }
}

TEST_CASE("indices are added up and counted as the colours they stand for") {
    std::mt19937 random(3);
    Palette colours, greys;
    for (std::size_t i = 0; i < 256; ++i) {
        const auto level = [&] { return static_cast<std::uint8_t>(random() & 0xFF); };
        colours.Set(i, level(), level(), level());
        const auto grey = static_cast<std::uint8_t>(255 - i);
        greys.Set(i, grey, grey, grey);
    }
    CHECK_FALSE(colours.grey);
    CHECK(greys.grey);
    CHECK_FALSE(greys.plain);
    for (const Palette* palette : {&colours, &greys})
        for (const std::size_t count : {0, 1, 63, 64, 65, 129, 5000, 1'000'000}) {
            CAPTURE(count);
            const auto bytes = Filled(count, Fill::noise, 5);
            const StoredPixels pixels{PixelLayout::mono8, bytes, palette};
            CHECK(pixels.Channels() == (palette == &colours ? 3 : 1));
            CheckAll(pixels);
        }
}

TEST_CASE("the bits in which stored words differ are those of all samples") {
    for (const PixelLayout layout : {PixelLayout::mono16, PixelLayout::rgb16})
        for (const std::size_t pixels : {1, 2, 100, 1000})
            for (const Fill fill : {Fill::noise, Fill::zeros, Fill::ones, Fill::one_low_bit})
                for (const bool zeros_follow : {false, true}) {
                    const auto bytes = Filled(pixels * UnitOf(layout).bytes, fill, 11);
                    const StoredPixels stored{layout, bytes};
                    std::uint16_t differing = 0;
                    const auto samples = Plain(stored);
                    for (const std::uint16_t sample : samples)
                        differing = static_cast<std::uint16_t>(differing | (sample ^ samples[0]));
                    if (zeros_follow) differing |= samples[0];
                    StoredSums sums;
                    sums.Add(stored);
                    CHECK(sums.DifferingBits(zeros_follow) == differing);
                    StoredCounts counts;
                    counts.Add(stored);
                    CHECK(counts.DifferingBits(zeros_follow) == differing);
                }
}

TEST_CASE("low bits that are alike in all samples are dropped from sums and counts") {
    for (const PixelLayout layout : {PixelLayout::mono16, PixelLayout::rgb16})
        for (const int bits : {8, 10, 12, 14, 16})
            for (const unsigned low : {0x0000u, 0xFFFFu, 0x5A5Au}) {
                CAPTURE(bits);
                CAPTURE(low);
                const int shift = 16 - bits;
                const unsigned mask = (1u << shift) - 1;
                auto bytes = Filled(std::size_t{3000} * UnitOf(layout).bytes, Fill::noise, 13);
                for (std::size_t i = 0; i < bytes.size(); i += 2) {
                    bytes[i] = (bytes[i] & static_cast<std::byte>(~mask & 0xFF)) |
                               static_cast<std::byte>(low & mask & 0xFF);
                    bytes[i + 1] = (bytes[i + 1] & static_cast<std::byte>(~(mask >> 8) & 0xFF)) |
                                   static_cast<std::byte>((low & mask) >> 8);
                }
                const StoredPixels stored{layout, bytes};
                auto samples = Plain(stored);
                const std::size_t channels = stored.Channels();
                StoredSums sums;
                sums.Add(stored);
                CHECK(ValidBitsOf(sums.DifferingBits(false)) == bits);
                sums.DropLowBits(shift);
                StoredCounts counted;
                counted.Add(stored);
                counted.DropLowBits(shift);
                HistogramCounts counts = Bins(channels, std::size_t{1} << bits), expected = counts;
                counted.AddTo(counts);
                REQUIRE(ScaleToValidBits(samples, bits));
                for (std::size_t i = 0; i < samples.size(); ++i) ++expected[i % channels][samples[i]];
                for (std::size_t place = 0; place < channels; ++place) {
                    CHECK(sums.Channels()[place] == PlainSums(samples, place, channels));
                    CHECK(counts[place] == expected[place]);
                }
            }
}

TEST_CASE("counts beyond the last bin go to it, and channels without bins get none") {
    const std::vector<std::byte> bytes{std::byte{9}, std::byte{1}, std::byte{2}, std::byte{200}};
    StoredCounts counted;
    counted.Add({PixelLayout::mono16, bytes});
    HistogramCounts counts = Bins(1, 256);
    counts[0][255] = 5;
    counted.AddTo(counts);
    CHECK(counts[0][255] == 7);
    CHECK(counts[1].empty());
    counts = Bins(3, 256);
    StoredCounts nothing;
    nothing.AddZeros(3);
    nothing.AddTo(counts);
    for (std::size_t place = 0; place < 3; ++place) CHECK(counts[place][0] == 3);
    StoredSums zeros;
    zeros.AddZeros(4);
    CHECK(zeros.Channels()[2] == SampleSums{.count = 4, .values = 0, .squares = 0, .min = 0, .max = 0});
}

TEST_CASE("a set of bytes knows each of its members among many others") {
    for (int member = 0; member < 256; ++member) {
        CAPTURE(member);
        ByteSet set;
        CHECK(set.IsEmpty());
        set.Insert(static_cast<std::uint8_t>(member));
        CHECK_FALSE(set.IsEmpty());
        for (int value = 0; value < 256; ++value) {
            std::vector<std::byte> bytes(4096, static_cast<std::byte>(member ^ 0x80));
            bytes[100] = static_cast<std::byte>(value);
            if (set.HasAnyOf(bytes) != (value == member)) FAIL_CHECK(value);
            if (set.Has(static_cast<std::uint8_t>(value)) != (value == member)) FAIL_CHECK(value);
        }
    }
}

TEST_CASE("colour is found in the pixels that are there") {
    Palette palette;
    for (std::size_t i = 0; i < 256; ++i) palette.Set(i, 1, 1, i == 9 ? 2 : 1);
    const auto has = [](PixelLayout layout, std::vector<int> values, const Palette* colours = nullptr) {
        std::vector<std::byte> bytes;
        for (const int value : values) bytes.push_back(static_cast<std::byte>(value));
        return HasColour(StoredPixels{layout, bytes, colours});
    };
    CHECK_FALSE(has(PixelLayout::mono8, {1, 2, 3}));
    CHECK_FALSE(has(PixelLayout::bgr8, {1, 1, 1, 2, 2, 2}));
    CHECK(has(PixelLayout::bgr8, {1, 1, 1, 2, 2, 3}));
    CHECK_FALSE(has(PixelLayout::bgrx8, {1, 1, 1, 9, 2, 2, 2, 0}));
    CHECK(has(PixelLayout::bgrx8, {1, 1, 1, 9, 2, 3, 2, 0}));
    CHECK(has(PixelLayout::bgrx8, {4, 4, 5, 5}));
    CHECK_FALSE(has(PixelLayout::mono8, {1, 2, 3}, &palette));
    CHECK(has(PixelLayout::mono8, {1, 9, 3}, &palette));
    for (const std::size_t place :
         {std::size_t{0}, std::size_t{4095}, std::size_t{4096}, std::size_t{9000}}) {
        std::vector<int> indices(9001, 200);
        CHECK_FALSE(has(PixelLayout::mono8, indices, &palette));
        indices[place] = 9;
        CHECK(has(PixelLayout::mono8, indices, &palette));
    }
    std::vector<int> many(4 * 5000, 7);
    CHECK_FALSE(has(PixelLayout::bgrx8, many));
    many[4 * 4999] = 8;
    CHECK(has(PixelLayout::bgrx8, many));
}
