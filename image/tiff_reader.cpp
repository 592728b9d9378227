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

// The valid bits by which samples are scaled while they are still being found: given beforehand, or guessed
// from the first piece.
class BitsGuess {
public:
    explicit BitsGuess(int given_bits) : automatic_(!IsValidBitCount(given_bits)), bits_(given_bits) {}

    /// Looks at the next samples as they are stored. @return false once any has proved the guess wrong.
    bool Add(std::span<const std::uint16_t> samples) {
        if (!automatic_) return true;
        detector_.Add(samples);
        if (!IsValidBitCount(bits_)) bits_ = detector_.Bits();
        failed_ = failed_ || detector_.Bits() != bits_;
        return !failed_;
    }
    /// The same for the zeros that a short file lacks.
    bool AddMissing() { return Add(std::array<std::uint16_t, 1>{}); }

    /// Guesses anew by what has been seen so far, if anything has.
    void Mend() {
        if (failed_) bits_ = detector_.Bits();
        failed_ = false;
    }

    [[nodiscard]] bool Failed() const { return failed_; }
    /// True when no further sample can change anything.
    [[nodiscard]] bool Settled() const { return !automatic_ || detector_.Bits() == 16; }
    [[nodiscard]] int Bits() const { return bits_; }

private:
    bool automatic_;
    int bits_;
    bool failed_ = false;
    ValidBitsDetector detector_;
};

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

// A pass that gives the samples to `sink` as they are.
class SamplePass {
public:
    SamplePass(SampleSink& sink, std::size_t channels) : sink_(sink), channels_(channels) {}

    [[nodiscard]] static bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<const std::uint16_t> samples) {
        stopped_ = stopped_ || !sink_.Take(samples, channels_);
    }
    [[nodiscard]] bool Keep(std::span<const std::uint16_t>) const { return !stopped_; }

private:
    SampleSink& sink_;
    std::size_t channels_;
    bool stopped_ = false;
};

// A pass over a 16-bit file that gives the scaled samples to `sink`, or only finds the valid bits. It ends as
// soon as the guess of the valid bits proves wrong.
class ScaledPass {
public:
    ScaledPass(BitsGuess& guess, SampleSink* sink, std::size_t channels)
        : guess_(guess), sink_(sink), channels_(channels) {}

    // @return false when the sink ended the reading.
    [[nodiscard]] bool Run(PixelReader& pixels) {
        static_cast<void>(pixels.ForEachBlock(*this));
        if (!Ended() && seen_ < pixels.Samples()) guess_.AddMissing();
        return !stopped_;
    }

    [[nodiscard]] static bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<std::uint16_t> samples) {
        if (Ended()) return;
        seen_ += samples.size();
        if (!guess_.Add(samples) || !sink_) return;
        static_cast<void>(ScaleToValidBits(samples, guess_.Bits()));
        stopped_ = !sink_->Take(samples, channels_);
    }
    [[nodiscard]] bool Keep(std::span<const std::uint16_t>) const { return !Ended(); }

private:
    [[nodiscard]] bool Ended() const { return stopped_ || (sink_ ? guess_.Failed() : guess_.Settled()); }

    BitsGuess& guess_;
    SampleSink* sink_;
    std::size_t channels_;
    std::uint64_t seen_ = 0;
    bool stopped_ = false;
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

PixelLayout Layout16(const TiffInfo& info) {
    return info.IsColour() ? PixelLayout::rgb16 : PixelLayout::mono16;
}

// A source that has been looked at as far as its header goes; open when it is accepted.
struct LookedAt {
    ReadResult result = ReadResult::not_supported;
    std::optional<File> file;
    TiffHeader header;
};

bool HasPixelData(File& file, const TiffInfo& info) {
    return info.first_strip_offset < file.Size();
}

LookedAt LookAt(const fs::path& source) {
    LookedAt found{.file = File::OpenForReading(source), .header = {}};
    if (!found.file) return found;
    found.header = ReadTiffHeader(*found.file);
    found.result = CheckHeader(found.header);
    if (found.result == ReadResult::accepted && !HasPixelData(*found.file, found.header.info))
        found.result = ReadResult::invalid;
    return found;
}

// The same for a 16-bit source, which is refused in one way only.
LookedAt LookAt16(const fs::path& source) {
    LookedAt found{.result = ReadResult::invalid, .file = File::OpenForReading(source), .header = {}};
    if (!found.file) return found;
    found.header = ReadTiffHeader(*found.file);
    if (IsPlain16(found.header) && HasPixelData(*found.file, found.header.info))
        found.result = ReadResult::accepted;
    return found;
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
    LookedAt found = LookAt(source);
    if (found.result != ReadResult::accepted) return found.result;
    const TiffInfo& info = found.header.info;
    PixelReader pixels(*found.file, info, *LayoutOf(info));

    if (byte_copy.empty()) {
        const bool shown = WriteDisplay(*found.file, pixels, *LayoutOf(info), info, display_copy);
        return shown ? ReadResult::accepted : ReadResult::write_failed;
    }
    std::optional<DisplayCopy> display = DisplayCopy::Create(display_copy, info, *LayoutOf(info));
    DeleteQuietly(byte_copy);
    std::optional<AtomicFile> copy = AtomicFile::Create(byte_copy);
    const bool written = display && copy && DisplayPass(*display, &copy->Out()).Run(*found.file, pixels) &&
                         copy->Commit() && display->Commit();
    return written ? ReadResult::accepted : ReadResult::write_failed;
}

ReadResult ReadTiffSamples(const fs::path& source, SampleSink* sink) {
    LookedAt found = LookAt(source);
    if (found.result != ReadResult::accepted || !sink) return found.result;
    const TiffInfo& info = found.header.info;
    const PixelLayout layout = *LayoutOf(info);
    SamplePass pass(*sink, ChannelsOf(layout));
    const bool taken = sink->Begin(info.width, info.height, RowOrder::top_down) &&
                       PixelReader(*found.file, info, layout).ForEachBlock(pass);
    return taken ? ReadResult::accepted : ReadResult::write_failed;
}

Tiff16Conversion ConvertTiff16(const fs::path& source, const fs::path& display_copy,
                               const fs::path& data_copy, int valid_bits) {
    LookedAt found = LookAt16(source);
    if (found.result != ReadResult::accepted) return {};
    const TiffInfo& info = found.header.info;
    PixelReader pixels(*found.file, info, Layout16(info));
    if (data_copy.empty())
        return {true, true, WriteDisplay(*found.file, pixels, Layout16(info), info, display_copy), 0};
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

Tiff16Reading ReadTiff16Samples(const fs::path& source, int valid_bits, SampleSink* sink) {
    LookedAt found = LookAt16(source);
    if (found.result != ReadResult::accepted) return {.result = found.result};
    const TiffInfo& info = found.header.info;
    PixelReader pixels(*found.file, info, Layout16(info));
    BitsGuess guess(valid_bits);
    do {
        guess.Mend();
        if (!sink && guess.Settled()) break;
        ScaledPass pass(guess, sink, ChannelsOf(Layout16(info)));
        const bool begun = !sink || sink->Begin(info.width, info.height, RowOrder::top_down);
        if (!begun || !pass.Run(pixels)) return {.result = ReadResult::write_failed};
    } while (sink && guess.Failed());
    guess.Mend();
    return {.valid_bits = guess.Bits()};
}

}  // namespace pixora
