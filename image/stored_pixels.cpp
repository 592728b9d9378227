#include "image/stored_pixels.h"

#include <cstring>

namespace pixora {
namespace {

std::size_t Index(std::byte value) {
    return std::to_integer<std::size_t>(value);
}

void LookUpGrey(std::span<const std::byte> indices, const Palette& palette, std::uint16_t* samples) {
    for (const std::byte index : indices) *samples++ = palette.colours[Index(index)][0];
}

// Puts the first three samples of each colour.
template <typename Sample>
void LookUpIn(const std::array<std::array<Sample, 4>, 256>& colours, std::span<const std::byte> indices,
              void* samples) {
    constexpr std::size_t kTriple = 3 * sizeof(Sample), kQuad = 4 * sizeof(Sample);
    if (indices.empty()) return;
    auto* at = static_cast<std::byte*>(samples);
    // The fourth sample of a colour is overwritten by the next pixel.
    for (const std::byte index : indices.first(indices.size() - 1)) {
        std::memcpy(at, colours[Index(index)].data(), kQuad);
        at += kTriple;
    }
    std::memcpy(at, colours[Index(indices.back())].data(), kTriple);
}

// Looked at in pieces, so that the loop over a piece has no way out.
bool QuadsHaveColour(std::span<const std::byte> quads) {
    constexpr std::size_t kPiece = 4096;
    for (; !quads.empty(); quads = quads.subspan(std::min(kPiece, quads.size()))) {
        std::uint32_t differing = 0;
        for (std::size_t i = 0; i + 4 <= std::min(kPiece, quads.size()); i += 4) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, &quads[i], sizeof pixel);
            differing |= pixel ^ (pixel >> 8);
        }
        if ((differing & 0xFFFF) != 0) return true;
    }
    return false;
}

}  // namespace

void Palette::Set(std::size_t index, std::uint8_t blue, std::uint8_t green, std::uint8_t red) {
    colours[index] = {blue, green, red, 0};
    bytes[index] = {blue, green, red, 0};
    levels[0][index] = blue;
    levels[1][index] = green;
    levels[2][index] = red;
    if (blue != green || green != red) coloured.Insert(static_cast<std::uint8_t>(index));
    grey = coloured.IsEmpty();
    plain = plain && grey && blue == index;
}

void DecodeStored(const StoredPixels& pixels, std::span<std::uint16_t> samples) {
    if (pixels.palette) {
        if (pixels.palette->grey) return LookUpGrey(pixels.bytes, *pixels.palette, samples.data());
        return LookUpIn(pixels.palette->colours, pixels.bytes, samples.data());
    }
    if (!StoresWords(pixels.layout)) return DecodePixels(pixels.layout, pixels.bytes, samples);
    if (pixels.bytes.empty()) return;
    std::memcpy(samples.data(), pixels.bytes.data(), pixels.bytes.size());
    DecodeWords(pixels.layout, samples);
}

void LookUp(const Palette& palette, std::span<const std::byte> indices, std::span<std::byte> triples) {
    LookUpIn(palette.bytes, indices, triples.data());
}

bool HasColour(const StoredPixels& pixels) {
    if (pixels.palette) return pixels.palette->coloured.HasAnyOf(pixels.bytes);
    switch (pixels.layout) {
        case PixelLayout::bgr8:
        case PixelLayout::rgb8:
            return HasColour(pixels.bytes);
        case PixelLayout::bgrx8:
            return QuadsHaveColour(pixels.bytes);
        default:
            return false;
    }
}

}  // namespace pixora
