#include "cli/region_sink.h"

#include <algorithm>
#include <utility>

#include "cli/stop.h"
#include "image/pixels.h"

namespace pixora::cli {
bool IsInside(const Region& region, int width, int height) {
    return !IsEmpty(region) && ClippedTo(region, width, height) == region;
}

void RegionSink::Expect(const std::optional<Region>& region) {
    wanted_ = region;
    row_wanted_.reset();
    end_ = End::none;
}

void RegionSink::ExpectLine(bool row, int line, const std::optional<Region>& extent) {
    Expect(extent);
    row_wanted_ = row;
    line_ = line;
}

bool RegionSink::Begin(std::uint32_t width, std::uint32_t height, RowOrder order) {
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
    else if (!MakeRoom())
        end_ = End::no_memory;
    return end_ == End::none;
}

bool RegionSink::MakeRoom() {
    buffer_.width = part_.right - part_.left + 1;
    buffer_.height = part_.bottom - part_.top + 1;
    const std::uint64_t needed = std::uint64_t{3} * Width() * static_cast<std::size_t>(buffer_.height);
    if (buffer_.samples.All().size() >= needed) {
        used_before_ = true;
        return true;
    }
    buffer_.samples = {};  // the old memory goes before the new is taken
    auto samples = ZeroedArray<std::uint16_t>::Make(needed);
    if (!samples) return false;
    buffer_.samples = *std::move(samples);
    used_before_ = false;
    return true;
}

bool RegionSink::Take(std::span<const std::uint16_t> samples, std::size_t channels) {
    if (StopRequested()) {
        end_ = End::stopped;
        return false;
    }
    const auto image_width = static_cast<std::size_t>(image_width_);
    while (!samples.empty() && row_ < static_cast<std::size_t>(image_height_)) {
        const std::size_t pixels = std::min(samples.size() / channels, image_width - column_);
        if (const std::optional<std::size_t> row = RowInPart())
            Keep(samples.first(pixels * channels), channels, *row);
        samples = samples.subspan(pixels * channels);
        column_ += pixels;
        if (column_ == image_width) {
            column_ = 0;
            ++row_;
        }
    }
    return true;
}

std::optional<std::size_t> RegionSink::RowInPart() const {
    const int arrived = static_cast<int>(row_);
    const int row = order_ == RowOrder::top_down ? arrived : image_height_ - 1 - arrived;
    if (row < part_.top || row > part_.bottom) return std::nullopt;
    return static_cast<std::size_t>(row - part_.top);
}

// `run` begins at the current column.
void RegionSink::Keep(std::span<const std::uint16_t> run, std::size_t channels, std::size_t row) {
    const std::size_t left = static_cast<std::size_t>(part_.left),
                      right = static_cast<std::size_t>(part_.right);
    const std::size_t first = std::max(column_, left);
    const std::size_t end = std::min(column_ + run.size() / channels, right + 1);
    if (first >= end) return;
    const auto from = run.subspan((first - column_) * channels, (end - first) * channels);
    const auto to = buffer_.samples.All().subspan(3 * (row * Width() + first - left), 3 * (end - first));
    if (channels == 1)
        RepeatGrey(from, to);
    else
        std::ranges::copy(from, to.begin());
}

void RegionSink::Complete() {
    if (!used_before_) return;
    for (; row_ < static_cast<std::size_t>(image_height_); ++row_, column_ = 0) {
        const std::optional<std::size_t> row = RowInPart();
        if (!row) continue;
        const std::size_t left = static_cast<std::size_t>(part_.left);
        const std::size_t first = std::max(column_, left) - left;
        if (first >= Width()) continue;
        std::ranges::fill(buffer_.samples.All().subspan(3 * (*row * Width() + first), 3 * (Width() - first)),
                          std::uint16_t{0});
    }
}

std::span<const std::uint16_t> RegionSink::All() const {
    return buffer_.samples.All().first(3 * Width() * static_cast<std::size_t>(buffer_.height));
}

}  // namespace pixora::cli
