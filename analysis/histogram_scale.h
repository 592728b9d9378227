// The axes of a histogram plot: where bins and levels lie in it.
#pragma once

#include <cstdint>

#include "image/image_buffer.h"

namespace pixora {

/// Size of the plot in pixels, the frame included, and the depth of what it shows.
struct HistogramScale {
    int width = 0, height = 0;
    std::uint32_t bits = 8;
    friend bool operator==(const HistogramScale&, const HistogramScale&) = default;
};

/// How many pixels of the plot's width the bins are spread over.
[[nodiscard]] int UsableWidth(const HistogramScale& scale);
/// Pixels per bin of the depth.
[[nodiscard]] double BinStep(const HistogramScale& scale);
/// The column in which bin `bin` of the depth begins, and its neighbour on the left ends.
[[nodiscard]] int ColumnOfBin(std::int64_t bin, double step);
/// The column of the level cursor, from the plot's left edge; never on that edge itself.
[[nodiscard]] int ColumnOfCursor(std::uint32_t level, double step);
/// The column of vertical grid line `number`, 1 to 7.
[[nodiscard]] int GridColumn(const HistogramScale& scale, int number);

/// The left edge of the label that stands under a quarter mark of the plot, from the plot's left edge.
/// @param quarter  1 to 4, from left to right.
[[nodiscard]] int QuarterLabelLeft(const HistogramScale& scale, int quarter, int label_width);

/// The top edge of the label that stands beside the top of the axis of counts, from the plot's top edge.
[[nodiscard]] int FullScaleLabelTop(int label_height);

/// The level that a click sets: 0 on the left of the plot, the largest level on its right.
/// @param x  of the click; as `plot_left` and `plot_right`, where the plot lies.
[[nodiscard]] std::uint32_t LevelAtClick(int x, int plot_left, int plot_right, const ImageBuffer& image);

}  // namespace pixora
