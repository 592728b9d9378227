#include "analysis/histogram_plot.h"

#include <algorithm>

#include "analysis/channel.h"
#include "base/number_text.h"

namespace pixora {
namespace {

constexpr int kVerticalGridLines = 7;
constexpr std::array<PlotColour, 3> kChannelColours = {kPlotBlue, kPlotGreen, kPlotRed};  // by place

PlotColour BarColour(bool colour, std::size_t place) {
    return colour ? kChannelColours[place] : kPlotDarkBlue;
}

}  // namespace

void HistogramPainter::Draw(const Measurement& measurement, const HistogramLook& look) {
    const ChannelPlaces places = PlacesOf(measurement.colour, look.channel);
    TakeBins(measurement, look, places);
    plot_.width = look.scale.width;
    plot_.height = look.scale.height;
    plot_.grid.clear();
    plot_.boxes.clear();
    plot_.cursors.clear();
    AddGrid(look.scale);
    for (const std::size_t place : places.Places()) {
        FillColumns(bins_[place], look.scale);
        // Bars of several channels would hide one another.
        if (places.count == 1)
            AddBars(BarColour(measurement.colour, place));
        else
            AddOutline(BarColour(measurement.colour, place));
    }
    AddCursor(look);
}

void HistogramPainter::TakeBins(const Measurement& measurement, const HistogramLook& look,
                                const ChannelPlaces& places) {
    std::uint32_t largest = 0;
    for (const std::size_t place : places.Places()) {
        DrawnBins& bins = bins_[place];
        GroupBins(measurement.counts[place], look.binning, bins);
        if (!bins.counts.empty()) largest = std::max(largest, std::ranges::max(bins.counts));
    }
    axis_ = DivideAxis(largest);
}

double HistogramPainter::CountStep(const HistogramScale& scale) const {
    return axis_.full_scale == 0 ? 0 : static_cast<double>(scale.height - 2) / axis_.full_scale;
}

void HistogramPainter::AddGrid(const HistogramScale& scale) {
    const int bottom = scale.height - 1, right = std::min(UsableWidth(scale), scale.width - 2);
    int drawn = bottom;
    for (int k = 1; k < axis_.count; ++k) {
        const double ratio = static_cast<double>(axis_.unit) / axis_.full_scale;
        const int y = bottom - Truncate(static_cast<double>(k) * (scale.height - 2) * ratio);
        // Counts at the end of the table have far more divisions than the plot has rows.
        if (y != drawn) plot_.grid.push_back({{1, y}, {right, y}, kPlotGrey, true});
        drawn = y;
    }
    for (int k = 1; k <= kVerticalGridLines; ++k) {
        const int x = GridColumn(scale, k);
        plot_.grid.push_back({{x, 1}, {x, bottom - 1}, kPlotGrey, true});
    }
}

void HistogramPainter::FillColumns(const DrawnBins& bins, const HistogramScale& scale) {
    columns_.assign(static_cast<std::size_t>(std::max(scale.width, 0)), {});
    const double step = BinStep(scale), count_step = CountStep(scale);
    const int inside = scale.width - 1;  // the frame's right edge
    if (inside <= 1) return;
    int left = ColumnOfBin(0, step);
    for (std::size_t bin = 0; bin < bins.counts.size(); ++bin) {
        const int right = ColumnOfBin(static_cast<std::int64_t>((bin + 1) * bins.group), step);
        const int height =
            std::clamp(Truncate(bins.counts[bin] * count_step), 0, std::max(scale.height - 2, 0));
        // Deliberate: bins on the frame or beyond it are drawn beside it, so that saturation is seen.
        for (int x = std::min(left, inside - 1); x < std::min(std::max(right, left + 1), inside); ++x) {
            Column& column = columns_[static_cast<std::size_t>(x)];
            column.low = column.used ? std::min(column.low, height) : height;
            column.high = std::max(column.high, height);
            column.last = height;
            column.used = true;
        }
        left = right;
    }
}

void HistogramPainter::AddRun(int left, int right, int top, int bottom, PlotColour colour) {
    if (left < right && top < bottom) plot_.boxes.push_back({left, top, right, bottom, colour});
}

// Both leave out the first and the last column, which are the frame's.
void HistogramPainter::AddBars(PlotColour colour) {
    const int bottom = plot_.height - 1, end = plot_.width - 1;
    int begin = 1, height = 0;
    for (int x = 1; x < end; ++x) {
        const int here = columns_[static_cast<std::size_t>(x)].high;
        if (here == height) continue;
        AddRun(begin, x, bottom - height, bottom, colour);
        begin = x;
        height = here;
    }
    AddRun(begin, end, bottom - height, bottom, colour);
}

void HistogramPainter::AddOutline(PlotColour colour) {
    const int bottom = plot_.height - 1, end = plot_.width - 1;
    if (end <= 1) return;
    int begin = 1, low = columns_[1].low, high = columns_[1].high, before = low;
    const auto add = [&](int until) {
        AddRun(begin, until, bottom - high, std::min(bottom - low + 1, bottom), colour);
    };
    for (int x = 1; x < end; ++x) {
        const Column& column = columns_[static_cast<std::size_t>(x)];
        // From the height that the column before ended with, so that the outline is one line.
        const int low_here = std::min(column.low, before), high_here = std::max(column.high, before);
        before = column.last;
        if (low_here == low && high_here == high) continue;
        add(x);
        begin = x;
        low = low_here;
        high = high_here;
    }
    add(end);
}

void HistogramPainter::AddCursor(const HistogramLook& look) {
    if (!look.cursor) return;
    const int x = ColumnOfCursor(*look.cursor, BinStep(look.scale));
    plot_.cursors.push_back({{x, 0}, {x, look.scale.height - 1}, CursorColour(look.channel)});
}

}  // namespace pixora
