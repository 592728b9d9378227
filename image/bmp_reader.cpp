#include "image/bmp_reader.h"

#include <array>
#include <vector>

#include "base/bytes.h"
#include "image/bmp_layout.h"
#include "image/bmp_pixels.h"
#include "image/file_type.h"
#include "image/picture.h"
#include "image/pixels.h"
#include "image/sample_feed.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

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

// The display copy of an 8- or 32-bit source while it is being made.
class Picture {
public:
    explicit Picture(PictureWriter writer) : writer_(std::move(writer)) {}

    void Add(const StoredPixels& pixels) {
        colour_ = colour_ || HasColour(pixels);
        if (pixels.palette) return AddLookedUp(pixels);
        static_cast<void>(ForEachDecoded(pixels, samples_, [&](std::span<const std::uint16_t> samples) {
            AddDecoded(samples, pixels.Channels());
            return true;
        }));
    }
    [[nodiscard]] bool Colour() const { return colour_; }
    [[nodiscard]] bool Commit() { return writer_.Commit(); }

private:
    void AddLookedUp(const StoredPixels& pixels) {
        writer_.Append(pixels.Pixels(), [&](std::size_t first, std::span<std::byte> run) {
            LookUp(*pixels.palette, pixels.bytes.subspan(first, run.size() / 3), run);
        });
    }
    void AddDecoded(std::span<const std::uint16_t> samples, std::size_t channels) {
        writer_.Append(samples.size() / channels, [&](std::size_t first, std::span<std::byte> run) {
            if (channels == 1) return NarrowGrey(samples.subspan(first, run.size() / 3), 0, run);
            NarrowSamples(samples.subspan(3 * first, run.size()), 0, run);
        });
    }

    PictureWriter writer_;
    std::vector<std::uint16_t> samples_;
    bool colour_ = false;
};

RowOrder OrderOf(const BmpHeader& header) {
    return header.bottom_up ? RowOrder::bottom_up : RowOrder::top_down;
}

BmpConversion ConvertPixels(File& source, const BmpHeader& header, const fs::path& display_copy) {
    BmpConversion conversion{.result = ReadResult::write_failed, .bit_count = header.bit_count};
    std::optional<PictureWriter> writer =
        PictureWriter::Create(display_copy, header.width, header.height, OrderOf(header));
    if (!writer) return conversion;
    Picture picture(*std::move(writer));
    ForEachStored(source, header, [&](const StoredPixels& pixels) {
        picture.Add(pixels);
        return true;
    });
    conversion.colour = picture.Colour();
    if (picture.Commit()) conversion.result = ReadResult::accepted;
    return conversion;
}

// What the header alone tells. A header that is cut off has no size.
BmpConversion LookAt(const FileType& source) {
    if (!source.file) return {};
    ReadResult result = CheckHeader(source.bmp);
    if (result == ReadResult::accepted && source.bmp.data_offset >= source.file->Size())
        result = ReadResult::invalid;
    return {.result = result, .bit_count = source.bmp.bit_count};
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

BmpConversion ConvertBmp(FileType& source, const fs::path& display_copy) {
    const BmpConversion looked = LookAt(source);
    if (!source.file || looked.result != ReadResult::accepted) return looked;
    return source.bmp.bit_count == 24 ? Copy24(*source.file, source.bmp, display_copy)
                                      : ConvertPixels(*source.file, source.bmp, display_copy);
}

BmpConversion ReadBmpSamples(FileType& source, SampleSink* sink) {
    BmpConversion conversion = LookAt(source);
    if (!source.file || conversion.result != ReadResult::accepted) return conversion;
    const BmpHeader& header = source.bmp;
    bool stopped = sink && !sink->Begin(header.width, header.height, OrderOf(header));
    std::optional<SampleFeed> feed;
    if (sink && !stopped) feed.emplace(*sink);
    const auto take = [&](const StoredPixels& pixels) {
        conversion.colour = conversion.colour || HasColour(pixels);
        if (!feed) return !conversion.colour && pixels.Channels() == 3;
        stopped = !feed->Give(pixels);
        return !stopped;
    };
    if (!stopped) ForEachStored(*source.file, header, take);
    if (stopped) conversion.result = ReadResult::write_failed;
    return conversion;
}

}  // namespace pixora
