#include "analysis/histogram_scale.h"

#include <algorithm>

#include "analysis/level_cursor.h"
#include "analysis/measurement.h"
#include "base/number_text.h"

namespace pixora {
namespace {

/// What a level of 16 bits is divided by to be one of the valid bits.
std::uint32_t ValidBitsDivisor(std::uint32_t valid_bits) {
    switch (valid_bits) {
        case 8:
            return 256;
        case 10:
            return 64;
        case 12:
            return 16;
        case 14:
            return 4;
        default:
            return 1;
    }
}

/// The width that stays unused.
int Margin(std::uint32_t bits) {
    switch (bits) {
        case 10:
        case 12:
        case 14:
            return 2;
        case 16:
            return 0;
        default:
            return 1;
    }
}

}  // namespace

int UsableWidth(const HistogramScale& scale) {
    return std::max(scale.width - Margin(scale.bits), 0);
}

double BinStep(const HistogramScale& scale) {
    return static_cast<double>(UsableWidth(scale)) / static_cast<double>(BinCount(scale.bits));
}

int ColumnOfBin(std::int64_t bin, double step) {
    return Truncate(static_cast<double>(bin) * step) + 1;
}

int ColumnOfCursor(std::uint32_t level, double step) {
    return std::max(Truncate(level * step), 1);
}

int GridColumn(const HistogramScale& scale, int number) {
    return number * UsableWidth(scale) / 8;
}

int QuarterLabelLeft(const HistogramScale& scale, int quarter, int label_width) {
    return GridColumn(scale, 2 * quarter) - label_width / 2;
}

int FullScaleLabelTop(int label_height) {
    constexpr int kTopOfAxis = 1;  // the frame is above it
    return kTopOfAxis - label_height / 2;
}

// Deliberate: the click begins with the bits per sample, whatever the measurements work with.
std::uint32_t LevelAtClick(int x, int plot_left, int plot_right, const ImageBuffer& image) {
    const std::uint32_t largest = MaxLevel(image.bits_per_sample);
    std::uint32_t level = 0;
    if (x > plot_right || plot_right <= plot_left) {
        level = x > plot_right ? largest : 0;
    } else if (x >= plot_left - 1) {
        const double step = (static_cast<double>(plot_right) - plot_left) /
                            static_cast<double>(BinCount(image.bits_per_sample));
        const int found = Truncate((static_cast<double>(x) - plot_left) / step);
        level = std::min(static_cast<std::uint32_t>(std::max(found, 0)), largest);
    }
    return level / (image.raw_data ? ValidBitsDivisor(image.valid_bits) : 1);
}

}  // namespace pixora
