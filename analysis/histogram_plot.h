// The histogram as a plot.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/division.h"
#include "analysis/histogram_bins.h"
#include "analysis/histogram_scale.h"
#include "analysis/measurement.h"
#include "analysis/plot.h"

namespace pixora {

/// Everything that decides how a histogram looks, besides the counts.
struct HistogramLook {
    HistogramScale scale;
    int channel = 0;
    bool binning = true;
    std::optional<std::uint32_t> cursor;  ///< the level, when the cursor shows
    friend bool operator==(const HistogramLook&, const HistogramLook&) = default;
};

/// Draws histograms; keeps its memory from one to the next.
class HistogramPainter {
public:
    void Draw(const Measurement& measurement, const HistogramLook& look);

    [[nodiscard]] const Plot& Picture() const { return plot_; }
    /// The division of the axis of counts.
    [[nodiscard]] const Divisions& CountAxis() const { return axis_; }

private:
    /// The heights that a channel takes in one column of the plot.
    struct Column {
        int low = 0, high = 0;  ///< of the lowest and the highest bin
        int last = 0;           ///< of the bin that is furthest right
        bool used = false;
    };

    void TakeBins(const Measurement& measurement, const HistogramLook& look, const ChannelPlaces& places);
    void AddGrid(const HistogramScale& scale);
    void FillColumns(const DrawnBins& bins, const HistogramScale& scale);
    void AddBars(PlotColour colour);
    void AddOutline(PlotColour colour);
    void AddRun(int left, int right, int top, int bottom, PlotColour colour);
    void AddCursor(const HistogramLook& look);
    [[nodiscard]] double CountStep(const HistogramScale& scale) const;

    Plot plot_;
    Divisions axis_;
    std::array<DrawnBins, 3> bins_;  ///< by the channels' places in the pixel
    std::vector<Column> columns_;
};

}  // namespace pixora
