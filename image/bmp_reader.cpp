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

// 24 bits: the display copy is the source itself. Its rows are looked at in file order, since only whether
// any pixel has colour is asked.
BmpConversion Copy24(File& source, const BmpHeader& header, const fs::path& display_copy) {
    BmpConversion conversion{.bit_count = header.bit_count};
    DeleteQuietly(display_copy);
    std::optional<AtomicFile> copy = AtomicFile::Create(display_copy);
    const auto row_bytes = std::size_t{3} * header.width;
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
    PictureWriter picture;
    bool colour = false;

    // The next pixels by their samples, three or (grey) one each.
    void Take(std::span<const std::uint16_t> samples, std::size_t channels) {
        picture.Append(samples.size() / channels, [&](std::size_t first, std::span<std::byte> run) {
            if (channels == 1) return NarrowGrey(samples.subspan(first, run.size() / 3), 0, run);
            NarrowSamples(samples.subspan(3 * first, run.size()), 0, run);
            colour = colour || HasColour(run);
        });
    }
};

void Read32(File& source, const BmpHeader& header, PictureSink& sink) {
    const std::uint64_t bytes = std::uint64_t{4} * header.width * header.height;
    std::vector<std::uint16_t> samples;
    static_cast<void>(ForEachBlock(source, bytes, 4, [&](auto, std::span<const std::byte> whole) {
        samples.resize(whole.size() / 4 * 3);
        DecodePixels(PixelLayout::bgrx8, whole, samples);
        sink.Take(samples, 3);
        return true;
    }));
}

// Bottom-up rows go through the palette, always 256 entries from a fixed place, and are padded to four bytes.
void Read8BottomUp(File& source, const BmpHeader& header, PictureSink& sink) {
    std::array<std::byte, std::size_t{256} * 4> palette{};
    if (source.Seek(kPaletteOffset)) static_cast<void>(source.Read(palette));
    if (!source.Seek(header.data_offset)) return;
    const auto stride = static_cast<std::size_t>(Bmp8Stride(header.width));
    std::vector<std::uint16_t> samples(std::size_t{3} * header.width);
    const auto take_rows = [&](std::span<const std::byte> got, std::span<const std::byte> whole) {
        for (std::size_t row = 0; row < whole.size(); row += stride) {
            // A row that is cut off ends there; its missing pixels are no indices into the palette.
            const std::size_t pixels = std::min<std::size_t>(header.width, got.size() - row);
            std::ranges::fill(samples, std::uint16_t{0});
            for (std::size_t x = 0; x < pixels; ++x) {
                const std::size_t entry = 4 * std::to_integer<std::size_t>(whole[row + x]);
                DecodePixels(PixelLayout::mono8, std::span(palette).subspan(entry, 3),
                             std::span(samples).subspan(3 * x, 3));
            }
            sink.Take(samples, 3);
        }
        return true;
    };
    static_cast<void>(ForEachBlock(source, std::uint64_t{stride} * header.height, stride, take_rows));
}

// Deliberate: top-down 8-bit files show their palette indices as grey levels and have no padding, so their
// rows drift when the width is not a multiple of four.
void Read8TopDown(File& source, const BmpHeader& header, PictureSink& sink) {
    std::vector<std::uint16_t> samples;
    const std::uint64_t bytes = std::uint64_t{header.width} * header.height;
    static_cast<void>(ForEachBlock(source, bytes, 1, [&](std::span<const std::byte> got, auto) {
        samples.resize(got.size());
        DecodePixels(PixelLayout::mono8, got, samples);
        sink.Take(samples, 1);
        return true;
    }));
}

BmpConversion ConvertPixels(File& source, const BmpHeader& header, const fs::path& display_copy) {
    BmpConversion conversion{.result = ReadResult::write_failed, .bit_count = header.bit_count};
    const RowOrder order = header.bottom_up ? RowOrder::bottom_up : RowOrder::top_down;
    std::optional<PictureWriter> picture =
        PictureWriter::Create(display_copy, header.width, header.height, order);
    if (!picture || !source.Seek(header.data_offset)) return conversion;
    PictureSink sink{*std::move(picture)};
    if (header.bit_count == 32)
        Read32(source, header, sink);
    else if (header.bottom_up)
        Read8BottomUp(source, header, sink);
    else
        Read8TopDown(source, header, sink);
    conversion.colour = sink.colour;
    if (sink.picture.Commit()) conversion.result = ReadResult::accepted;
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
