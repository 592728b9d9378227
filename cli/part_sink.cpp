#include "cli/part_sink.h"

#include <algorithm>

namespace pixora::cli {

bool IsInside(const Region& region, int width, int height) {
    return !IsEmpty(region) && ClippedTo(region, width, height) == region;
}

void PartSink::Expect(const std::optional<Region>& region) {
    wanted_ = region;
    row_wanted_.reset();
    end_ = End::none;
}

void PartSink::ExpectLine(bool row, int line, const std::optional<Region>& extent) {
    Expect(extent);
    row_wanted_ = row;
    line_ = line;
}

bool PartSink::Begin(std::uint32_t width, std::uint32_t height, RowOrder order) {
    image_width_ = static_cast<int>(width);
    image_height_ = static_cast<int>(height);
    order_ = order;
    row_ = column_ = 0;
    part_ = wanted_.value_or(WholeImage(image_width_, image_height_));
    const bool region_inside = IsInside(part_, image_width_, image_height_);
    if (row_wanted_ == true) part_.top = part_.bottom = line_;
    if (row_wanted_ == false) part_.left = part_.right = line_;
    if (!region_inside || !IsInside(part_, image_width_, image_height_))
        end_ = End::outside;
    else if (!Start())
        end_ = End::no_memory;
    return end_ == End::none;
}

bool PartSink::Take(std::span<const std::uint16_t> samples, std::size_t channels) {
    const auto image_width = static_cast<std::size_t>(image_width_);
    while (!samples.empty() && row_ < static_cast<std::size_t>(image_height_)) {
        const std::size_t pixels = std::min(samples.size() / channels, RowsAtOnce() * image_width - column_);
        if (const std::optional<std::size_t> row = RowInPart())
            KeepPart(samples.first(pixels * channels), channels, *row);
        samples = samples.subspan(pixels * channels);
        Advance(pixels);
    }
    return true;
}

bool PartSink::TakeStored(const StoredPixels& pixels) {
    KeepStored(pixels);
    Advance(pixels.Pixels());
    return true;
}

void PartSink::Advance(std::size_t pixels) {
    const auto image_width = static_cast<std::size_t>(image_width_);
    row_ += (column_ + pixels) / image_width;
    column_ = (column_ + pixels) % image_width;
}

std::optional<std::size_t> PartSink::RowInPart() const {
    const int arrived = static_cast<int>(row_);
    const int row = order_ == RowOrder::top_down ? arrived : image_height_ - 1 - arrived;
    if (row < part_.top || row > part_.bottom) return std::nullopt;
    return static_cast<std::size_t>(row - part_.top);
}

// From the current row on, how many can be kept as if they were one.
std::size_t PartSink::RowsAtOnce() const {
    const bool whole = order_ == RowOrder::top_down && part_.left == 0 && part_.right == image_width_ - 1;
    const int row = static_cast<int>(row_);
    return whole && row >= part_.top && row <= part_.bottom ? static_cast<std::size_t>(part_.bottom - row) + 1
                                                            : 1;
}

// `run` begins at the current column.
void PartSink::KeepPart(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row) {
    if (RowsAtOnce() > 1) return Keep(run, channels, row, column_);
    const auto left = static_cast<std::size_t>(part_.left), right = static_cast<std::size_t>(part_.right);
    const std::size_t first = std::max(column_, left);
    const std::size_t end = std::min(column_ + run.size() / channels, right + 1);
    if (first >= end) return;
    Keep(run.subspan((first - column_) * channels, (end - first) * channels), channels, row, first - left);
}

}  // namespace pixora::cli
