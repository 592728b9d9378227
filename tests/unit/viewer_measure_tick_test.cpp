#include "viewer/measure_tick.h"

#include <doctest/doctest.h>

#include <array>
#include <utility>
#include <vector>

#include "support/allocations.h"
#include "support/viewer_states.h"
#include "viewer/edit_modes.h"
#include "viewer/edit_tick.h"

using namespace pixora;

namespace {

constexpr PixelPoint kOutside{-500, -500};

// 10 x 8 pixels. Red is ten times the row and the column, green 1 more, blue 2 more; grey has the red.
ViewerState Viewer(bool colour, const wchar_t* ratio = L"1.00") {
    ViewerState state = test::NewViewer(10, 8, ratio);
    state.image.colour = colour ? 1 : 0;
    auto samples = ZeroedArray<std::uint16_t>::Make(10 * 8 * 3);
    REQUIRE(samples);
    for (int i = 0; i < 10 * 8 * 3; ++i)
        samples->All()[static_cast<std::size_t>(i)] =
            static_cast<std::uint16_t>(10 * (i / 30) + i / 3 % 10 + (colour ? 2 - i % 3 : 0));
    SetSamples(state, {10, 8, *std::move(samples)});
    return state;
}

std::array<unsigned, 3> Computed(const ViewerState& state) {
    return {state.measured, state.h_profile_read, state.v_profile_read};
}

}  // namespace

TEST_CASE("the pixel under the mouse is read as red, green and blue") {
    ViewerState state = Viewer(true, L"2.00");
    MeasureTick tick;
    tick.Follow(state, {7, 5});
    CHECK(state.readout.mouse == PixelPoint{7, 5});
    CHECK(state.readout.rgb == std::array<std::uint16_t, 3>{23, 24, 25});
    ViewerState grey = Viewer(false);
    tick.Follow(grey, {9, 7});
    CHECK(grey.readout.rgb == std::array<std::uint16_t, 3>{79, 79, 79});
}

TEST_CASE("one pixel around the image belongs to the pixels at its edges") {
    ViewerState state = Viewer(false);
    MeasureTick tick;
    tick.Follow(state, {-1, 3});
    CHECK(state.readout.rgb[0] == 30);
    tick.Follow(state, {10, 8});
    CHECK(state.readout.rgb[0] == 79);
}

TEST_CASE("outside the image there is a place and no value") {
    ViewerState state = Viewer(false);
    MeasureTick tick;
    for (const PixelPoint mouse :
         {PixelPoint{-2, 3}, PixelPoint{11, 3}, PixelPoint{3, 9}, PixelPoint{3, -2}}) {
        tick.Follow(state, mouse);
        CHECK(state.readout.mouse == mouse);
        CHECK(state.readout.rgb == std::array<std::uint16_t, 3>{0, 0, 0});
    }
}

TEST_CASE("pixels can be read once the samples are there") {
    ViewerState state = test::NewViewer(10, 8);
    CHECK_FALSE(state.readout.Active());
    CHECK(state.readout.none);
    MeasureTick tick;
    tick.Follow(state, {3, 3});
    CHECK(state.readout.rgb == std::array<std::uint16_t, 3>{0, 0, 0});
    state = Viewer(false);
    CHECK(state.readout.Active());
    CHECK_FALSE(state.readout.none);
}

TEST_CASE("nothing is computed while no view shows it") {
    ViewerState state = Viewer(false);
    state.region_on = true;
    state.edit.view_open.image_info = true;
    MeasureTick tick;
    tick.Follow(state, {3, 3});
    CHECK(Computed(state) == std::array{0u, 0u, 0u});
    CHECK(state.measurement.counts[0].empty());
}

TEST_CASE("a histogram measures the whole image, or the region that shows") {
    ViewerState state = Viewer(false);
    state.edit.view_open.histogram = true;
    state.region = {1, 1, 2, 3};
    MeasureTick tick;
    tick.Follow(state, kOutside);
    CHECK(Computed(state) == std::array{1u, 0u, 0u});
    CHECK(state.measurement.pixels == 80);
    state.region_on = true;
    tick.Follow(state, kOutside);
    CHECK(state.measured == 2);
    CHECK(state.measurement.pixels == 6);
    CHECK(state.measurement.statistics[0].min == 11);
    CHECK(state.measurement.statistics[0].max == 32);
}

TEST_CASE("the statistics view needs figures only while the region shows") {
    ViewerState state = Viewer(true);
    state.edit.view_open.statistics = true;
    MeasureTick tick;
    tick.Follow(state, kOutside);
    CHECK(state.measured == 0);
    state.region_on = true;
    tick.Follow(state, kOutside);
    CHECK(state.measured == 1);
    CHECK(state.measurement.statistics[2].max == 79);
}

TEST_CASE("what did not change is not computed again, also for a view that opens once more") {
    ViewerState state = Viewer(false);
    state.region = {1, 1, 2, 3};
    state.region_on = true;
    state.edit.view_open = kAllViews;
    MeasureTick tick;
    for (int i = 0; i < 3; ++i) tick.Follow(state, {i, i});
    CHECK(Computed(state) == std::array{1u, 1u, 1u});
    state.channel = 4;
    RequestRedraw(state);
    tick.Follow(state, kOutside);
    state.edit.view_open = {};
    tick.Follow(state, kOutside);
    state.edit.view_open = kAllViews;
    tick.Follow(state, kOutside);
    CHECK(Computed(state) == std::array{1u, 1u, 1u});
}

TEST_CASE("a region that moves while no view is open is measured when one opens") {
    ViewerState state = Viewer(false);
    state.region_on = true;
    state.edit.view_open.histogram = true;
    MeasureTick tick;
    tick.Follow(state, kOutside);
    state.edit.view_open = {};
    state.region = {4, 4, 4, 4};
    tick.Follow(state, kOutside);
    CHECK(state.measured == 1);
    state.edit.view_open.histogram = true;
    tick.Follow(state, kOutside);
    CHECK(state.measured == 2);
    CHECK(state.measurement.pixels == 1);
}

TEST_CASE("what lies outside the image does not count as a change") {
    ViewerState state = Viewer(false);
    state.region_on = true;
    state.edit.view_open.histogram = true;
    MeasureTick tick;
    tick.Follow(state, kOutside);
    state.region = {-1, -5, 10, 8};
    tick.Follow(state, kOutside);
    CHECK(state.measured == 1);
    state.region = {5, 9, 8, 12};
    tick.Follow(state, kOutside);
    CHECK(state.measured == 2);
    CHECK(state.measurement.pixels == 0);
}

TEST_CASE("a profile is read when its own line or the region changes") {
    ViewerState state = Viewer(false);
    state.edit.view_open.h_profile = true;
    state.row = 3;
    MeasureTick tick;
    tick.Follow(state, kOutside);
    CHECK(Computed(state) == std::array{0u, 1u, 0u});
    CHECK(state.h_profile.first == 0);
    CHECK(state.h_profile.values[0] == std::vector<std::uint16_t>{30, 31, 32, 33, 34, 35, 36, 37, 38, 39});
    state.column = 7;
    tick.Follow(state, kOutside);
    CHECK(state.h_profile_read == 1);
    state.row = 4;
    tick.Follow(state, kOutside);
    CHECK(state.h_profile_read == 2);
    state.region = {2, 4, 3, 6};
    tick.Follow(state, kOutside);
    CHECK(state.h_profile_read == 2);
    state.region_on = true;
    tick.Follow(state, kOutside);
    CHECK(state.h_profile_read == 3);
    CHECK(state.h_profile.first == 2);
    CHECK(state.h_profile.values[0] == std::vector<std::uint16_t>{42, 43});
    state.edit.view_open.v_profile = true;
    state.column = 2;
    tick.Follow(state, kOutside);
    CHECK(Computed(state) == std::array{0u, 3u, 1u});
    CHECK(state.v_profile.first == 4);
    CHECK(state.v_profile.values[0] == std::vector<std::uint16_t>{42, 52, 62});
}

TEST_CASE("a tick with nothing new takes no memory and asks nobody to repaint") {
    ViewerState state = Viewer(true);
    state.region_on = true;
    state.edit.view_open = kAllViews;
    MeasureTick tick;
    tick.Follow(state, {3, 3});
    static_cast<void>(FollowEdits(state));
    const unsigned long long before = test::Allocations();
    bool repaint = false;
    for (int i = 0; i < 20; ++i) {
        repaint |= FollowEdits(state);
        tick.Follow(state, {i, i});
    }
    CHECK(test::Allocations() == before);
    CHECK_FALSE(repaint);
    CHECK(state.edit.redraw == ViewFlags{});
}

TEST_CASE("measuring a new region takes no more memory than the first one") {
    ViewerState state = Viewer(true);
    state.region_on = true;
    state.edit.view_open = kAllViews;
    MeasureTick tick;
    tick.Follow(state, kOutside);
    const unsigned long long before = test::Allocations();
    state.region = {2, 2, 4, 4};
    tick.Follow(state, kOutside);
    CHECK(state.measured == 2);
    CHECK(test::Allocations() == before);
}
