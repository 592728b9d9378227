// A plot as data: what is drawn, in pixels and colours, computed before any screen exists.
#pragma once

#include <cstdint>
#include <vector>

namespace pixora {

/// A colour as 0xBBGGRR.
using PlotColour = std::uint32_t;

inline constexpr PlotColour kPlotWhite = 0xFFFFFF, kPlotBlack = 0x000000, kPlotGrey = 0x808080,
                            kPlotRed = 0x0000FF, kPlotGreen = 0x00A000, kPlotBlue = 0xFF0000,
                            kPlotDarkBlue = 0xC80000;

/// A pixel of the plot; (0, 0) is its top-left corner.
struct PlotPoint {
    int x = 0, y = 0;
    friend bool operator==(const PlotPoint&, const PlotPoint&) = default;
};

/// A line of one pixel's width; both ends are painted.
struct PlotLine {
    PlotPoint from, to;
    PlotColour colour = kPlotBlack;
    bool dotted = false;
    friend bool operator==(const PlotLine&, const PlotLine&) = default;
};

/// A filled rectangle; right and bottom lie just outside.
struct PlotBox {
    int left = 0, top = 0, right = 0, bottom = 0;
    PlotColour colour = kPlotBlack;
    friend bool operator==(const PlotBox&, const PlotBox&) = default;
};

/// A whole plot, painted in the order of its members; whatever lies outside of it is cut off.
struct Plot {
    int width = 0, height = 0;  ///< pixels, the frame included
    PlotColour background = kPlotWhite;
    PlotColour frame = kPlotBlack;  ///< of the outermost pixels
    std::vector<PlotLine> grid;
    std::vector<PlotBox> boxes;
    std::vector<PlotLine> lines;
    std::vector<PlotLine> cursors;
    friend bool operator==(const Plot&, const Plot&) = default;
};

/// The colour of a level cursor: one that stands out from what the selected channel draws.
[[nodiscard]] PlotColour CursorColour(int channel);

}  // namespace pixora
