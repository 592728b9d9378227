#include "analysis/profile_plot.h"

#include <algorithm>
#include <utility>

#include "analysis/channel.h"

namespace pixora {
namespace {

// Adds a segment to a line. Those that stay in one column of pixels grow into one stroke.
void AddSegment(std::vector<PlotLine>& lines, PlotPoint from, PlotPoint to, PlotColour colour) {
    if (from.x != to.x) {
        lines.push_back({from, to, colour});
        return;
    }
    const int low = std::min(from.y, to.y), high = std::max(from.y, to.y);
    if (!lines.empty()) {
        PlotLine& last = lines.back();
        const bool stroke = last.from.x == from.x && last.to.x == from.x;
        if (stroke && low <= last.to.y && high >= last.from.y) {
            last.from.y = std::min(last.from.y, low);
            last.to.y = std::max(last.to.y, high);
            return;
        }
    }
    lines.push_back({{from.x, low}, {from.x, high}, colour});
}

void AddTrace(const LineProfile& profile, std::size_t place, PlotColour colour, const ProfileScale& scale,
              Plot& plot) {
    const std::vector<PlotLine> trace = TraceOf(profile.values[place], scale, colour);
    plot.lines.insert(plot.lines.end(), trace.begin(), trace.end());
}

void AddTraces(const LineProfile& profile, const ProfileLook& look, Plot& plot) {
    const auto add = [&](std::size_t place, PlotColour colour) {
        AddTrace(profile, place, colour, look.scale, plot);
    };
    if (!look.colour) return add(0, kPlotDarkBlue);
    const bool all = look.channel == kAllChannels;
    // Any selector that is none of the others shows red.
    if (all || (look.channel != kGreen && look.channel != kBlue)) add(2, kPlotRed);
    if (all || look.channel == kGreen) add(1, kPlotGreen);
    if (all || look.channel == kBlue) add(0, kPlotBlue);
}

// From edge to edge inside the frame, which stays whole.
void AddGrid(const ProfileScale& scale, int positions, Plot& plot) {
    for (const std::uint32_t level : GridLevels(scale.bits)) {
        const int y = RowOfLevel(scale, level);
        plot.grid.push_back({{1, y}, {scale.width - 2, y}, kPlotGrey, true});
    }
    for (const int x : GridColumns(scale, positions))
        plot.grid.push_back({{x, 1}, {x, scale.height - 2}, kPlotGrey, true});
}

void AddCursor(const ProfileLook& look, Plot& plot) {
    const int y = RowOfCursor(look.scale, look.level);
    const PlotColour colour = CursorColour(look.colour ? look.channel : kGrey);
    // On the bottom edge black would be lost in the frame.
    const bool lost = y == plot.height - 1 && colour == plot.frame;
    plot.cursors.push_back({{0, y}, {plot.width - 1, y}, lost ? kPlotGrey : colour});
}

}  // namespace

PlotColour ProfileTint(ProfileKind kind) {
    return kind == ProfileKind::horizontal ? 0xFFFFEB : 0xEBFAFF;
}

std::vector<PlotLine> TraceOf(std::span<const std::uint16_t> values, const ProfileScale& scale,
                              PlotColour colour) {
    if (values.empty()) return {};
    const int positions = static_cast<int>(values.size());
    if (positions == 1) {
        const int y = std::max(RowOfLevel(scale, values[0]), 0);
        return {{{1, y}, {ColumnOf(UsableWidth(scale), 1.0), y}, colour}};
    }
    const double step = PositionStep(scale, positions);
    const auto point = [&](int k) {
        return PlotPoint{ColumnOf(k, step), RowOfLevel(scale, values[static_cast<std::size_t>(k)])};
    };
    std::vector<PlotLine> lines;
    PlotPoint to = point(0);
    for (int k = 0; k < positions - 1; ++k) {
        const PlotPoint from = to;
        to = point(k + 1);
        if (from.y < 0 || to.y < 0) {
            // Deliberate: a segment that leaves the plot runs along its top as a whole.
            AddSegment(lines, {from.x, 0}, {to.x, 0}, colour);
        } else {
            AddSegment(lines, from, to, colour);
        }
    }
    return lines;
}

Plot PlotProfile(const LineProfile& profile, const ProfileLook& look) {
    const ProfileScale& scale = look.scale;
    Plot plot;
    plot.width = scale.width;
    plot.height = scale.height;
    plot.background = ProfileTint(look.kind);
    AddGrid(scale, profile.count, plot);
    AddTraces(profile, look, plot);
    if (look.level_shown) AddCursor(look, plot);
    return plot;
}

}  // namespace pixora
