#include <doctest/doctest.h>

#include "viewer/viewer_state.h"

using namespace pixora;

namespace {

ImageBuffer Image(std::uint16_t width, std::uint16_t height, bool colour) {
    ImageBuffer image;
    image.width = width;
    image.height = height;
    image.colour = colour ? 1 : 0;
    image.display_size = L"2.00";
    return image;
}

ViewerState NewState(const ImageBuffer& image) {
    return NewViewerState(image, SampleBuffer{});
}

}  // namespace

TEST_CASE("a new viewer has its region on the whole image and switched off") {
    const ViewerState state = NewState(Image(640, 480, false));
    CHECK(state.region == Region{0, 0, 639, 479});
    CHECK(state.last_seen_region == state.region);
    CHECK(state.undo_region == state.region);
    CHECK_FALSE(state.region_on);
    CHECK_FALSE(state.canvas.region_shown);
    CHECK_FALSE(state.canvas.mark_shown);
    CHECK_FALSE(state.canvas.row_shown);
    CHECK_FALSE(state.canvas.column_shown);
}

TEST_CASE("a new viewer has its profile lines in the middle") {
    const ViewerState even = NewState(Image(100, 50, false));
    CHECK(even.column == 49);
    CHECK(even.row == 24);
    CHECK(even.saved_column == 49);
    CHECK(even.saved_row == 24);
    const ViewerState odd = NewState(Image(101, 51, false));
    CHECK(odd.column == 50);
    CHECK(odd.row == 25);
    const ViewerState smallest = NewState(Image(1, 2, false));
    CHECK(smallest.column == 0);
    CHECK(smallest.row == 0);
}

TEST_CASE("a new viewer starts at the stored display size and asks for its layout") {
    CHECK(NewState(Image(10, 10, false)).ratio_text == L"2.00");
    CHECK(NewState(Image(10, 10, false)).layout_requested);
    ImageBuffer image = Image(10, 10, false);
    image.display_size = L"---%";
    const ViewerState state = NewState(image);
    CHECK(state.ratio_text == L"0.500");
    CHECK(state.canvas.ratio == 0.5);
    CHECK(state.image.display_size == L"---%");
}

TEST_CASE("a new viewer measures grey, or red of a colour image") {
    CHECK(NewState(Image(10, 10, false)).channel == 0);
    CHECK(NewState(Image(10, 10, true)).channel == 1);
}

TEST_CASE("a new viewer clicks the bottom right corner, the centre, in red and white") {
    const ViewerState state = NewState(Image(10, 10, false));
    CHECK(state.corner_code == 0);
    CHECK(state.anchor_code == 0);
    CHECK(state.canvas.line_colour == ColorIndex::red);
    CHECK(state.canvas.border_colour == ColorIndex::red);
    CHECK(state.canvas.mark_colour == ColorIndex::white);
    CHECK(state.canvas.border_style == BorderStyle::area);
}

TEST_CASE("a viewer takes over its settings, and keeps what they do not name") {
    ViewerState state = NewState(Image(10, 10, false));
    Settings settings;
    settings.LINE_COLOR = L"GRAY";
    settings.BDR_COLOR = L"GREEN";
    settings.MARK_COLOR = L"RED";
    settings.BDR_TYPE = L"LINE";
    settings.CAP_STYLE = L"FULL";
    ApplySettings(settings, state);
    CHECK(state.canvas.line_colour == ColorIndex::gray);
    CHECK(state.canvas.border_colour == ColorIndex::green);
    CHECK(state.canvas.mark_colour == ColorIndex::red);
    CHECK(state.canvas.border_style == BorderStyle::line);
    CHECK(state.caption_style == L"FULL");
    ApplySettings(Settings{}, state);
    CHECK(state.canvas.line_colour == ColorIndex::gray);
    CHECK(state.canvas.border_colour == ColorIndex::green);
    CHECK(state.canvas.mark_colour == ColorIndex::red);
    CHECK(state.canvas.border_style == BorderStyle::area);
    CHECK(state.caption_style.empty());
}

TEST_CASE("the canvas follows ratio, region and lines when it is updated") {
    ViewerState state = NewState(Image(100, 80, false));
    state.ratio_text = L"1.50";
    state.region = {10, 20, 30, 41};
    state.region_on = true;
    state.row = 7;
    state.column = 9;
    UpdateCanvas(state);
    CHECK(state.canvas.image == PixelSize{100, 80});
    CHECK(state.canvas.ratio == 1.5);
    CHECK(state.canvas.region_shown);
    CHECK(state.canvas.region == PixelRect{15, 30, 46, 63});
    CHECK(state.canvas.row == 7);
    CHECK(state.canvas.column == 9);
}

TEST_CASE("a region shows with its last column and row inside") {
    CHECK(DisplayRectangle({0, 0, 9, 4}, 1.0) == PixelRect{0, 0, 10, 5});
    CHECK(DisplayRectangle({3, 3, 3, 3}, 0.5) == PixelRect{1, 1, 2, 2});
    CHECK(DisplayRectangle({-3, -1, 0, 0}, 0.5) == PixelRect{-1, 0, 0, 0});
    CHECK(DisplayRectangle({0, 0, 2147483647, 2147483647}, 1.0) == PixelRect{0, 0, 2147483647, 2147483647});
}
