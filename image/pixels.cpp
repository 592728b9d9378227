#include "image/pixels.h"

#include <bit>
#include <cstring>

namespace pixora {
namespace {

// Words of the files are copied as they stand in memory.
static_assert(std::endian::native == std::endian::little);

std::uint16_t Byte(std::byte value) {
    return std::to_integer<std::uint16_t>(value);
}

void Words(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    std::memcpy(samples.data(), stored.data(), stored.size());
}

// Two 12-bit values of three bytes, high bits first.
void Unpack12(const std::byte* stored, std::uint16_t& first, std::uint16_t& second) {
    const std::uint16_t b0 = Byte(stored[0]), b1 = Byte(stored[1]), b2 = Byte(stored[2]);
    first = static_cast<std::uint16_t>((b0 << 4) | (b1 >> 4));
    second = static_cast<std::uint16_t>(((b1 & 15) << 8) | b2);
}

void Mono12(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    for (std::size_t i = 0, o = 0; i + 3 <= stored.size(); i += 3, o += 2)
        Unpack12(&stored[i], samples[o], samples[o + 1]);
}

void Rgb12(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    for (std::size_t i = 0, o = 0; i + 9 <= stored.size(); i += 9, o += 6) {
        const std::byte* unit = &stored[i];
        Unpack12(unit, samples[o + 2], samples[o + 1]);      // red, green
        Unpack12(unit + 3, samples[o], samples[o + 5]);      // blue, red of the second pixel
        Unpack12(unit + 6, samples[o + 4], samples[o + 3]);  // green, blue
    }
}

void Rgb8(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    for (std::size_t i = 0; i + 3 <= stored.size(); i += 3) {
        samples[i] = Byte(stored[i + 2]);
        samples[i + 1] = Byte(stored[i + 1]);
        samples[i + 2] = Byte(stored[i]);
    }
}

void Bgrx8(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    for (std::size_t i = 0, o = 0; i + 4 <= stored.size(); i += 4, o += 3)
        for (std::size_t channel = 0; channel < 3; ++channel)
            samples[o + channel] = Byte(stored[i + channel]);
}

// One pixel is three words; a whole pixel at a time goes through one register, except for the last, beyond
// which eight bytes could not be read.
void Rgb16(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    const std::size_t pixels = stored.size() / 6;
    const std::byte* in = stored.data();
    std::uint16_t* out = samples.data();
    for (std::size_t pixel = 0; pixel + 1 < pixels; ++pixel, in += 6, out += 3) {
        std::uint64_t rgb = 0;
        std::memcpy(&rgb, in, sizeof rgb);
        const std::uint64_t bgr = ((rgb >> 32) & 0xFFFF) | (rgb & 0xFFFF0000) | ((rgb & 0xFFFF) << 32);
        std::memcpy(out, &bgr, sizeof bgr);  // the two bytes too many are the next pixel's
    }
    if (pixels == 0) return;
    std::uint16_t last[3];
    std::memcpy(last, in, sizeof last);
    out[0] = last[2];
    out[1] = last[1];
    out[2] = last[0];
}

}  // namespace

void DecodePixels(PixelLayout layout, std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    switch (layout) {
        case PixelLayout::mono8:
            for (std::size_t i = 0; i < stored.size(); ++i) samples[i] = Byte(stored[i]);
            break;
        case PixelLayout::mono12:
            Mono12(stored, samples);
            break;
        case PixelLayout::mono14:
            Words(stored, samples);
            for (std::uint16_t& sample : samples) sample = static_cast<std::uint16_t>(sample >> 2);
            break;
        case PixelLayout::mono10:
        case PixelLayout::mono16:
            Words(stored, samples);
            break;
        case PixelLayout::rgb8:
            Rgb8(stored, samples);
            break;
        case PixelLayout::rgb12:
            Rgb12(stored, samples);
            break;
        case PixelLayout::rgb16:
            Rgb16(stored, samples);
            break;
        case PixelLayout::bgrx8:
            Bgrx8(stored, samples);
            break;
    }
}

void NarrowSamples(std::span<const std::uint16_t> samples, int shift, std::span<std::byte> bytes) {
    for (std::size_t i = 0; i < samples.size(); ++i)
        bytes[i] = static_cast<std::byte>((samples[i] >> shift) & 0xFF);
}

void RepeatGrey(std::span<const std::byte> grey, std::span<std::byte> triples) {
    std::size_t i = 0;
    for (; i + 4 <= grey.size(); i += 4) {  // four pixels make three words
        const auto a = std::to_integer<std::uint32_t>(grey[i]),
                   b = std::to_integer<std::uint32_t>(grey[i + 1]);
        const auto c = std::to_integer<std::uint32_t>(grey[i + 2]),
                   d = std::to_integer<std::uint32_t>(grey[i + 3]);
        const std::uint32_t words[] = {a * 0x010101 | b << 24, b * 0x0101 | c * 0x01010000,
                                       c | d * 0x01010100};
        std::memcpy(&triples[3 * i], words, sizeof words);
    }
    for (; i < grey.size(); ++i) triples[3 * i] = triples[3 * i + 1] = triples[3 * i + 2] = grey[i];
}

void RepeatGrey(std::span<const std::uint16_t> grey, std::span<std::uint16_t> triples) {
    for (std::size_t i = 0; i < grey.size(); ++i)
        triples[3 * i] = triples[3 * i + 1] = triples[3 * i + 2] = grey[i];
}

bool HasColour(std::span<const std::byte> triples) {
    std::size_t i = 0;
    for (; i + 3 <= triples.size(); i += 3)
        if (triples[i] != triples[i + 1] || triples[i + 1] != triples[i + 2]) return true;
    for (; i < triples.size(); ++i)
        if (triples[i] != std::byte{}) return true;
    return false;
}

}  // namespace pixora
