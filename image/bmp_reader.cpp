#include "image/bmp_reader.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/bytes.h"
#include "image/bmp_layout.h"
#include "image/picture.h"
#include "image/pixels.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kPaletteOffset = 54;
using Palette = std::array<std::byte, 256 * 4>;

// The result when the source is accepted; everything that refuses by the header alone comes first.
ReadResult CheckHeader(const BmpHeader& header) {
    if (header.width == 0 || header.height == 0) return ReadResult::invalid;
    // Deliberate: the bit depth is looked at before the compression, so a run-length 4-bit file is refused as
    // a 4-bit file.
    if (header.bit_count == 1) return ReadResult::bmp_1_bit;
    if (header.bit_count == 4) return ReadResult::bmp_4_bit;
    if (header.compression != 0) return ReadResult::compressed;
    if (header.bit_count != 8 && header.bit_count != 24 && header.bit_count != 32)
        return ReadResult::not_supported;
    if (header.width > kMaxImageSide || header.height > kMaxImageSide) return ReadResult::not_supported;
    return ReadResult::accepted;
}

RowOrder OrderOf(const BmpHeader& header) {
    return header.bottom_up ? RowOrder::bottom_up : RowOrder::top_down;
}

// Reads up to `total` bytes, a whole number of units, from where the file stands, and hands each block to
// `consume` with what is missing of its last unit as zeros.
template <typename Consume>
bool ForEachBlock(File& file, std::uint64_t total, std::size_t unit, Consume consume) {
    std::vector<std::byte> block(std::max<std::size_t>(1, kBlockBytes / unit) * unit);
    for (std::uint64_t done = 0; done < total;) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), total - done));
        const auto [got, whole] = file.ReadUnits(std::span(block).first(wanted), unit);
        if (got == 0) break;
        if (!consume(std::span<const std::byte>(block).first(got),
                     std::span<const std::byte>(block).first(whole)))
            return false;
        done += got;
        if (got < wanted) break;
    }
    return true;
}

// 24 bits: the display copy is the source itself. Its rows are looked at in file order, since only whether
// any pixel has colour is asked.
BmpConversion Copy24(File& source, const BmpHeader& header, const fs::path& display_copy) {
    BmpConversion conversion{.bit_count = header.bit_count};
    DeleteQuietly(display_copy);
    std::optional<AtomicFile> copy = AtomicFile::Create(display_copy);
    const auto row_bytes = static_cast<std::size_t>(3 * header.width);
    const auto stride = static_cast<std::size_t>(Bmp24Stride(header.width));
    const auto copy_bytes = [&](auto got, auto) { return copy->Out().Write(got); };
    const auto copy_rows = [&](std::span<const std::byte> got, std::span<const std::byte> whole) {
        for (std::size_t row = 0; !conversion.colour && row < whole.size(); row += stride)
            conversion.colour = HasColour(whole.subspan(row, row_bytes));
        return copy->Out().Write(got);
    };
    const bool written = copy && source.Seek(0) && ForEachBlock(source, header.data_offset, 1, copy_bytes) &&
                         ForEachBlock(source, std::uint64_t{stride} * header.height, stride, copy_rows) &&
                         ForEachBlock(source, source.Size(), 1, copy_bytes) && copy->Commit();
    if (!written) conversion.result = ReadResult::write_failed;
    return conversion;
}

// Takes the converted pixels of 8- and 32-bit sources.
struct PictureSink {
    Picture picture;
    bool colour = false;

    void Take(std::span<const std::byte> triples) {
        colour = colour || HasColour(triples);
        picture.Append(triples);
    }
};

void Read32(File& source, const BmpHeader& header, PictureSink& sink) {
    const std::uint64_t bytes = std::uint64_t{4} * header.width * header.height;
    std::vector<std::uint16_t> samples;
    std::vector<std::byte> triples;
    static_cast<void>(ForEachBlock(source, bytes, 4, [&](auto, std::span<const std::byte> whole) {
        samples.resize(whole.size() / 4 * 3);
        triples.resize(samples.size());
        DecodePixels(PixelLayout::bgrx8, whole, samples);
        NarrowSamples(samples, 0, triples);
        sink.Take(triples);
        return true;
    }));
}

// Bottom-up rows go through the palette, always 256 entries from a fixed place, and are padded to four bytes.
void Read8BottomUp(File& source, const BmpHeader& header, const Palette& palette, PictureSink& sink) {
    const auto stride = static_cast<std::size_t>(Bmp8Stride(header.width));
    std::vector<std::byte> triples(std::size_t{3} * header.width);
    static_cast<void>(ForEachBlock(source, std::uint64_t{stride} * header.height, stride,
                                   [&](std::span<const std::byte> got, std::span<const std::byte> whole) {
                                       for (std::size_t row = 0; row < whole.size(); row += stride) {
                                           // A row that is cut off ends there; its missing pixels are no
                                           // indices into the palette.
                                           const std::size_t pixels =
                                               std::min<std::size_t>(header.width, got.size() - row);
                                           std::fill(triples.begin(), triples.end(), std::byte{});
                                           for (std::size_t x = 0; x < pixels; ++x) {
                                               const std::byte* entry =
                                                   &palette[4 * std::to_integer<std::size_t>(whole[row + x])];
                                               std::copy_n(entry, 3, &triples[3 * x]);
                                           }
                                           sink.Take(triples);
                                       }
                                       return true;
                                   }));
}

// Deliberate: top-down 8-bit files show their palette indices as grey levels and have no padding, so their
// rows drift when the width is not a multiple of four.
void Read8TopDown(File& source, const BmpHeader& header, PictureSink& sink) {
    std::vector<std::byte> triples;
    static_cast<void>(ForEachBlock(source, std::uint64_t{header.width} * header.height, 1,
                                   [&](std::span<const std::byte> got, auto) {
                                       triples.resize(3 * got.size());
                                       RepeatGrey(got, triples);
                                       sink.Take(triples);
                                       return true;
                                   }));
}

BmpConversion ConvertPixels(File& source, const BmpHeader& header, const fs::path& display_copy) {
    BmpConversion conversion{.bit_count = header.bit_count};
    Palette palette{};
    if (source.Seek(kPaletteOffset)) static_cast<void>(source.Read(palette));
    std::optional<Picture> picture = Picture::Make(header.width, header.height, OrderOf(header));
    if (!picture || !source.Seek(header.data_offset)) {
        conversion.result = ReadResult::invalid;
        return conversion;
    }
    PictureSink sink{*std::move(picture)};
    if (header.bit_count == 32)
        Read32(source, header, sink);
    else if (header.bottom_up)
        Read8BottomUp(source, header, palette, sink);
    else
        Read8TopDown(source, header, sink);
    conversion.colour = sink.colour;
    if (!sink.picture.Save(display_copy)) conversion.result = ReadResult::write_failed;
    return conversion;
}

}  // namespace

std::optional<BmpHeader> ReadBmpHeader(File& file) {
    std::array<std::byte, kBmpHeaderBytes> bytes{};
    if (!file.ReadExactly(0, bytes)) return std::nullopt;
    if (bytes[0] != std::byte{'B'} || bytes[1] != std::byte{'M'}) return std::nullopt;
    const auto height = static_cast<std::int32_t>(Little32(bytes, 22));
    return BmpHeader{
        .data_offset = Little32(bytes, 10),
        .width = Little32(bytes, 18),
        .height = static_cast<std::uint32_t>(height < 0 ? -std::int64_t{height} : std::int64_t{height}),
        .bottom_up = height >= 0,
        .bit_count = Little16(bytes, 28),
        .compression = Little32(bytes, 30),
    };
}

std::optional<BmpHeader> ReadBmpHeader(const fs::path& path) {
    std::optional<File> file = File::OpenForReading(path);
    return file ? ReadBmpHeader(*file) : std::nullopt;
}

BmpConversion ConvertBmp(const fs::path& source, const fs::path& display_copy) {
    std::optional<File> file = File::OpenForReading(source);
    if (!file) return {};
    const std::optional<BmpHeader> header = ReadBmpHeader(*file);
    if (!header) return {.result = ReadResult::invalid};
    ReadResult result = CheckHeader(*header);
    if (result == ReadResult::accepted && header->data_offset >= file->Size()) result = ReadResult::invalid;
    if (result != ReadResult::accepted) return {.result = result, .bit_count = header->bit_count};
    return header->bit_count == 24 ? Copy24(*file, *header, display_copy)
                                   : ConvertPixels(*file, *header, display_copy);
}

}  // namespace pixora
