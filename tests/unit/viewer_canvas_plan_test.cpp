#include "viewer/canvas_plan.h"

#include <doctest/doctest.h>

#include <limits>

using namespace pixora;

namespace {

constexpr Rgb kRed{200, 0, 0}, kWhite{250, 250, 250};

CanvasState State(PixelSize image, double ratio) {
    CanvasState state;
    state.image = image;
    state.ratio = ratio;
    return state;
}

// A canvas of 100 x 100 with the region on and in the given style.
CanvasPlan RegionPlan(const PixelRect& region, BorderStyle style, PixelSize client = {100, 100}) {
    CanvasState state = State({100, 100}, 1.0);
    state.region_shown = true;
    state.border_style = style;
    state.region = region;
    return PlanCanvas(state, client);
}

std::vector<Stroke> Marks(MarkPosition mark, double ratio = 1.0, PixelRect region = {10, 20, 51, 81}) {
    CanvasState state = State({100, 100}, ratio);
    state.mark_shown = true;
    state.mark = mark;
    state.region = region;
    return PlanCanvas(state, {100, 100}).mark;
}

std::vector<PixelRect> TintAreas(const PixelRect& region, PixelSize client = {100, 100}) {
    const CanvasPlan plan = RegionPlan(region, BorderStyle::area, client);
    REQUIRE(plan.tint);
    CHECK_FALSE(plan.frame);
    return plan.tint->areas;
}

}  // namespace

TEST_CASE("the whole picture is stretched over the displayed size") {
    const CanvasPlan plan = PlanCanvas(State({640, 480}, 0.5), {320, 240});
    CHECK(plan.source == PixelSize{640, 480});
    CHECK(plan.target == PixelSize{320, 240});
    CHECK(plan.profile_lines.empty());
    CHECK_FALSE(plan.tint);
    CHECK_FALSE(plan.frame);
    CHECK(plan.mark.empty());
}

TEST_CASE("a canvas smaller than the displayed size shows the top left part") {
    const CanvasPlan plan = PlanCanvas(State({640, 480}, 2.0), {301, 100});
    CHECK(plan.target == PixelSize{301, 100});
    CHECK(plan.source == PixelSize{150, 50});
}

TEST_CASE("a canvas larger than the displayed size is filled no further than it") {
    const CanvasPlan plan = PlanCanvas(State({10, 20}, 2.0), {301, 100});
    CHECK(plan.target == PixelSize{20, 40});
    CHECK(plan.source == PixelSize{10, 20});
}

TEST_CASE("a displayed size of nothing draws no picture") {
    CHECK(PlanCanvas(State({19, 30}, 0.05), {100, 100}).target == PixelSize{0, 0});
    const CanvasPlan plan = PlanCanvas(State({30, 30}, 0.05), {100, 100});
    CHECK(plan.target == PixelSize{1, 1});
    CHECK(plan.source == PixelSize{20, 20});
    CHECK(PlanCanvas(State({30, 30}, 10.0), {5, 5}).target == PixelSize{0, 0});
    CHECK(PlanCanvas(State({30, 30}, 1.0), {0, 0}).target == PixelSize{0, 0});
}

TEST_CASE("a ratio that is none draws nothing at all") {
    for (const double ratio : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        CanvasState state = State({10, 10}, ratio);
        state.row_shown = state.column_shown = state.region_shown = state.mark_shown = true;
        const CanvasPlan plan = PlanCanvas(state, {100, 100});
        CHECK(plan.target == PixelSize{0, 0});
        CHECK(plan.profile_lines.empty());
        CHECK_FALSE(plan.tint);
        CHECK(plan.mark.empty());
    }
}

TEST_CASE("the horizontal line runs through the middle of its row") {
    CanvasState state = State({40, 30}, 2.0);
    state.row_shown = true;
    state.row = 10;
    CHECK(PlanCanvas(state, {80, 60}).profile_lines == std::vector<Stroke>{{{0, 21}, {80, 21}, kRed}});
    state.ratio = 0.5;
    CHECK(PlanCanvas(state, {20, 15}).profile_lines == std::vector<Stroke>{{{0, 5}, {20, 5}, kRed}});
}

TEST_CASE("the vertical line runs through the middle of its column") {
    CanvasState state = State({40, 30}, 3.0);
    state.column_shown = true;
    state.column = 10;
    state.line_colour = ColorIndex::green;
    CHECK(PlanCanvas(state, {120, 90}).profile_lines ==
          std::vector<Stroke>{{{31, 0}, {31, 90}, Rgb{0, 200, 0}}});
}

TEST_CASE("a row outside the image is drawn, a column outside it is not") {
    CanvasState state = State({40, 30}, 1.0);
    state.row_shown = state.column_shown = true;
    state.row = 30;
    state.column = 40;
    CHECK(PlanCanvas(state, {40, 30}).profile_lines == std::vector<Stroke>{{{0, 30}, {40, 30}, kRed}});
    state.column = 39;
    CHECK(PlanCanvas(state, {40, 30}).profile_lines ==
          std::vector<Stroke>{{{0, 30}, {40, 30}, kRed}, {{39, 0}, {39, 30}, kRed}});
}

TEST_CASE("the tint covers everything around the region") {
    CHECK(TintAreas({10, 20, 40, 70}) ==
          std::vector<PixelRect>{{0, 0, 100, 20}, {0, 20, 10, 70}, {40, 20, 100, 70}, {0, 70, 100, 100}});
}

TEST_CASE("a region on the edge of the canvas leaves out the bands it has no room for") {
    CHECK(TintAreas({0, 0, 100, 100}).empty());
    CHECK(TintAreas({-5, -5, 50, 105}) == std::vector<PixelRect>{{50, 0, 100, 100}});
    CHECK(TintAreas({0, 30, 100, 100}) == std::vector<PixelRect>{{0, 0, 100, 30}});
}

TEST_CASE("a region without any pixel on the canvas tints all of it") {
    const std::vector<PixelRect> all{{0, 0, 100, 100}};
    CHECK(TintAreas({100, 0, 120, 50}) == all);
    CHECK(TintAreas({0, -20, 50, 0}) == all);
    CHECK(TintAreas({30, 30, 30, 60}) == all);
    CHECK(TintAreas({0, 0, 50, 50}, {0, 0}).empty());
}

TEST_CASE("a region with crossed edges shows where its corners lie") {
    CHECK(TintAreas({40, 70, 10, 20}) == TintAreas({10, 20, 40, 70}));
    CHECK(RegionPlan({40, 70, 10, 20}, BorderStyle::line).frame->rect == PixelRect{10, 20, 40, 70});
}

TEST_CASE("the tint has the colour of the border setting") {
    CanvasState state = State({100, 100}, 1.0);
    state.region_shown = true;
    state.border_colour = ColorIndex::green;
    CHECK(PlanCanvas(state, {100, 100}).tint->colour == Rgb{153, 255, 255});
    state.border_style = BorderStyle::line;
    CHECK(PlanCanvas(state, {100, 100}).frame->colour == Rgb{53, 158, 66});
}

TEST_CASE("the line style frames the region and tints nothing") {
    const CanvasPlan plan = RegionPlan({10, 20, 40, 70}, BorderStyle::line);
    CHECK_FALSE(plan.tint);
    CHECK(plan.frame == Frame{{10, 20, 40, 70}, kRed});
}

TEST_CASE("coordinates far outside are drawn in to where they can be drawn") {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    CHECK(RegionPlan({kLeast, 5, kMost, kMost}, BorderStyle::line).frame->rect ==
          PixelRect{-1048576, 5, 1048576, 1048576});
    CanvasState state = State({65535, 65535}, 1e9);
    state.row_shown = true;
    state.row = 65535;
    CHECK(PlanCanvas(state, {100, 100}).profile_lines ==
          std::vector<Stroke>{{{0, 1048576}, {1048576, 1048576}, kRed}});
}

TEST_CASE("the mark in the centre has four arms") {
    CHECK(Marks(MarkPosition::centre) == std::vector<Stroke>{{{30, 50}, {10, 50}, kWhite},
                                                             {{30, 50}, {50, 50}, kWhite},
                                                             {{30, 50}, {30, 30}, kWhite},
                                                             {{30, 50}, {30, 70}, kWhite}});
}

TEST_CASE("the mark in a corner has two arms along the region's edges") {
    CHECK(Marks(MarkPosition::top_left) ==
          std::vector<Stroke>{{{10, 20}, {30, 20}, kWhite}, {{10, 20}, {10, 40}, kWhite}});
    CHECK(Marks(MarkPosition::top_right) ==
          std::vector<Stroke>{{{51, 20}, {31, 20}, kWhite}, {{51, 20}, {51, 40}, kWhite}});
    CHECK(Marks(MarkPosition::bottom_left) ==
          std::vector<Stroke>{{{10, 81}, {30, 81}, kWhite}, {{10, 81}, {10, 61}, kWhite}});
    CHECK(Marks(MarkPosition::bottom_right) ==
          std::vector<Stroke>{{{51, 81}, {31, 81}, kWhite}, {{51, 81}, {51, 61}, kWhite}});
}

TEST_CASE("the arms of the mark are twenty image pixels long") {
    CHECK(Marks(MarkPosition::top_left, 0.05)[0].to == PixelPoint{11, 20});
    CHECK(Marks(MarkPosition::top_left, 10.0)[0].to == PixelPoint{210, 20});
    CHECK(Marks(MarkPosition::top_left, 1e12)[0].to == PixelPoint{1048576, 20});
}

TEST_CASE("no other position shows a mark") {
    CHECK(Marks(MarkPosition{-1}).empty());
    CHECK(Marks(MarkPosition{5}).empty());
}

TEST_CASE("the centre of a region far outside does not overflow") {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    CHECK(Marks(MarkPosition::centre, 1.0, {kMost, kMost, kMost, kMost})[0].from ==
          PixelPoint{1048576, 1048576});
}
