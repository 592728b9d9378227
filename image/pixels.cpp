#include "image/pixels.h"

#include <bit>
#include <utility>

#include "image/pixels_x86.h"
#include "image/unpack_x86.h"

namespace pixora {
namespace {

// Words of the files are used as they stand in memory.
static_assert(std::endian::native == std::endian::little);

std::uint16_t Byte(std::byte value) {
    return std::to_integer<std::uint16_t>(value);
}

// Two 12-bit values of three bytes, high bits first.
void Unpack12(const std::byte* stored, std::uint16_t& first, std::uint16_t& second) {
    const std::uint16_t b0 = Byte(stored[0]), b1 = Byte(stored[1]), b2 = Byte(stored[2]);
    first = static_cast<std::uint16_t>((b0 << 4) | (b1 >> 4));
    second = static_cast<std::uint16_t>(((b1 & 15) << 8) | b2);
}

void Mono8(std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    for (std::size_t i = 0; i < stored.size(); ++i) samples[i] = Byte(stored[i]);
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

}  // namespace

void DecodePixels(PixelLayout layout, std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    if (layout == PixelLayout::bgr8) layout = PixelLayout::mono8;  // every byte is a sample
    const std::size_t done = x86::Unpack(layout, stored, samples);
    const PixelUnit unit = UnitOf(layout);
    stored = stored.subspan(done);
    samples = samples.subspan(done / unit.bytes * unit.pixels * ChannelsOf(layout));
    switch (layout) {
        case PixelLayout::mono8:
            return Mono8(stored, samples);
        case PixelLayout::mono12:
            return Mono12(stored, samples);
        case PixelLayout::rgb8:
            return Rgb8(stored, samples);
        case PixelLayout::rgb12:
            return Rgb12(stored, samples);
        case PixelLayout::bgrx8:
            return Bgrx8(stored, samples);
        case PixelLayout::mono10:
        case PixelLayout::mono14:
        case PixelLayout::mono16:
        case PixelLayout::rgb16:
        case PixelLayout::bgr8:
        case PixelLayout::bgr16:
            break;
    }
}

void DecodeWords(PixelLayout layout, std::span<std::uint16_t> samples) {
    if (layout == PixelLayout::rgb16) SwapRedAndBlue(samples);
    if (layout == PixelLayout::mono14)
        for (std::uint16_t& sample : samples) sample = static_cast<std::uint16_t>(sample >> 2);
}

void SwapRedAndBlue(std::span<std::uint16_t> samples) {
    for (std::size_t i = x86::SwapRedAndBlue(samples); i + 3 <= samples.size(); i += 3)
        std::swap(samples[i], samples[i + 2]);
}

void NarrowSamples(std::span<const std::uint16_t> samples, int shift, std::span<std::byte> bytes) {
    for (std::size_t i = x86::NarrowSamples(samples, shift, bytes); i < samples.size(); ++i)
        bytes[i] = static_cast<std::byte>((samples[i] >> shift) & 0xFF);
}

void NarrowGrey(std::span<const std::uint16_t> grey, int shift, std::span<std::byte> triples) {
    for (std::size_t i = x86::NarrowGrey(grey, shift, triples); i < grey.size(); ++i)
        triples[3 * i] = triples[3 * i + 1] = triples[3 * i + 2] =
            static_cast<std::byte>((grey[i] >> shift) & 0xFF);
}

void RepeatGrey(std::span<const std::uint16_t> grey, std::span<std::uint16_t> triples) {
    for (std::size_t i = x86::RepeatGrey(grey, triples); i < grey.size(); ++i)
        triples[3 * i] = triples[3 * i + 1] = triples[3 * i + 2] = grey[i];
}

bool HasColour(std::span<const std::byte> triples) {
    bool colour = false;
    std::size_t i = x86::FindColour(triples, colour);
    if (colour) return true;
    for (; i + 3 <= triples.size(); i += 3)
        if (triples[i] != triples[i + 1] || triples[i + 1] != triples[i + 2]) return true;
    for (; i < triples.size(); ++i)
        if (triples[i] != std::byte{}) return true;
    return false;
}

}  // namespace pixora
