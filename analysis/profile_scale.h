// The axes of a profile plot: where samples, levels and positions lie in it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/plot.h"

namespace pixora {

/// Size of the plot in pixels, the frame included, and the depth of what it shows.
struct ProfileScale {
    int width = 0, height = 0;
    std::uint32_t bits = 8;  ///< any other depth than 8, 10, 12, 14 and 16 acts as 8
};

/// The row of a level or sample, from the plot's top; 0 lies on the bottom edge. Negative when the level is
/// beyond the plot's full scale.
[[nodiscard]] int RowOfLevel(const ProfileScale& scale, std::uint32_t level);
/// The row of the level cursor. Low levels lie on the bottom edge itself.
[[nodiscard]] int RowOfCursor(const ProfileScale& scale, std::uint32_t level);
/// The level that a click sets; above and below the plot it is the largest one and 0.
/// @param at  from the plot's top-left corner. @return nothing for a click beside the plot.
[[nodiscard]] std::optional<std::uint32_t> LevelAt(const ProfileScale& scale, PlotPoint at);

/// The levels of the horizontal grid, the lowest first.
[[nodiscard]] std::vector<std::uint32_t> GridLevels(std::uint32_t bits);
/// The levels that the axis is labelled with, the top one first. That one is the largest level; the others
/// are quarters of the full range.
[[nodiscard]] std::array<std::uint32_t, 4> LabelLevels(std::uint32_t bits);
/// The top edge of a label of the given height that stands beside its level, from the plot's top.
[[nodiscard]] int LabelTop(const ProfileScale& scale, std::uint32_t level, int label_height);

/// How many pixels of the plot's width the positions are spread over.
[[nodiscard]] int UsableWidth(const ProfileScale& scale);
/// The distance of two positions in pixels.
[[nodiscard]] double PositionStep(const ProfileScale& scale, int positions);
/// The column of position `index`, from 0.
[[nodiscard]] int ColumnOf(int index, double step);

/// Positions per division of the vertical grid; 1 when there is only one position or none.
[[nodiscard]] std::uint32_t PositionsPerDivision(int positions);
/// The columns of the vertical grid, from left to right.
[[nodiscard]] std::vector<int> GridColumns(const ProfileScale& scale, int positions);

}  // namespace pixora
