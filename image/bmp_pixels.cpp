#include "image/bmp_pixels.h"

#include <algorithm>
#include <array>

#include "image/bmp_layout.h"

namespace pixora {
namespace {

using Bytes = std::span<const std::byte>;
using Take = std::function<bool(const StoredPixels&)>;

constexpr std::uint64_t kPaletteOffset = 54;

// Always 256 entries, from a fixed place.
Palette ReadPalette(File& source) {
    Palette palette;
    std::array<std::byte, 4 * palette.colours.size()> bytes{};
    if (source.Seek(kPaletteOffset)) static_cast<void>(source.Read(bytes));
    const auto level = [&](std::size_t at) { return std::to_integer<std::uint8_t>(bytes[at]); };
    for (std::size_t i = 0; i < palette.colours.size(); ++i)
        palette.Set(i, level(4 * i), level(4 * i + 1), level(4 * i + 2));
    return palette;
}

void ForEach32(File& source, const BmpHeader& header, const Take& take) {
    const std::uint64_t bytes = std::uint64_t{4} * header.width * header.height;
    static_cast<void>(ForEachBlock(source, bytes, 4, [&](auto, Bytes whole) {
        return take({PixelLayout::bgrx8, whole});
    }));
}

// Rows are padded to four bytes; without padding a block of them is one long row.
void ForEach24(File& source, const BmpHeader& header, const Take& take) {
    const auto stride = static_cast<std::size_t>(Bmp24Stride(header.width));
    const auto row_bytes = std::size_t{3} * header.width;
    const auto take_rows = [&](auto, Bytes whole) {
        if (stride == row_bytes) return take({PixelLayout::bgr8, whole});
        for (std::size_t row = 0; row < whole.size(); row += stride)
            if (!take({PixelLayout::bgr8, whole.subspan(row, row_bytes)})) return false;
        return true;
    };
    static_cast<void>(ForEachBlock(source, std::uint64_t{stride} * header.height, stride, take_rows));
}

// Bottom-up rows go through the palette and are padded to four bytes. A row that is cut off ends there: its
// missing pixels are no indices into the palette.
void ForEach8BottomUp(File& source, const BmpHeader& header, const Take& take) {
    const Palette palette = ReadPalette(source);
    if (!source.Seek(header.data_offset)) return;
    const StoredPixels indices{.palette = palette.plain ? nullptr : &palette};
    const auto stride = static_cast<std::size_t>(Bmp8Stride(header.width));
    const auto take_rows = [&](Bytes got, auto) {
        if (stride == header.width) return take({indices.layout, got, indices.palette});
        for (std::size_t row = 0; row < got.size(); row += stride) {
            const Bytes pixels = got.subspan(row, std::min<std::size_t>(header.width, got.size() - row));
            if (!take({indices.layout, pixels, indices.palette})) return false;
        }
        return true;
    };
    static_cast<void>(ForEachBlock(source, std::uint64_t{stride} * header.height, stride, take_rows));
}

// Deliberate: top-down 8-bit files show their palette indices as grey levels and have no padding, so their
// rows drift when the width is not a multiple of four.
void ForEach8TopDown(File& source, const BmpHeader& header, const Take& take) {
    const std::uint64_t bytes = std::uint64_t{header.width} * header.height;
    static_cast<void>(ForEachBlock(source, bytes, 1, [&](Bytes got, auto) {
        return take({PixelLayout::mono8, got});
    }));
}

}  // namespace

void ForEachStored(File& source, const BmpHeader& header, const Take& take) {
    if (!source.Seek(header.data_offset)) return;
    if (header.bit_count == 32)
        ForEach32(source, header, take);
    else if (header.bit_count == 24)
        ForEach24(source, header, take);
    else if (header.bottom_up)
        ForEach8BottomUp(source, header, take);
    else
        ForEach8TopDown(source, header, take);
}

}  // namespace pixora
