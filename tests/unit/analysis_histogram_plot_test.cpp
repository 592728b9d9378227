#include "analysis/histogram_plot.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace pixora;

namespace {

constexpr PlotColour kNothing = 0xFFFFFFFF;

Measurement Grey(std::vector<std::uint32_t> counts) {
    Measurement measurement;
    measurement.counts[0] = std::move(counts);
    return measurement;
}

/// Of 256 bins with the given counts in the first ones.
std::vector<std::uint32_t> Bins(std::vector<std::uint32_t> first, std::size_t size = 256) {
    first.resize(size, 0);
    return first;
}

HistogramLook Look(std::uint32_t bits = 8, int width = 257, int height = 102) {
    return {.scale = {width, height, bits}, .channel = 0, .binning = true, .cursor = std::nullopt};
}

/// The colour that the boxes give a pixel; the last one counts.
PlotColour BoxAt(const Plot& plot, int x, int y) {
    PlotColour colour = kNothing;
    for (const PlotBox& box : plot.boxes)
        if (x >= box.left && x < box.right && y >= box.top && y < box.bottom) colour = box.colour;
    return colour;
}

/// What all lines of the grid in one direction have in common: where they begin and end.
struct Span {
    int from = 0, to = 0;
    friend bool operator==(const Span&, const Span&) = default;
};

std::vector<Span> HorizontalSpans(const Plot& plot) {
    std::vector<Span> spans;
    for (const PlotLine& line : plot.grid)
        if (line.from.y == line.to.y) spans.push_back({line.from.x, line.to.x});
    return spans;
}

std::vector<int> HorizontalLines(const Plot& plot) {
    std::vector<int> rows;
    for (const PlotLine& line : plot.grid)
        if (line.from.y == line.to.y) rows.push_back(line.from.y);
    return rows;
}

std::vector<int> VerticalLines(const Plot& plot) {
    std::vector<int> columns;
    for (const PlotLine& line : plot.grid)
        if (line.from.x == line.to.x) columns.push_back(line.from.x);
    return columns;
}

}  // namespace

TEST_CASE("the bars of a grey image are as high as their counts") {
    HistogramPainter painter;
    painter.Draw(Grey(Bins({10, 0, 5, 1})), Look());  // one pixel a bin, 100 pixels for 10 counts
    const Plot& plot = painter.Picture();
    CHECK(painter.CountAxis() == Divisions{2, 5, 10});
    CHECK(plot.background == 0xFFFFFF);
    CHECK(plot.frame == 0x000000);
    CHECK(BoxAt(plot, 1, 1) == 0xC80000);
    CHECK(BoxAt(plot, 1, 100) == 0xC80000);
    CHECK(BoxAt(plot, 2, 100) == kNothing);
    CHECK(BoxAt(plot, 3, 50) == kNothing);
    CHECK(BoxAt(plot, 3, 51) == 0xC80000);
    CHECK(BoxAt(plot, 4, 90) == kNothing);
    CHECK(BoxAt(plot, 4, 91) == 0xC80000);
    CHECK(BoxAt(plot, 5, 100) == kNothing);
}

TEST_CASE("nothing is drawn on or beyond the frame") {
    HistogramPainter painter;
    for (const std::uint32_t bits : {8u, 10u, 12u, 14u, 16u}) {
        std::vector<std::uint32_t> counts(BinCount(bits), 3);
        painter.Draw(Grey(counts), Look(bits, 200, 80));
        for (const PlotBox& box : painter.Picture().boxes) {
            CHECK(box.left >= 1);
            CHECK(box.right <= 199);
            CHECK(box.top >= 1);
            CHECK(box.bottom <= 79);
        }
        for (int x = 1; x < 199; ++x) CHECK(BoxAt(painter.Picture(), x, 40) == 0xC80000);
    }
}

TEST_CASE("bins that lie on the frame or beyond it are drawn in the last column inside") {
    HistogramPainter painter;
    for (const std::uint32_t bits : {8u, 16u}) {
        std::vector<std::uint32_t> counts(BinCount(bits), 0);
        counts.back() = 10;
        HistogramLook look = Look(bits, 200);
        look.binning = false;
        painter.Draw(Grey(counts), look);
        CHECK(painter.Picture().boxes == std::vector{PlotBox{198, 1, 199, 101, 0xC80000}});
        counts[counts.size() - 2] = 4;  // does not hide the higher one
        painter.Draw(Grey(counts), look);
        CHECK(BoxAt(painter.Picture(), 198, 1) == 0xC80000);
    }
}

TEST_CASE("the outline of a saturated channel goes up beside the frame") {
    Measurement measurement;
    measurement.colour = true;
    for (auto& counts : measurement.counts) counts.assign(65536, 0);
    measurement.counts[1][65535] = 10;
    HistogramLook look = Look(16, 200);
    look.channel = 4;
    look.binning = false;
    HistogramPainter painter;
    painter.Draw(measurement, look);
    CHECK(BoxAt(painter.Picture(), 198, 1) == 0x00A000);
    CHECK(BoxAt(painter.Picture(), 198, 50) == 0x00A000);
    CHECK(BoxAt(painter.Picture(), 197, 50) == kNothing);
    for (const PlotBox& box : painter.Picture().boxes) CHECK(box.right <= 199);
}

TEST_CASE("where several bins share a column the highest one shows") {
    HistogramPainter painter;
    std::vector<std::uint32_t> counts(4096, 0);
    counts[16] = 10;  // bins 16 to 31 are in one column of 258 - 2 pixels
    counts[17] = 4;
    HistogramLook look = Look(12, 258);
    look.binning = false;
    painter.Draw(Grey(counts), look);
    CHECK(BoxAt(painter.Picture(), 2, 1) == 0xC80000);
    CHECK(BoxAt(painter.Picture(), 1, 100) == kNothing);
    CHECK(BoxAt(painter.Picture(), 3, 100) == kNothing);
}

TEST_CASE("binning draws the sums over the same width") {
    HistogramPainter painter;
    std::vector<std::uint32_t> counts(4096, 0);
    counts[16] = 6;
    counts[31] = 4;
    painter.Draw(Grey(counts), Look(12, 258));
    CHECK(painter.CountAxis() == Divisions{2, 5, 10});
    CHECK(BoxAt(painter.Picture(), 2, 1) == 0xC80000);
    CHECK(BoxAt(painter.Picture(), 3, 100) == kNothing);
}

TEST_CASE("horizontal lines divide the axis of counts") {
    HistogramPainter painter;
    painter.Draw(Grey(Bins({10})), Look());
    CHECK(HorizontalLines(painter.Picture()) == std::vector{81, 61, 41, 21});
    painter.Draw(Grey(Bins({1})), Look());
    CHECK(HorizontalLines(painter.Picture()).empty());  // a single division
}

TEST_CASE("horizontal lines go over the width that the bins are spread over, up to the frame") {
    HistogramPainter painter;
    painter.Draw(Grey(Bins({10})), Look());
    CHECK(HorizontalSpans(painter.Picture()) == std::vector(4, Span{1, 255}));
    painter.Draw(Grey(Bins({10}, 4096)), Look(12));
    CHECK(HorizontalSpans(painter.Picture()) == std::vector(4, Span{1, 255}));
    painter.Draw(Grey(Bins({10}, 65536)), Look(16));
    CHECK(HorizontalSpans(painter.Picture()) == std::vector(4, Span{1, 255}));
}

TEST_CASE("seven vertical lines go over the full height") {
    HistogramPainter painter;
    painter.Draw(Grey(Bins({10})), Look());
    CHECK(VerticalLines(painter.Picture()) == std::vector{32, 64, 96, 128, 160, 192, 224});
    for (const PlotLine& line : painter.Picture().grid) {
        CHECK(line.dotted);
        if (line.from.x != line.to.x) continue;
        CHECK(line.from.y == 1);
        CHECK(line.to.y == 100);
    }
}

TEST_CASE("an empty histogram has its frame and the vertical lines") {
    HistogramPainter painter;
    painter.Draw(Grey(Bins({})), Look());
    CHECK(painter.CountAxis() == Divisions{1, 0, 0});
    CHECK(painter.Picture().boxes.empty());
    CHECK(HorizontalLines(painter.Picture()).empty());
    CHECK(VerticalLines(painter.Picture()).size() == 7);
    painter.Draw({}, Look());  // nothing measured yet
    CHECK(painter.Picture().boxes.empty());
}

TEST_CASE("exactly ten million counts overflow their axis and are cut at the top of the plot") {
    HistogramPainter painter;
    painter.Draw(Grey(Bins({10'000'000})), Look());
    CHECK(painter.CountAxis() == Divisions{1, 38528, 38528});
    CHECK(painter.Picture().boxes == std::vector{PlotBox{1, 1, 2, 101, 0xC80000}});
    std::vector<int> rows = HorizontalLines(painter.Picture());
    CHECK(rows.size() <= 100);
    CHECK(std::ranges::adjacent_find(rows) == rows.end());
    CHECK(std::ranges::all_of(rows, [](int row) { return row >= 1 && row <= 100; }));
}

TEST_CASE("each channel has its colour") {
    Measurement measurement;
    measurement.colour = true;
    for (auto& counts : measurement.counts) counts = Bins({10});
    HistogramPainter painter;
    HistogramLook look = Look();
    look.channel = 1;
    painter.Draw(measurement, look);
    CHECK(BoxAt(painter.Picture(), 1, 50) == 0x0000FF);
    look.channel = 2;
    painter.Draw(measurement, look);
    CHECK(BoxAt(painter.Picture(), 1, 50) == 0x00A000);
    look.channel = 3;
    painter.Draw(measurement, look);
    CHECK(BoxAt(painter.Picture(), 1, 50) == 0xFF0000);
}

TEST_CASE("a selected channel is scaled by its own counts, all three by the largest of them") {
    Measurement measurement;
    measurement.colour = true;
    measurement.counts[0] = Bins({4});
    measurement.counts[1] = Bins({0, 40});
    measurement.counts[2] = Bins({0, 0, 400});
    HistogramPainter painter;
    HistogramLook look = Look();
    look.channel = 3;
    painter.Draw(measurement, look);
    CHECK(painter.CountAxis() == Divisions{1, 4, 4});
    look.channel = 4;
    painter.Draw(measurement, look);
    CHECK(painter.CountAxis() == Divisions{50, 8, 400});
}

TEST_CASE("three channels show as outlines, one beside the other") {
    Measurement measurement;
    measurement.colour = true;
    measurement.counts[0] = Bins({10, 10, 10});
    measurement.counts[1] = Bins({0, 0, 0, 0, 5, 5, 5});
    measurement.counts[2] = Bins({0, 0, 0, 0, 0, 0, 0, 0, 2, 2, 2});
    HistogramPainter painter;
    HistogramLook look = Look();
    look.channel = 4;
    painter.Draw(measurement, look);
    const Plot& plot = painter.Picture();
    CHECK(BoxAt(plot, 2, 1) == 0xFF0000);   // the top of blue
    CHECK(BoxAt(plot, 2, 50) == kNothing);  // nothing under it
    CHECK(BoxAt(plot, 4, 50) == 0xFF0000);  // its way down
    CHECK(BoxAt(plot, 6, 51) == 0x00A000);
    CHECK(BoxAt(plot, 6, 80) == kNothing);
    CHECK(BoxAt(plot, 10, 81) == 0x0000FF);
    CHECK(BoxAt(plot, 10, 95) == kNothing);
}

TEST_CASE("the level cursor crosses the whole plot, and only while it shows") {
    HistogramPainter painter;
    HistogramLook look = Look();
    painter.Draw(Grey(Bins({10})), look);
    CHECK(painter.Picture().cursors.empty());
    look.cursor = 128;
    painter.Draw(Grey(Bins({10})), look);
    REQUIRE(painter.Picture().cursors.size() == 1);
    CHECK(painter.Picture().cursors[0].from == PlotPoint{128, 0});
    CHECK(painter.Picture().cursors[0].to == PlotPoint{128, 101});
    CHECK(painter.Picture().cursors[0].colour == 0x0000FF);
    look.cursor = 0;
    painter.Draw(Grey(Bins({10})), look);
    CHECK(painter.Picture().cursors[0].from.x == 1);
    look.channel = 1;  // it would not show before red bars
    painter.Draw(Grey(Bins({10})), look);
    CHECK(painter.Picture().cursors[0].colour == 0x000000);
}

TEST_CASE("a plot without room draws nothing it cannot") {
    HistogramPainter painter;
    for (const int size : {0, 1, 2}) {
        HistogramLook look = Look(8, size, size);
        look.channel = 4;
        Measurement measurement;
        measurement.colour = true;
        for (auto& counts : measurement.counts) counts = Bins({10});
        painter.Draw(measurement, look);
        CHECK(painter.Picture().boxes.empty());
    }
}
