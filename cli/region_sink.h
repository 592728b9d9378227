// The samples of a region, kept as they are read from their file.
#pragma once

#include <optional>

#include "image/region.h"
#include "image/sample_sink.h"
#include "viewer/sample_buffer.h"

namespace pixora::cli {

/// True when all of the region lies in an image of the given size.
[[nodiscard]] bool IsInside(const Region& region, int width, int height);

/// Keeps the samples of a region as a buffer of the region's size. One object serves many files after one
/// another and keeps its memory.
class RegionSink final : public SampleSink {
public:
    /// For the next file. @param region  the whole image when there is none.
    void Expect(const std::optional<Region>& region);
    /// For the next file: a row or column as far as it lies between the edges of `extent`.
    void ExpectLine(bool row, int line, const std::optional<Region>& extent);

    bool Begin(std::uint32_t width, std::uint32_t height, RowOrder order) override;
    bool Take(std::span<const std::uint16_t> samples, std::size_t channels) override;

    /// Once the file has been read: what it lacked becomes zero.
    void Complete();

    /// Why the reading was ended by this sink.
    enum class End { none, outside, no_memory, stopped };
    [[nodiscard]] End Ended() const { return end_; }

    /// Size of the image, once it has begun.
    [[nodiscard]] int ImageWidth() const { return image_width_; }
    [[nodiscard]] int ImageHeight() const { return image_height_; }
    /// The region in the image.
    [[nodiscard]] const Region& Part() const { return part_; }
    /// Its samples; `samples` can be longer than the region needs.
    [[nodiscard]] SampleBuffer& Samples() { return buffer_; }
    /// The samples, exactly as many as the region has.
    [[nodiscard]] std::span<const std::uint16_t> All() const;

private:
    [[nodiscard]] std::size_t Width() const { return static_cast<std::size_t>(buffer_.width); }
    [[nodiscard]] bool MakeRoom();
    [[nodiscard]] std::optional<std::size_t> RowInPart() const;
    void Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row);

    std::optional<Region> wanted_;
    std::optional<bool> row_wanted_;
    int line_ = 0;
    End end_ = End::none;
    int image_width_ = 0, image_height_ = 0;
    RowOrder order_ = RowOrder::top_down;
    Region part_;
    SampleBuffer buffer_;
    bool used_before_ = false;          // the memory holds samples of an earlier reading
    std::size_t row_ = 0, column_ = 0;  // of the next pixel, in the order of arrival
};

}  // namespace pixora::cli
