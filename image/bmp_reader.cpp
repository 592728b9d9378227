#include "image/bmp_reader.h"

#include <algorithm>
#include <array>
#include <cstring>
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

// Takes the pixels of 8- and 32-bit sources for their display copy.
class PictureSink final : public SampleSink {
public:
    explicit PictureSink(PictureWriter picture) : picture_(std::move(picture)) {}

    bool Begin(std::uint32_t, std::uint32_t, RowOrder) override { return true; }
    bool Take(std::span<const std::uint16_t> samples, std::size_t channels) override {
        picture_.Append(samples.size() / channels, [&](std::size_t first, std::span<std::byte> run) {
            if (channels == 1) return NarrowGrey(samples.subspan(first, run.size() / 3), 0, run);
            NarrowSamples(samples.subspan(3 * first, run.size()), 0, run);
            colour_ = colour_ || HasColour(run);
        });
        return true;
    }
    [[nodiscard]] bool Colour() const { return colour_; }
    [[nodiscard]] bool Commit() { return picture_.Commit(); }

private:
    PictureWriter picture_;
    bool colour_ = false;
};

// Looks for colour in the samples that pass on to `next`; without one, up to the first coloured pixel.
class ColourWatch final : public SampleSink {
public:
    explicit ColourWatch(SampleSink* next) : next_(next) {}

    bool Begin(std::uint32_t width, std::uint32_t height, RowOrder order) override {
        stopped_ = next_ && !next_->Begin(width, height, order);
        return !stopped_;
    }
    bool Take(std::span<const std::uint16_t> samples, std::size_t channels) override {
        if (!colour_ && channels == 3) {
            bytes_.resize(samples.size());
            NarrowSamples(samples, 0, bytes_);
            colour_ = HasColour(bytes_);
        }
        return Pass(samples, channels);
    }
    // The same for bytes that stand for samples, three a pixel.
    bool TakeBytes(std::span<const std::byte> bytes) {
        colour_ = colour_ || HasColour(bytes);
        if (!next_) return !colour_;
        samples_.resize(kPieceSamples);
        for (std::size_t at = 0; at < bytes.size(); at += kPieceSamples) {
            const auto piece = bytes.subspan(at, std::min(kPieceSamples, bytes.size() - at));
            const auto samples = std::span(samples_).first(piece.size());
            DecodePixels(PixelLayout::mono8, piece, samples);
            if (!Pass(samples, 3)) return false;
        }
        return true;
    }
    [[nodiscard]] bool Colour() const { return colour_; }
    [[nodiscard]] bool Stopped() const { return stopped_; }

private:
    bool Pass(std::span<const std::uint16_t> samples, std::size_t channels) {
        if (!next_) return !colour_ && channels == 3;
        stopped_ = !next_->Take(samples, channels);
        return !stopped_;
    }

    SampleSink* next_;
    std::vector<std::byte> bytes_;
    std::vector<std::uint16_t> samples_;
    bool colour_ = false;
    bool stopped_ = false;
};

void Read32(File& source, const BmpHeader& header, SampleSink& sink) {
    const std::uint64_t bytes = std::uint64_t{4} * header.width * header.height;
    constexpr std::size_t kPieceBytes = kPieceSamples / 3 * 4;
    std::vector<std::uint16_t> samples(kPieceSamples);
    static_cast<void>(ForEachBlock(source, bytes, 4, [&](auto, std::span<const std::byte> whole) {
        for (std::size_t at = 0; at < whole.size(); at += kPieceBytes) {
            const auto piece = whole.subspan(at, std::min(kPieceBytes, whole.size() - at));
            const auto decoded = std::span(samples).first(piece.size() / 4 * 3);
            DecodePixels(PixelLayout::bgrx8, piece, decoded);
            if (!sink.Take(decoded, 3)) return false;
        }
        return true;
    }));
}

void Read24(File& source, const BmpHeader& header, ColourWatch& sink) {
    const auto row_bytes = std::size_t{3} * header.width;
    const auto stride = static_cast<std::size_t>(Bmp24Stride(header.width));
    const auto take_rows = [&](auto, std::span<const std::byte> whole) {
        for (std::size_t row = 0; row < whole.size(); row += stride)
            if (!sink.TakeBytes(whole.subspan(row, row_bytes))) return false;
        return true;
    };
    static_cast<void>(ForEachBlock(source, std::uint64_t{stride} * header.height, stride, take_rows));
}

// The palette of an 8-bit file: always 256 entries, from a fixed place.
class Palette {
public:
    explicit Palette(File& source) {
        std::array<std::byte, 4 * kEntries> bytes{};
        if (source.Seek(kPaletteOffset)) static_cast<void>(source.Read(bytes));
        for (std::size_t i = 0; i < kEntries; ++i) {
            DecodePixels(PixelLayout::mono8, std::span(bytes).subspan(4 * i, 3),
                         std::span(entries_[i]).first(3));
            grey_ = grey_ && !HasColour(std::span(bytes).subspan(4 * i, 3));
            plain_ = plain_ && grey_ && entries_[i][0] == i;
        }
    }

    /// Samples a pixel: one when all entries are grey.
    [[nodiscard]] std::size_t Channels() const { return grey_ ? 1 : 3; }
    void Decode(std::span<const std::byte> indices, std::uint16_t* samples) const {
        if (plain_) return DecodePixels(PixelLayout::mono8, indices, {samples, indices.size()});
        if (grey_) {
            for (const std::byte index : indices)
                *samples++ = entries_[std::to_integer<std::size_t>(index)][0];
            return;
        }
        // The fourth sample of an entry is overwritten by the next pixel.
        for (const std::byte index : indices) {
            std::memcpy(samples, entries_[std::to_integer<std::size_t>(index)].data(), kEntryBytes);
            samples += 3;
        }
    }

private:
    static constexpr std::size_t kEntries = 256;
    using Entry = std::array<std::uint16_t, 4>;
    static constexpr std::size_t kEntryBytes = sizeof(Entry);
    std::array<Entry, kEntries> entries_{};
    bool grey_ = true;
    bool plain_ = true;  // each index is its own level
};

// Bottom-up rows go through the palette and are padded to four bytes.
void Read8BottomUp(File& source, const BmpHeader& header, SampleSink& sink) {
    const Palette palette(source);
    if (!source.Seek(header.data_offset)) return;
    const auto stride = static_cast<std::size_t>(Bmp8Stride(header.width));
    std::vector<std::uint16_t> samples(palette.Channels() * header.width + 1);
    const auto row_samples = std::span(samples).first(samples.size() - 1);
    const auto take_rows = [&](std::span<const std::byte> got, std::span<const std::byte> whole) {
        for (std::size_t row = 0; row < whole.size(); row += stride) {
            // A row that is cut off ends there; its missing pixels are no indices into the palette.
            const std::size_t pixels = std::min<std::size_t>(header.width, got.size() - row);
            if (pixels < header.width) std::ranges::fill(samples, std::uint16_t{0});
            palette.Decode(whole.subspan(row, pixels), samples.data());
            if (pixels < header.width && palette.Channels() == 3) samples[3 * pixels] = 0;
            if (!sink.Take(row_samples, palette.Channels())) return false;
        }
        return true;
    };
    static_cast<void>(ForEachBlock(source, std::uint64_t{stride} * header.height, stride, take_rows));
}

// Deliberate: top-down 8-bit files show their palette indices as grey levels and have no padding, so their
// rows drift when the width is not a multiple of four.
void Read8TopDown(File& source, const BmpHeader& header, SampleSink& sink) {
    std::vector<std::uint16_t> samples;
    const std::uint64_t bytes = std::uint64_t{header.width} * header.height;
    static_cast<void>(ForEachBlock(source, bytes, 1, [&](std::span<const std::byte> got, auto) {
        samples.resize(got.size());
        DecodePixels(PixelLayout::mono8, got, samples);
        return sink.Take(samples, 1);
    }));
}

RowOrder OrderOf(const BmpHeader& header) {
    return header.bottom_up ? RowOrder::bottom_up : RowOrder::top_down;
}

// The pixels of a source of 8 or 32 bits.
void ReadPixels(File& source, const BmpHeader& header, SampleSink& sink) {
    if (header.bit_count == 32)
        Read32(source, header, sink);
    else if (header.bottom_up)
        Read8BottomUp(source, header, sink);
    else
        Read8TopDown(source, header, sink);
}

BmpConversion ConvertPixels(File& source, const BmpHeader& header, const fs::path& display_copy) {
    BmpConversion conversion{.result = ReadResult::write_failed, .bit_count = header.bit_count};
    std::optional<PictureWriter> picture =
        PictureWriter::Create(display_copy, header.width, header.height, OrderOf(header));
    if (!picture || !source.Seek(header.data_offset)) return conversion;
    PictureSink sink(*std::move(picture));
    ReadPixels(source, header, sink);
    conversion.colour = sink.Colour();
    if (sink.Commit()) conversion.result = ReadResult::accepted;
    return conversion;
}

// A source that has been looked at as far as its header goes.
struct LookedAt {
    std::optional<File> file;
    BmpHeader header;
    BmpConversion conversion;

    [[nodiscard]] bool Accepted() const { return file && conversion.result == ReadResult::accepted; }
};

LookedAt LookAt(const fs::path& source) {
    LookedAt found{.file = File::OpenForReading(source), .header = {}, .conversion = {}};
    if (!found.file) return found;
    const std::optional<BmpHeader> header = ReadBmpHeader(*found.file);
    if (!header) {
        found.conversion.result = ReadResult::invalid;
        return found;
    }
    ReadResult result = CheckHeader(*header);
    if (result == ReadResult::accepted && header->data_offset >= found.file->Size())
        result = ReadResult::invalid;
    found.header = *header;
    found.conversion = {.result = result, .bit_count = header->bit_count};
    return found;
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
    LookedAt found = LookAt(source);
    if (!found.Accepted()) return found.conversion;
    return found.header.bit_count == 24 ? Copy24(*found.file, found.header, display_copy)
                                        : ConvertPixels(*found.file, found.header, display_copy);
}

BmpConversion ReadBmpSamples(const fs::path& source, SampleSink* sink) {
    LookedAt found = LookAt(source);
    if (!found.Accepted()) return found.conversion;
    const BmpHeader& header = found.header;
    ColourWatch watch(sink);
    if (watch.Begin(header.width, header.height, OrderOf(header)) && found.file->Seek(header.data_offset)) {
        if (header.bit_count == 24)
            Read24(*found.file, header, watch);
        else
            ReadPixels(*found.file, header, watch);
    }
    found.conversion.colour = watch.Colour();
    if (watch.Stopped()) found.conversion.result = ReadResult::write_failed;
    return found.conversion;
}

}  // namespace pixora
