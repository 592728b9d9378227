#include "analysis/profile_plot.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "base/number_text.h"

using namespace pixora;

namespace {

using Lines = std::vector<PlotLine>;
using Values = std::vector<std::uint16_t>;

constexpr PlotColour kPen = 0x123456;
constexpr ProfileScale kScale{.width = 103, .height = 256, .bits = 8};

ProfileLook Look(ProfileKind kind = ProfileKind::horizontal) {
    return {.kind = kind, .scale = kScale, .colour = false, .channel = 0, .level_shown = false, .level = 0};
}

LineProfile Colours() {
    return {.first = 0, .count = 2, .values = {{{10, 20}, {110, 120}, {210, 220}}}};
}

/// The pixels that lines paint, both ends included, for lines that are straight or diagonal in any way.
std::set<std::pair<int, int>> Painted(const Lines& lines) {
    std::set<std::pair<int, int>> pixels;
    for (const PlotLine& line : lines) {
        const int dx = line.to.x - line.from.x, dy = line.to.y - line.from.y;
        const int steps = std::max({std::abs(dx), std::abs(dy), 1});
        for (int i = 0; i <= steps; ++i)
            pixels.emplace(line.from.x + (2 * i * dx + steps) / (2 * steps),
                           line.from.y + (2 * i * dy + steps * (dy < 0 ? -1 : 1)) / (2 * steps));
    }
    return pixels;
}

/// Every segment by itself, as the rule has it.
Lines Segments(const Values& values, const ProfileScale& scale) {
    Lines lines;
    const double step = static_cast<double>(scale.width - 3) / (static_cast<double>(values.size()) - 1);
    for (std::size_t k = 0; k + 1 < values.size(); ++k) {
        PlotPoint from{Truncate(static_cast<double>(k) * step + 1.0), RowOfLevel(scale, values[k])};
        PlotPoint to{Truncate(static_cast<double>(k + 1) * step + 1.0), RowOfLevel(scale, values[k + 1])};
        if (from.y < 0 || to.y < 0) from.y = to.y = 0;
        lines.push_back({from, to, kPen});
    }
    return lines;
}

Values Noise(std::size_t count, unsigned below) {
    Values values;
    unsigned state = 1;
    for (std::size_t k = 0; k < count; ++k) {
        state = state * 1664525u + 1013904223u;
        values.push_back(static_cast<std::uint16_t>((state >> 8) % below));
    }
    return values;
}

}  // namespace

TEST_CASE("a profile is a segment from each position to the next") {
    CHECK(TraceOf(Values{0, 255, 100}, kScale, kPen) ==
          Lines{{{1, 255}, {51, 0}, kPen}, {{51, 0}, {101, 155}, kPen}});
}

TEST_CASE("a single position is a level line across the usable width") {
    CHECK(TraceOf(Values{100}, kScale, kPen) == Lines{{{1, 155}, {101, 155}, kPen}});
    CHECK(TraceOf(Values{300}, kScale, kPen) == Lines{{{1, 0}, {101, 0}, kPen}});
    CHECK(TraceOf(Values{}, kScale, kPen).empty());
}

TEST_CASE("a value above the full scale draws its segments on the top edge") {
    CHECK(TraceOf(Values{0, 256, 100, 50}, kScale, kPen) ==
          Lines{{{1, 0}, {34, 0}, kPen}, {{34, 0}, {67, 0}, kPen}, {{67, 155}, {101, 205}, kPen}});
}

TEST_CASE("positions that share a column of pixels are one stroke") {
    const ProfileScale narrow{.width = 5, .height = 256, .bits = 8};
    // Nine positions over two pixels: four share each of the first two columns.
    CHECK(TraceOf(Values{5, 9, 7, 6, 100, 50, 60, 70, 80}, narrow, kPen) ==
          Lines{{{1, 246}, {1, 250}, kPen},
                {{1, 249}, {2, 155}, kPen},
                {{2, 155}, {2, 205}, kPen},
                {{2, 185}, {3, 175}, kPen}});
}

TEST_CASE("a stroke stays apart from the top edge that a too large value draws") {
    const ProfileScale narrow{.width = 4, .height = 256, .bits = 8};
    CHECK(TraceOf(Values{5, 9, 300, 9, 5, 0}, narrow, kPen) == Lines{{{1, 246}, {1, 250}, kPen},
                                                                     {{1, 0}, {1, 0}, kPen},
                                                                     {{1, 246}, {1, 250}, kPen},
                                                                     {{1, 250}, {2, 255}, kPen}});
}

TEST_CASE("strokes paint the same pixels as all the segments") {
    for (const std::size_t count : {50u, 100u, 101u, 150u, 333u, 5000u}) {
        for (const unsigned below : {4u, 256u, 262u}) {
            CAPTURE(count);
            CAPTURE(below);
            const Values values = Noise(count, below);
            CHECK(Painted(TraceOf(values, kScale, kPen)) == Painted(Segments(values, kScale)));
        }
    }
}

TEST_CASE("the longest line of an image needs a few strokes for each column only") {
    CHECK(TraceOf(Noise(65535, 256), kScale, kPen).size() <= 2 * 102);
}

TEST_CASE("the orientations differ in their tint") {
    CHECK(PlotProfile({}, Look(ProfileKind::horizontal)).background == 0xFFFFEB);
    CHECK(PlotProfile({}, Look(ProfileKind::vertical)).background == 0xEBFAFF);
    CHECK(PlotProfile({}, Look()).frame == kPlotBlack);
}

TEST_CASE("without positions there is the grid of levels and nothing else") {
    const Plot plot = PlotProfile({}, Look());
    CHECK(plot.width == 103);
    CHECK(plot.height == 256);
    REQUIRE(plot.grid.size() == 7);
    CHECK(plot.grid[0].from == PlotPoint{1, 223});
    CHECK(plot.grid[0].to == PlotPoint{101, 223});
    for (const PlotLine& line : plot.grid) {
        CHECK(line.colour == 0x808080);
        CHECK(line.dotted);
    }
    CHECK(plot.grid[6].from == PlotPoint{1, 31});
    CHECK(plot.boxes.empty());
    CHECK(plot.lines.empty());
    CHECK(plot.cursors.empty());
}

TEST_CASE("the grid runs over the full width and height inside the frame") {
    const LineProfile profile{.first = 0, .count = 4, .values = {{{0, 0, 0, 0}, {}, {}}}};
    const Plot plot = PlotProfile(profile, Look());
    REQUIRE(plot.grid.size() == 9);
    CHECK(plot.grid[7].from == PlotPoint{33, 1});
    CHECK(plot.grid[7].to == PlotPoint{33, 254});
    CHECK(plot.grid[8].from == PlotPoint{66, 1});
}

TEST_CASE("a grey image is one line") {
    const LineProfile profile{.first = 0, .count = 2, .values = {{{10, 20}, {}, {}}}};
    CHECK(PlotProfile(profile, Look()).lines == Lines{{{1, 245}, {101, 235}, kPlotDarkBlue}});
}

TEST_CASE("a colour image is the line of the selected channel") {
    ProfileLook look = Look();
    look.colour = true;
    const PlotLine red{{1, 45}, {101, 35}, kPlotRed}, green{{1, 145}, {101, 135}, kPlotGreen},
        blue{{1, 245}, {101, 235}, kPlotBlue};
    look.channel = 1;
    CHECK(PlotProfile(Colours(), look).lines == Lines{red});
    look.channel = 2;
    CHECK(PlotProfile(Colours(), look).lines == Lines{green});
    look.channel = 3;
    CHECK(PlotProfile(Colours(), look).lines == Lines{blue});
    look.channel = 4;
    CHECK(PlotProfile(Colours(), look).lines == Lines{red, green, blue});
}

TEST_CASE("any other selector shows red") {
    ProfileLook look = Look();
    look.colour = true;
    for (const int channel : {-1, 0, 5}) {
        look.channel = channel;
        CHECK(PlotProfile(Colours(), look).lines == Lines{{{1, 45}, {101, 35}, kPlotRed}});
    }
}

TEST_CASE("the level cursor is a line across the plot while it shows") {
    ProfileLook look = Look();
    look.level = 128;
    CHECK(PlotProfile({}, look).cursors.empty());
    look.level_shown = true;
    Plot plot = PlotProfile({}, look);
    REQUIRE(plot.cursors.size() == 1);
    CHECK(plot.cursors[0].from == PlotPoint{0, 127});
    CHECK(plot.cursors[0].to == PlotPoint{102, 127});
    look.level = 0;
    plot = PlotProfile({}, look);
    CHECK(plot.cursors[0].from == PlotPoint{0, 255});
    CHECK(plot.cursors[0].colour != plot.frame);  // it can be told from the frame it lies on
}

TEST_CASE("the level cursor of a profile has the colours of a histogram's, and is never lost in the frame") {
    ProfileLook look = Look();
    look.level_shown = true;
    const auto colour_at = [&](bool colour, int channel, std::uint32_t level) {
        look.colour = colour;
        look.channel = channel;
        look.level = level;
        return PlotProfile({}, look).cursors.at(0).colour;
    };
    CHECK(colour_at(false, 0, 128) == 0x0000FF);
    CHECK(colour_at(true, 1, 128) == 0x000000);
    CHECK(colour_at(true, 2, 128) == 0x0000FF);
    CHECK(colour_at(true, 3, 128) == 0x0000FF);
    CHECK(colour_at(true, 4, 128) == 0x000000);
    CHECK(colour_at(false, 0, 0) == 0x0000FF);
    CHECK(colour_at(true, 1, 0) == 0x808080);
    CHECK(colour_at(true, 2, 0) == 0x0000FF);
    CHECK(colour_at(true, 4, 1) == 0x808080);
    CHECK(colour_at(true, 4, 2) == 0x000000);
}
