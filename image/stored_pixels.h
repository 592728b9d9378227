// Pixels as a file stores them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "image/byte_set.h"
#include "image/pixels.h"

namespace pixora {

/// What the bytes of an image stand for.
struct Palette {
    /// Blue, green and red, and a zero.
    std::array<std::array<std::uint16_t, 4>, 256> colours{};
    /// The same in bytes.
    std::array<std::array<std::uint8_t, 4>, 256> bytes{};
    /// The same by channel, without the zeros.
    std::array<std::array<std::uint8_t, 256>, 3> levels{};
    ByteSet coloured;   ///< the bytes that stand for colours whose channels differ
    bool grey = true;   ///< in every colour the channels are equal
    bool plain = true;  ///< each byte stands for itself

    /// Sets one colour; `grey` and `plain` then hold for all that have been set. Each is to be set once.
    void Set(std::size_t index, std::uint8_t blue, std::uint8_t green, std::uint8_t red);
};

struct StoredPixels {
    PixelLayout layout = PixelLayout::mono8;
    std::span<const std::byte> bytes{};  ///< whole units of the layout
    const Palette* palette = nullptr;    ///< of a mono8 layout whose bytes are indices into it

    [[nodiscard]] std::size_t Pixels() const {
        return bytes.size() / UnitOf(layout).bytes * UnitOf(layout).pixels;
    }
    /// Samples that a pixel has: 1, or 3 for colour.
    [[nodiscard]] std::size_t Channels() const { return palette && !palette->grey ? 3 : ChannelsOf(layout); }
    /// Some of them, by their places in `bytes`; whole units.
    [[nodiscard]] StoredPixels Part(std::size_t first, std::size_t count) const {
        return {layout, bytes.subspan(first, count), palette};
    }
};

/// Samples as if a file stored them: grey, or blue, green and red.
[[nodiscard]] inline StoredPixels SamplesAsStored(std::span<const std::uint16_t> samples,
                                                  std::size_t channels) {
    return {channels == 1 ? PixelLayout::mono16 : PixelLayout::bgr16, std::as_bytes(samples)};
}

/// Decodes pixels.
/// @param samples  Channels() for each pixel, colour as blue, green, red; without any scaling.
void DecodeStored(const StoredPixels& pixels, std::span<std::uint16_t> samples);

/// Looks up the colours of indices.
/// @param triples  three bytes for each index: blue, green, red.
void LookUp(const Palette& palette, std::span<const std::byte> indices, std::span<std::byte> triples);

/// Calls `take(samples)` with the decoded pixels in pieces that stay in the processor's nearest cache; it
/// says whether to go on. @param memory  for the samples; kept for the next time. @return false when `take`
/// did.
template <typename Take>
[[nodiscard]] bool ForEachDecoded(const StoredPixels& pixels, std::vector<std::uint16_t>& memory, Take take) {
    const PixelUnit unit = UnitOf(pixels.layout);
    const std::size_t piece = kPieceSamples / pixels.Channels() / unit.pixels * unit.bytes;
    for (std::size_t at = 0; at < pixels.bytes.size(); at += piece) {
        const StoredPixels part = pixels.Part(at, std::min(piece, pixels.bytes.size() - at));
        memory.resize(part.Pixels() * part.Channels());
        DecodeStored(part, memory);
        if (!take(std::span(memory))) return false;
    }
    return true;
}

/// True when at least one pixel of eight bits a channel has unequal channels.
[[nodiscard]] bool HasColour(const StoredPixels& pixels);

}  // namespace pixora
