#include "analysis/profile_scale.h"

#include <algorithm>
#include <cmath>

#include "analysis/division.h"
#include "analysis/level_cursor.h"
#include "base/number_text.h"

namespace pixora {
namespace {

// What depends on the depth alone.
struct Depth {
    double factor;              ///< of the plot's height for one level
    std::uint32_t grid, limit;  ///< a grid line every `grid` levels below `limit`
};

Depth DepthOf(std::uint32_t bits) {
    switch (bits) {
        case 10:
            return {0.0009765625, 128, 1024};
        case 12:
            return {0.000244140625, 512, 4096};
        case 14:
            return {6.103515625e-5, 2048, 16384};
        case 16:
            // Deliberate: the lines stand 8196 apart, not an eighth of the range.
            return {1.52587890625e-5, 8196, 65568};
        default:
            return {0.00390625, 32, 256};
    }
}

int Bottom(const ProfileScale& scale) {
    return scale.height - 1;
}

int HeightOfLevel(const ProfileScale& scale, std::uint32_t level) {
    const double yscale = scale.height * DepthOf(scale.bits).factor;
    return Truncate(level * yscale);
}

}  // namespace

int RowOfLevel(const ProfileScale& scale, std::uint32_t level) {
    return Bottom(scale) - HeightOfLevel(scale, level);
}

int RowOfCursor(const ProfileScale& scale, std::uint32_t level) {
    // Deliberate: the lowest rows are given up so that the cursor does not hide in the frame.
    return HeightOfLevel(scale, level) < 2 ? Bottom(scale) : RowOfLevel(scale, level);
}

std::optional<std::uint32_t> LevelAt(const ProfileScale& scale, PlotPoint at) {
    if (at.x < 0 || at.x >= scale.width) return std::nullopt;
    const std::uint32_t max = MaxLevel(scale.bits);
    if (at.y < 0) return max;
    const int inner = scale.height - 2;
    if (at.y >= scale.height || inner <= 0) return 0;
    const double row = at.y / (inner * DepthOf(scale.bits).factor);
    return max - std::min(static_cast<std::uint32_t>(Truncate(row)), max);
}

std::vector<std::uint32_t> GridLevels(std::uint32_t bits) {
    const Depth depth = DepthOf(bits);
    std::vector<std::uint32_t> levels;
    for (std::uint32_t level = depth.grid; level < depth.limit; level += depth.grid) levels.push_back(level);
    return levels;
}

std::array<std::uint32_t, 4> LabelLevels(std::uint32_t bits) {
    const std::uint32_t max = MaxLevel(bits), quarter = (max + 1) / 4;
    // Deliberate: the top label names the largest level, not the full range.
    return {max, 3 * quarter, 2 * quarter, quarter};
}

int LabelTop(const ProfileScale& scale, std::uint32_t level, int label_height) {
    return RowOfLevel(scale, level) - label_height / 2;
}

int UsableWidth(const ProfileScale& scale) {
    return std::max(scale.width - 3, 0);
}

double PositionStep(const ProfileScale& scale, int positions) {
    return positions <= 1 ? 1.0 : static_cast<double>(UsableWidth(scale)) / (positions - 1);
}

int ColumnOf(int index, double step) {
    return Truncate(index * step + 1.0);
}

std::uint32_t PositionsPerDivision(int positions) {
    return positions <= 1 ? 1 : UnitPerDivision(positions - 1);
}

std::vector<int> GridColumns(const ProfileScale& scale, int positions) {
    if (positions <= 1) return {};
    const int last = positions - 1;
    const int unit = static_cast<int>(PositionsPerDivision(positions));
    const int divisions = (last + unit - 1) / unit;
    const double usable = UsableWidth(scale);
    std::vector<int> columns;
    for (int k = 1; k < divisions; ++k) columns.push_back(Truncate(k * usable * unit / last));
    return columns;
}

}  // namespace pixora
