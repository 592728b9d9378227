#include "image/tiff_reader.h"

#include <array>
#include <utility>

#include "image/picture.h"
#include "image/pixel_reader.h"
#include "image/valid_bits.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

bool SizeIsKept(const TiffInfo& info) {
    return info.width <= kMaxImageSide && info.height <= kMaxImageSide;
}

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

// Copies the bytes from `from` to `to`, as far as the file has them, to where `copy` stands.
bool CopyRange(File& file, std::uint64_t from, std::uint64_t to, File& copy) {
    if (from >= to) return true;
    return file.Seek(from) &&
           ForEachBlock(file, to - from, 1, [&](auto got, auto) { return copy.Write(got); });
}

// A pass for the display copy, the whole file going to `copy` on the way.
class DisplayPass {
public:
    DisplayPass(DisplayCopy& display, File& copy) : display_(display), copy_(copy) {}

    [[nodiscard]] bool Run(File& file, PixelReader& pixels) {
        return CopyRange(file, 0, pixels.Start(), copy_) && pixels.ForEachBlock(*this) &&
               CopyRange(file, pixels.End(), file.Size(), copy_);
    }

    [[nodiscard]] bool See(std::span<const std::byte> stored) { return copy_.Write(stored); }
    void Take(std::span<const std::uint16_t> samples) { display_.Take(samples); }
    [[nodiscard]] static bool Keep(std::span<const std::uint16_t>) { return true; }

private:
    DisplayCopy& display_;
    File& copy_;
};

// A pass for the data copy of a 16-bit file, and for its display copy (if any). With no given number of valid
// bits the first piece decides; should a later one prove it wrong, the data copy is written once more when
// all samples have been seen.
class RawPass {
public:
    RawPass(File& out, DisplayCopy* display, int given_bits)
        : out_(out), display_(display), automatic_(!IsValidBitCount(given_bits)), bits_(given_bits) {}

    // @return false when the data copy could not be written.
    [[nodiscard]] bool Run(PixelReader& pixels) {
        if (!pixels.ForEachBlock(*this)) return false;
        if (automatic_ && seen_ < pixels.Samples())
            Detect(std::array<std::uint16_t, 1>{});  // what a short file lacks
        if (guess_failed_ && !WriteAgain(pixels)) return false;
        return out_.ExtendTo(2 * pixels.Samples());
    }

    [[nodiscard]] int Bits() const { return bits_; }

    [[nodiscard]] static bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<std::uint16_t> samples) {
        seen_ += samples.size();
        if (display_) display_->Take(samples);  // before they are divided
        if (automatic_) Detect(samples);
        static_cast<void>(ScaleToValidBits(samples, bits_));
    }
    [[nodiscard]] bool Keep(std::span<const std::uint16_t> samples) {
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
    if (info.photometric != 1 && !info.IsColour()) return ReadResult::not_supported;
    if (!LayoutOf(info) || !SizeIsKept(info)) return ReadResult::not_supported;
    return ReadResult::accepted;
}

bool IsPlain16(const TiffHeader& header) {
    const TiffInfo& info = header.info;
    const bool known = info.photometric == 1 || info.IsColour();
    return header.complete && known && info.compression == 1 && info.width > 0 && info.height > 0 &&
           SizeIsKept(info) && (info.SingleBits() == 16 || info.ChannelBits() == 16);
}

}  // namespace

std::uint32_t DetectedBits(const TiffInfo& info) {
    if (info.photometric == 1) return info.SingleBits();
    if (info.IsColour()) return info.ChannelBits();
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
    if (!info.IsColour()) return std::nullopt;
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

ReadResult ConvertTiff(const fs::path& source, const fs::path& display_copy, const fs::path& byte_copy) {
    std::optional<File> file = File::OpenForReading(source);
    if (!file) return ReadResult::not_supported;
    const TiffHeader header = ReadTiffHeader(*file);
    if (const ReadResult result = CheckHeader(header); result != ReadResult::accepted) return result;
    const PixelLayout layout = *LayoutOf(header.info);
    PixelReader pixels(*file, header.info, layout);
    if (!pixels.HasAnyPixelData()) return ReadResult::invalid;

    std::optional<DisplayCopy> display = DisplayCopy::Create(display_copy, header.info, layout);
    DeleteQuietly(byte_copy);
    std::optional<AtomicFile> copy = AtomicFile::Create(byte_copy);
    const bool written = display && copy && DisplayPass(*display, copy->Out()).Run(*file, pixels) &&
                         copy->Commit() && display->Commit();
    return written ? ReadResult::accepted : ReadResult::write_failed;
}

Tiff16Conversion ConvertTiff16(const fs::path& source, const fs::path& display_copy,
                               const fs::path& data_copy, int valid_bits) {
    std::optional<File> file = File::OpenForReading(source);
    if (!file) return {};
    const TiffHeader header = ReadTiffHeader(*file);
    if (!IsPlain16(header)) return {};
    const PixelLayout layout = header.info.IsColour() ? PixelLayout::rgb16 : PixelLayout::mono16;
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
