// The pixels of an uncompressed TIFF, block by block.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/file.h"
#include "image/pixels.h"
#include "image/tiff_header.h"

namespace pixora {

/// Reads the pixels straight through from the first strip, as if the strips were contiguous. A last pixel
/// that is no whole unit of the layout (the odd one of packed 12 bits) is not read.
class PixelReader {
public:
    /// @param file  must outlive the reader.
    PixelReader(File& file, const TiffInfo& info, PixelLayout layout)
        : file_(file),
          layout_(layout),
          unit_(UnitOf(layout)),
          start_(info.first_strip_offset),
          pixels_(std::uint64_t{info.width} * info.height) {}

    /// Samples of the whole image, whether or not the file holds them.
    [[nodiscard]] std::uint64_t Samples() const { return pixels_ * ChannelsOf(layout_); }
    /// Where the pixels start and end in the file, as its header says.
    [[nodiscard]] std::uint64_t Start() const { return start_; }
    [[nodiscard]] std::uint64_t End() const { return start_ + pixels_ / unit_.pixels * unit_.bytes; }

    /// For each block: visitor.See(bytes as stored), then visitor.Take(samples) for the decoded samples in
    /// pieces of whole pixels, which it may change, then visitor.Keep(samples) for all of them where the
    /// layout stores words and has them in place. What is missing of a last unit is zeros; a file that ends
    /// early just ends the reading.
    /// @return false when See() or Keep() said so, or a stop was requested.
    template <typename Visitor>
    [[nodiscard]] bool ForEachBlock(Visitor& visitor) {
        if (!file_.Seek(start_)) return true;
        block_.resize(kBlockBytes / 2);
        const auto block =
            std::as_writable_bytes(std::span(block_)).first(kBlockBytes / unit_.bytes * unit_.bytes);
        for (std::uint64_t left = End() - start_; left > 0;) {
            const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left, block.size()));
            if (StopRequested()) return false;
            const auto [got, whole] = file_.ReadUnits(block.first(wanted), unit_.bytes);
            if (got == 0) return true;
            if (!visitor.See(block.first(got))) return false;
            const std::size_t piece = kPieceSamples / ChannelsOf(layout_) / unit_.pixels * unit_.bytes;
            for (std::size_t at = 0; at < whole; at += piece)
                visitor.Take(Decode(at, std::min(piece, whole - at)));
            if (!visitor.Keep(std::span(block_).first(whole / 2))) return false;
            left -= got;
            if (got < wanted) return true;
        }
        return true;
    }

    /// For each block: consume(whole units as stored). What is missing of a last unit is zeros; a file that
    /// ends early just ends the reading.
    /// @return false when `consume` did, or a stop was requested.
    template <typename Consume>
    [[nodiscard]] bool ForEachStored(Consume consume) {
        return !file_.Seek(start_) || pixora::ForEachBlock(file_, End() - start_, unit_.bytes,
                                                           [&](auto, auto whole) { return consume(whole); });
    }

private:
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

}  // namespace pixora
