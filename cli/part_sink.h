// The part of an image that a command works with, while the image is read.
#pragma once

#include <optional>

#include "image/region.h"
#include "image/sample_sink.h"

namespace pixora::cli {

/// True when all of the region lies in an image of the given size.
[[nodiscard]] bool IsInside(const Region& region, int width, int height);

/// Finds out which samples belong to a region, or to a line within it, and hands them on. One object serves
/// many files after one another.
class PartSink : public SampleSink {
public:
    /// For the next file. @param region  the whole image when there is none.
    void Expect(const std::optional<Region>& region);
    /// For the next file: a row or column as far as it lies between the edges of `extent`.
    void ExpectLine(bool row, int line, const std::optional<Region>& extent);

    bool Begin(std::uint32_t width, std::uint32_t height, RowOrder order) final;
    bool Take(std::span<const std::uint16_t> samples, std::size_t channels) final;
    /// Only a part that is the whole image needs no look at its rows.
    [[nodiscard]] bool TakesStored() const final {
        return KeepsStored() && part_ == WholeImage(image_width_, image_height_);
    }
    bool TakeStored(const StoredPixels& pixels) final;
    /// Once the file has been read: what it lacked becomes zero.
    virtual void Complete() = 0;

    /// Why the reading was ended by this sink.
    enum class End { none, outside, no_memory };
    [[nodiscard]] End Ended() const { return end_; }

    /// Size of the image, once it has begun.
    [[nodiscard]] int ImageWidth() const { return image_width_; }
    [[nodiscard]] int ImageHeight() const { return image_height_; }
    /// The region in the image.
    [[nodiscard]] const Region& Part() const { return part_; }

protected:
    [[nodiscard]] std::size_t Width() const { return static_cast<std::size_t>(part_.right - part_.left) + 1; }
    [[nodiscard]] std::size_t Height() const {
        return static_cast<std::size_t>(part_.bottom - part_.top) + 1;
    }

    /// Before the first samples of the part, with Part() known. @return false without the memory for it.
    [[nodiscard]] virtual bool Start() = 0;
    /// Samples of the part, from one place in it to the end of that row at most; or, when the part is as wide
    /// as the image and comes from the top, also of the rows that follow. @param row, column  in the part.
    virtual void Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row,
                      std::size_t column) = 0;

    /// Whether KeepStored() works with pixels as they are stored.
    [[nodiscard]] virtual bool KeepsStored() const { return false; }
    /// Pixels of the whole image, in the order of arrival.
    virtual void KeepStored(const StoredPixels&) {}

    /// Goes on as if pixels came that are not kept. Calls `missed(row, column)` for each row of the part of
    /// which the pixels from `column` on have not come.
    template <typename Missed>
    void SkipToEnd(Missed missed) {
        for (; row_ < static_cast<std::size_t>(image_height_); ++row_, column_ = 0) {
            const std::optional<std::size_t> row = RowInPart();
            const std::size_t left = static_cast<std::size_t>(part_.left);
            const std::size_t column = column_ > left ? column_ - left : 0;
            if (row && column < Width()) missed(*row, column);
        }
    }

private:
    [[nodiscard]] std::optional<std::size_t> RowInPart() const;
    [[nodiscard]] std::size_t RowsAtOnce() const;
    void Advance(std::size_t pixels);
    void KeepPart(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row);

    std::optional<Region> wanted_;
    std::optional<bool> row_wanted_;
    int line_ = 0;
    End end_ = End::none;
    int image_width_ = 0, image_height_ = 0;
    RowOrder order_ = RowOrder::top_down;
    Region part_;
    std::size_t row_ = 0, column_ = 0;  // of the next pixel, in the order of arrival
};

}  // namespace pixora::cli
