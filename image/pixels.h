// Turning stored pixels into samples, block by block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixora {

/// How pixels are stored in a file. Words are little-endian, whatever the byte order of the header.
enum class PixelLayout {
    mono8,   ///< one byte a pixel
    mono10,  ///< one 16-bit word a pixel
    mono12,  ///< two pixels in three bytes, high bits first
    mono14,  ///< one 16-bit word a pixel, its two low bits dropped
    mono16,  ///< one 16-bit word a pixel
    rgb8,    ///< three bytes a pixel: red, green, blue
    rgb12,   ///< two pixels in nine bytes, packed like mono12
    rgb16,   ///< three 16-bit words a pixel: red, green, blue
    bgr8,    ///< three bytes a pixel: blue, green, red
    bgr16,   ///< three 16-bit words a pixel: blue, green, red
    bgrx8,   ///< four bytes a pixel: blue, green, red, not used
};

/// The smallest piece of a layout that can be decoded by itself.
struct PixelUnit {
    std::size_t bytes;   ///< in the file
    std::size_t pixels;  ///< 1 or 2
};
[[nodiscard]] constexpr PixelUnit UnitOf(PixelLayout layout) {
    switch (layout) {
        case PixelLayout::mono8:
            return {1, 1};
        case PixelLayout::mono10:
        case PixelLayout::mono14:
        case PixelLayout::mono16:
            return {2, 1};
        case PixelLayout::mono12:
            return {3, 2};
        case PixelLayout::rgb8:
        case PixelLayout::bgr8:
            return {3, 1};
        case PixelLayout::rgb12:
            return {9, 2};
        case PixelLayout::rgb16:
        case PixelLayout::bgr16:
            return {6, 1};
        case PixelLayout::bgrx8:
            return {4, 1};
    }
    return {1, 1};
}

/// Samples that a pixel of the layout decodes to: 1 for a grey one, 3 for a colour one.
[[nodiscard]] constexpr std::size_t ChannelsOf(PixelLayout layout) {
    return layout >= PixelLayout::rgb8 ? 3 : 1;
}

/// True for colour layouts whose pixels are red, green, blue.
[[nodiscard]] constexpr bool IsRedFirst(PixelLayout layout) {
    return layout == PixelLayout::rgb8 || layout == PixelLayout::rgb12 || layout == PixelLayout::rgb16;
}

/// True for layouts whose samples are stored as 16-bit words; they can be decoded where they stand.
[[nodiscard]] constexpr bool StoresWords(PixelLayout layout) {
    return UnitOf(layout).bytes == 2 * ChannelsOf(layout);
}

/// True for those of them whose words are the samples themselves.
[[nodiscard]] constexpr bool StoresSamples(PixelLayout layout) {
    return StoresWords(layout) && layout != PixelLayout::mono14;
}

/// How many samples are best decoded at a time: a piece stays in the processor's nearest cache while each
/// step of a conversion passes over it. Whole pixels and units of every layout, and whole registers.
inline constexpr std::size_t kPieceSamples = 7680;

/// Decodes whole units of a layout that does not store words.
/// @param stored   a whole number of units.
/// @param samples  as many pixels as the units hold, ChannelsOf(layout) samples each, colour as blue, green,
///                 red; values as stored, without any scaling.
void DecodePixels(PixelLayout layout, std::span<const std::byte> stored, std::span<std::uint16_t> samples);

/// The same, in place, for a layout that stores words.
void DecodeWords(PixelLayout layout, std::span<std::uint16_t> samples);

/// Exchanges the first and the third sample of every pixel; three samples a pixel.
void SwapRedAndBlue(std::span<std::uint16_t> samples);

/// Takes eight bits of every sample: bytes[i] = (samples[i] >> shift) & 255. Both spans have the same size.
void NarrowSamples(std::span<const std::uint16_t> samples, int shift, std::span<std::byte> bytes);

/// Takes eight bits of every grey sample three times; `triples` is three times as long as `grey`.
void NarrowGrey(std::span<const std::uint16_t> grey, int shift, std::span<std::byte> triples);

/// Repeats each grey sample three times; `triples` is three times as long as `grey`.
void RepeatGrey(std::span<const std::uint16_t> grey, std::span<std::uint16_t> triples);

/// True when at least one pixel has unequal channels. A piece of a pixel at the end counts as if zeros
/// followed.
[[nodiscard]] bool HasColour(std::span<const std::byte> triples);

}  // namespace pixora
