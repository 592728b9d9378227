#include "image/tiff_reader.h"

#include <algorithm>
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

    // Hands the samples to `take(bytes as read, samples)` block by block, what is missing of a last unit as
    // zeros.
    // @return false when `take` said so.
    template <typename Take>
    bool ForEachBlock(Take take) {
        if (!file_.Seek(start_)) return true;
        const std::size_t block_units = kBlockBytes / unit_.bytes;
        block_.resize(block_units * unit_.bytes);
        for (std::uint64_t left = End() - start_; left > 0;) {
            const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left, block_.size()));
            const auto [got, whole] = file_.ReadUnits(std::span(block_).first(wanted), unit_.bytes);
            if (got == 0) return true;
            const std::size_t units = whole / unit_.bytes;
            samples_.resize(units * unit_.pixels * ChannelsOf(layout_));
            DecodePixels(layout_, std::span(block_).first(whole), samples_);
            if (!take(std::span<const std::byte>(block_).first(got), std::span(samples_))) return false;
            left -= got;
            if (got < wanted) return true;
        }
        return true;
    }

private:
    File& file_;
    PixelLayout layout_;
    PixelUnit unit_;
    std::uint64_t start_, pixels_;
    std::vector<std::byte> block_;
    std::vector<std::uint16_t> samples_;
};

// The display copy while it is being made.
class DisplayCopy {
public:
    static std::optional<DisplayCopy> Make(const TiffInfo& info, PixelLayout layout) {
        std::optional<Picture> picture = Picture::Make(info.width, info.height, RowOrder::top_down);
        if (!picture) return std::nullopt;
        return DisplayCopy(*std::move(picture), DisplayShift(info), ChannelsOf(layout) == 1);
    }

    void Take(std::span<const std::uint16_t> samples) {
        bytes_.resize(samples.size());
        NarrowSamples(samples, shift_, bytes_);
        if (!grey_) return picture_.Append(bytes_);
        triples_.resize(3 * bytes_.size());
        RepeatGrey(bytes_, triples_);
        picture_.Append(triples_);
    }

    [[nodiscard]] bool Save(const fs::path& path) const { return picture_.Save(path); }

private:
    DisplayCopy(Picture picture, int shift, bool grey)
        : picture_(std::move(picture)), shift_(shift), grey_(grey) {}

    Picture picture_;
    int shift_;
    bool grey_;
    std::vector<std::byte> bytes_, triples_;
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

// One pass over the pixels for the display copy, the whole file going to `copy` (if any) on the way.
bool ReadForDisplay(File& file, PixelReader& pixels, DisplayCopy& display, File* copy) {
    if (copy && !CopyRange(file, 0, pixels.Start(), *copy)) return false;
    const bool all = pixels.ForEachBlock([&](std::span<const std::byte> bytes, auto samples) {
        display.Take(samples);
        return !copy || copy->Write(bytes);
    });
    return all && (!copy || CopyRange(file, pixels.End(), file.Size(), *copy));
}

// The data copy while it is being made. With no given number of valid bits the first block decides; should a
// later one prove it wrong, the copy is written once more when all samples have been seen.
class DataCopy {
public:
    DataCopy(File& out, int given_bits)
        : out_(out), automatic_(!IsValidBitCount(given_bits)), bits_(given_bits) {}

    // Scales the samples in place. @return false when they could not be written.
    bool Take(std::span<std::uint16_t> samples) {
        seen_ += samples.size();
        if (automatic_) {
            detector_.Add(samples);
            if (!IsValidBitCount(bits_)) bits_ = detector_.Bits();
            if (detector_.Bits() != bits_) guess_failed_ = true;
        }
        return guess_failed_ || Append(samples);
    }

    // Fills up with zeros for what a short file does not hold. @return false when it could not be written.
    bool Finish(PixelReader& pixels) {
        if (automatic_ && seen_ < pixels.Samples()) {
            const std::uint16_t missing = 0;
            detector_.Add({&missing, 1});
            guess_failed_ = guess_failed_ || detector_.Bits() != bits_;
        }
        if (guess_failed_ && !WriteAgain(pixels)) return false;
        return out_.ExtendTo(2 * pixels.Samples());
    }

    [[nodiscard]] int Bits() const { return bits_; }

private:
    bool Append(std::span<std::uint16_t> samples) {
        return ScaleToValidBits(samples, bits_) && out_.Write(std::as_bytes(samples));
    }

    bool WriteAgain(PixelReader& pixels) {
        bits_ = detector_.Bits();
        return out_.Seek(0) && pixels.ForEachBlock([&](auto, auto samples) { return Append(samples); });
    }

    File& out_;
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
    std::optional<DisplayCopy> display = DisplayCopy::Make(header.info, layout);
    if (!display || !pixels.HasAnyPixelData()) return {.result = ReadResult::invalid};

    std::optional<AtomicFile> copy;
    if (!byte_copy.empty()) {
        DeleteQuietly(byte_copy);
        copy = AtomicFile::Create(byte_copy);
        if (!copy) return {.result = ReadResult::write_failed};
    }
    const bool written = ReadForDisplay(*file, pixels, *display, copy ? &copy->Out() : nullptr) &&
                         (!copy || copy->Commit()) && display->Save(display_copy);
    if (!written) conversion.result = ReadResult::write_failed;
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
    std::optional<DisplayCopy> display = DisplayCopy::Make(header.info, layout);
    DeleteQuietly(data_copy);
    std::optional<AtomicFile> out = AtomicFile::Create(data_copy);
    if (!display || !out || !pixels.HasAnyPixelData()) return {};

    DataCopy data(out->Out(), valid_bits);
    const bool read = pixels.ForEachBlock([&](auto, std::span<std::uint16_t> samples) {
        display->Take(samples);  // first: the data copy scales the samples in place
        return data.Take(samples);
    });
    if (!read || !data.Finish(pixels) || !out->Commit()) return {};
    return {.data_written = true, .display_written = display->Save(display_copy), .valid_bits = data.Bits()};
}

}  // namespace pixora
