#include "image/tiff_reader.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "image/picture.h"
#include "image/valid_bits.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

bool SizeIsKept(const TiffInfo& info) {
    return info.width <= kMaxImageSide && info.height <= kMaxImageSide;
}

// Reads the pixels of an uncompressed file straight through from its first strip, as if the strips were
// contiguous.
class PixelReader {
public:
    PixelReader(File& file, const TiffInfo& info, PixelLayout layout)
        : file_(file),
          layout_(layout),
          unit_(UnitOf(layout)),
          start_(info.first_strip_offset),
          pixels_(std::uint64_t{info.width} * info.height) {}

    [[nodiscard]] std::uint64_t Samples() const { return pixels_ * ChannelsOf(layout_); }
    // Where the pixels start and end; a pixel that is no whole unit (the odd last one of packed 12 bits) is
    // not read.
    [[nodiscard]] std::uint64_t Start() const { return start_; }
    [[nodiscard]] std::uint64_t End() const { return start_ + pixels_ / unit_.pixels * unit_.bytes; }
    [[nodiscard]] bool HasAnyPixelData() const { return start_ < file_.Size(); }

    // For each block: visitor.See(bytes as stored), then visitor.Take(samples) for the decoded samples in
    // pieces, then visitor.Keep(samples) for all of them where the layout stores words and has them in place.
    // What is missing of a last unit is zeros. @return false when See() or Keep() said so.
    template <typename Visitor>
    bool ForEachBlock(Visitor& visitor) {
        if (!file_.Seek(start_)) return true;
        block_.resize(kBlockBytes / 2);
        const auto block =
            std::as_writable_bytes(std::span(block_)).first(kBlockBytes / unit_.bytes * unit_.bytes);
        for (std::uint64_t left = End() - start_; left > 0;) {
            const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left, block.size()));
            const auto [got, whole] = file_.ReadUnits(block.first(wanted), unit_.bytes);
            if (got == 0) return true;
            if (!visitor.See(block.first(got))) return false;
            const std::size_t piece = kPieceUnits * unit_.bytes;
            for (std::size_t at = 0; at < whole; at += piece)
                visitor.Take(Decode(at, std::min(piece, whole - at)));
            if (!visitor.Keep(std::span(block_).first(whole / 2))) return false;
            left -= got;
            if (got < wanted) return true;
        }
        return true;
    }

private:
    // Pieces of this size stay in the processor's nearest cache while each step of the conversion passes over
    // them.
    static constexpr std::size_t kPieceUnits = 1024;

    std::span<std::uint16_t> Decode(std::size_t at, std::size_t bytes) {
        if (StoresWords(layout_)) {
            const auto words = std::span(block_).subspan(at / 2, bytes / 2);
            DecodeWords(layout_, words);
            return words;
        }
        samples_.resize(bytes / unit_.bytes * unit_.pixels * ChannelsOf(layout_));
        DecodePixels(layout_, std::as_bytes(std::span(block_)).subspan(at, bytes), samples_);
        return samples_;
    }

    File& file_;
    PixelLayout layout_;
    PixelUnit unit_;
    std::uint64_t start_, pixels_;
    std::vector<std::uint16_t> block_;  // as stored: words are decoded where they stand
    std::vector<std::uint16_t> samples_;
};

// The display copy while it is being made.
class DisplayCopy {
public:
    static std::optional<DisplayCopy> Create(const fs::path& path, const TiffInfo& info, PixelLayout layout) {
        auto picture = PictureWriter::Create(path, info.width, info.height, RowOrder::top_down);
        if (!picture) return std::nullopt;
        return DisplayCopy(*std::move(picture), DisplayShift(info), ChannelsOf(layout) == 1);
    }

    void Take(std::span<const std::uint16_t> samples) {
        picture_.Append(samples.size() / (grey_ ? 1 : 3), [&](std::size_t first, std::span<std::byte> run) {
            if (grey_)
                NarrowGrey(samples.subspan(first, run.size() / 3), shift_, run);
            else
                NarrowSamples(samples.subspan(3 * first, run.size()), shift_, run);
        });
    }

    [[nodiscard]] bool Commit() { return picture_.Commit(); }

private:
    DisplayCopy(PictureWriter picture, int shift, bool grey)
        : picture_(std::move(picture)), shift_(shift), grey_(grey) {}

    PictureWriter picture_;
    int shift_;
    bool grey_;
};

// Copies the bytes from `from` to `to` (or to the end of the file) to where `copy` stands.
bool CopyRange(File& file, std::uint64_t from, std::uint64_t to, File& copy) {
    if (from >= to) return true;
    if (!file.Seek(from)) return false;
    std::vector<std::byte> block(kBlockBytes);
    for (std::uint64_t left = to - from; left > 0;) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left, block.size()));
        const std::size_t got = file.Read(std::span(block).first(wanted));
        if (!copy.Write(std::span(block).first(got))) return false;
        left -= got;
        if (got < wanted) break;
    }
    return true;
}

// A pass for the display copy, the whole file going to `copy` (if any) on the way.
class DisplayPass {
public:
    DisplayPass(DisplayCopy& display, File* copy) : display_(display), copy_(copy) {}

    bool Run(File& file, PixelReader& pixels) {
        if (copy_ && !CopyRange(file, 0, pixels.Start(), *copy_)) return false;
        return pixels.ForEachBlock(*this) && (!copy_ || CopyRange(file, pixels.End(), file.Size(), *copy_));
    }

    bool See(std::span<const std::byte> stored) { return !copy_ || copy_->Write(stored); }
    void Take(std::span<const std::uint16_t> samples) { display_.Take(samples); }
    bool Keep(std::span<const std::uint16_t>) { return true; }

private:
    DisplayCopy& display_;
    File* copy_;
};

// A pass for the data copy of a 16-bit file, and for its display copy (if any). With no given number of valid
// bits the first piece decides; should a later one prove it wrong, the data copy is written once more when
// all samples have been seen.
class RawPass {
public:
    RawPass(File& out, DisplayCopy* display, int given_bits)
        : out_(out), display_(display), automatic_(!IsValidBitCount(given_bits)), bits_(given_bits) {}

    // @return false when the data copy could not be written.
    bool Run(PixelReader& pixels) {
        if (!pixels.ForEachBlock(*this)) return false;
        if (automatic_ && seen_ < pixels.Samples())
            Detect(std::array<std::uint16_t, 1>{});  // what a short file lacks
        if (guess_failed_ && !WriteAgain(pixels)) return false;
        return out_.ExtendTo(2 * pixels.Samples());
    }

    [[nodiscard]] int Bits() const { return bits_; }

    bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<std::uint16_t> samples) {
        seen_ += samples.size();
        if (display_) display_->Take(samples);  // before they are divided
        if (automatic_) Detect(samples);
        static_cast<void>(ScaleToValidBits(samples, bits_));
    }
    bool Keep(std::span<const std::uint16_t> samples) {
        return guess_failed_ || out_.Write(std::as_bytes(samples));
    }

private:
    void Detect(std::span<const std::uint16_t> samples) {
        detector_.Add(samples);
        if (!IsValidBitCount(bits_)) bits_ = detector_.Bits();
        guess_failed_ = guess_failed_ || detector_.Bits() != bits_;
    }

    bool WriteAgain(PixelReader& pixels) {
        RawPass again(out_, nullptr, detector_.Bits());
        bits_ = detector_.Bits();
        return out_.Seek(0) && pixels.ForEachBlock(again);
    }

    File& out_;
    DisplayCopy* display_;
    bool automatic_;
    int bits_;
    bool guess_failed_ = false;
    std::uint64_t seen_ = 0;
    ValidBitsDetector detector_;
};

// Why a file is refused by its header; the order of the checks is that of the messages' weight.
ReadResult CheckHeader(const TiffHeader& header) {
    const TiffInfo& info = header.info;
    if (info.compression > 1) return ReadResult::compressed;  // also when the rest could not be read
    if (!header.complete || info.width == 0 || info.height == 0) return ReadResult::invalid;
    if (info.photometric == 5) return ReadResult::cmyk;
    if (info.photometric != 1 && info.photometric != 2) return ReadResult::not_supported;
    if (!LayoutOf(info) || !SizeIsKept(info)) return ReadResult::not_supported;
    return ReadResult::accepted;
}

bool IsPlain16(const TiffHeader& header) {
    const TiffInfo& info = header.info;
    const bool known = info.photometric == 1 || info.photometric == 2;
    return header.complete && known && info.compression == 1 && info.width > 0 && info.height > 0 &&
           SizeIsKept(info) && (info.SingleBits() == 16 || info.ChannelBits() == 16);
}

}  // namespace

std::uint32_t DetectedBits(const TiffInfo& info) {
    if (info.photometric == 1) return info.SingleBits();
    if (info.photometric == 2) return info.ChannelBits();
    return 8;
}

std::optional<PixelLayout> LayoutOf(const TiffInfo& info) {
    const std::uint32_t bits = DetectedBits(info);
    if (info.photometric == 1) {
        switch (bits) {
            case 8:
                return PixelLayout::mono8;
            case 10:
                return PixelLayout::mono10;
            case 12:
                return PixelLayout::mono12;
            case 14:
                return PixelLayout::mono14;
            case 16:
                return PixelLayout::mono16;
            default:
                return std::nullopt;
        }
    }
    if (info.photometric != 2) return std::nullopt;
    switch (bits) {
        case 8:
            return PixelLayout::rgb8;
        case 12:
            return PixelLayout::rgb12;
        case 16:
            return PixelLayout::rgb16;
        default:
            return std::nullopt;
    }
}

int DisplayShift(const TiffInfo& info) {
    const auto either = [&](int bits) { return info.SingleBits() == bits || info.ChannelBits() == bits; };
    return either(16) ? 8 : either(12) ? 4 : 0;
}

TiffConversion ConvertTiff(const fs::path& source, const fs::path& display_copy, const fs::path& byte_copy) {
    std::optional<File> file = File::OpenForReading(source);
    if (!file) return {.result = ReadResult::not_supported};
    const TiffHeader header = ReadTiffHeader(*file);
    if (const ReadResult result = CheckHeader(header); result != ReadResult::accepted)
        return {.result = result};
    const PixelLayout layout = *LayoutOf(header.info);
    TiffConversion conversion{.colour = header.info.photometric == 2};
    PixelReader pixels(*file, header.info, layout);
    if (!pixels.HasAnyPixelData()) return {.result = ReadResult::invalid};

    conversion.result = ReadResult::write_failed;
    std::optional<DisplayCopy> display = DisplayCopy::Create(display_copy, header.info, layout);
    std::optional<AtomicFile> copy;
    if (!byte_copy.empty()) {
        DeleteQuietly(byte_copy);
        copy = AtomicFile::Create(byte_copy);
        if (!copy) return conversion;
    }
    if (display && DisplayPass(*display, copy ? &copy->Out() : nullptr).Run(*file, pixels) &&
        (!copy || copy->Commit()) && display->Commit())
        conversion.result = ReadResult::accepted;
    return conversion;
}

Tiff16Conversion ConvertTiff16(const fs::path& source, const fs::path& display_copy,
                               const fs::path& data_copy, int valid_bits) {
    std::optional<File> file = File::OpenForReading(source);
    if (!file) return {};
    const TiffHeader header = ReadTiffHeader(*file);
    if (!IsPlain16(header)) return {};
    const PixelLayout layout = header.info.photometric == 1 ? PixelLayout::mono16 : PixelLayout::rgb16;
    PixelReader pixels(*file, header.info, layout);
    DeleteQuietly(data_copy);
    std::optional<AtomicFile> out = AtomicFile::Create(data_copy);
    if (!out || !pixels.HasAnyPixelData()) return {};

    std::optional<DisplayCopy> display = DisplayCopy::Create(display_copy, header.info, layout);
    RawPass pass(out->Out(), display ? &*display : nullptr, valid_bits);
    if (!pass.Run(pixels) || !out->Commit()) return {};
    return {.data_written = true, .display_written = display && display->Commit(), .valid_bits = pass.Bits()};
}

}  // namespace pixora
