#include "image/tiff_reader.h"

#include <utility>

#include "image/bits_guess.h"
#include "image/picture.h"
#include "image/pixel_reader.h"
#include "image/tiff_source.h"
#include "image/valid_bits.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

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

// A pass for the display copy, the whole file going to `copy`, if any, on the way.
class DisplayPass {
public:
    DisplayPass(DisplayCopy& display, File* copy) : display_(display), copy_(copy) {}

    [[nodiscard]] bool Run(File& file, PixelReader& pixels) {
        if (!copy_) return pixels.ForEachBlock(*this);
        return CopyRange(file, 0, pixels.Start(), *copy_) && pixels.ForEachBlock(*this) &&
               CopyRange(file, pixels.End(), file.Size(), *copy_);
    }

    [[nodiscard]] bool See(std::span<const std::byte> stored) { return !copy_ || copy_->Write(stored); }
    void Take(std::span<const std::uint16_t> samples) { display_.Take(samples); }
    [[nodiscard]] static bool Keep(std::span<const std::uint16_t>) { return true; }

private:
    DisplayCopy& display_;
    File* copy_;
};

// The display copy alone.
bool WriteDisplay(File& file, PixelReader& pixels, PixelLayout layout, const TiffInfo& info,
                  const fs::path& path) {
    std::optional<DisplayCopy> display = DisplayCopy::Create(path, info, layout);
    return display && DisplayPass(*display, nullptr).Run(file, pixels) && display->Commit();
}

// A pass for the data copy of a 16-bit file, and for its display copy (if any). Should the guess of the valid
// bits prove wrong, the data copy is written once more when all samples have been seen.
class RawPass {
public:
    RawPass(File& out, DisplayCopy* display, int given_bits)
        : out_(out), display_(display), guess_(given_bits) {}

    // @return false when the data copy could not be written.
    [[nodiscard]] bool Run(PixelReader& pixels) {
        if (!pixels.ForEachBlock(*this)) return false;
        if (seen_ < pixels.Samples()) guess_.AddMissing();
        if (guess_.Failed() && !WriteAgain(pixels)) return false;
        return out_.ExtendTo(2 * pixels.Samples());
    }

    [[nodiscard]] int Bits() const { return guess_.Bits(); }

    [[nodiscard]] static bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<std::uint16_t> samples) {
        seen_ += samples.size();
        if (display_) display_->Take(samples);  // before they are divided
        guess_.Add(samples);
        static_cast<void>(ScaleToValidBits(samples, guess_.Bits()));
    }
    [[nodiscard]] bool Keep(std::span<const std::uint16_t> samples) {
        return guess_.Failed() || out_.Write(std::as_bytes(samples));
    }

private:
    bool WriteAgain(PixelReader& pixels) {
        guess_.Mend();
        RawPass again(out_, nullptr, guess_.Bits());
        return out_.Seek(0) && pixels.ForEachBlock(again);
    }

    File& out_;
    DisplayCopy* display_;
    BitsGuess guess_;
    std::uint64_t seen_ = 0;
};

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

ReadResult ConvertTiff(FileType& source, const fs::path& display_copy, const fs::path& byte_copy) {
    const ReadResult result = CheckTiff(source);
    if (result != ReadResult::accepted) return result;
    const TiffInfo& info = source.tiff.info;
    PixelReader pixels(*source.file, info, *LayoutOf(info));

    if (byte_copy.empty()) {
        const bool shown = WriteDisplay(*source.file, pixels, *LayoutOf(info), info, display_copy);
        return shown ? ReadResult::accepted : ReadResult::write_failed;
    }
    std::optional<DisplayCopy> display = DisplayCopy::Create(display_copy, info, *LayoutOf(info));
    DeleteQuietly(byte_copy);
    std::optional<AtomicFile> copy = AtomicFile::Create(byte_copy);
    const bool written = display && copy && DisplayPass(*display, &copy->Out()).Run(*source.file, pixels) &&
                         copy->Commit() && display->Commit();
    return written ? ReadResult::accepted : ReadResult::write_failed;
}

Tiff16Conversion ConvertTiff16(FileType& source, const fs::path& display_copy, const fs::path& data_copy,
                               int valid_bits) {
    if (CheckTiff16(source) != ReadResult::accepted) return {};
    const TiffInfo& info = source.tiff.info;
    PixelReader pixels(*source.file, info, Layout16(info));
    if (data_copy.empty())
        return {true, true, WriteDisplay(*source.file, pixels, Layout16(info), info, display_copy), 0};
    DeleteQuietly(data_copy);
    std::optional<AtomicFile> out = AtomicFile::Create(data_copy);
    if (!out) return {.accepted = true};

    std::optional<DisplayCopy> display = DisplayCopy::Create(display_copy, info, Layout16(info));
    RawPass pass(out->Out(), display ? &*display : nullptr, valid_bits);
    if (!pass.Run(pixels) || !out->Commit()) return {.accepted = true};
    return {.accepted = true,
            .data_written = true,
            .display_written = display && display->Commit(),
            .valid_bits = pass.Bits()};
}

}  // namespace pixora
