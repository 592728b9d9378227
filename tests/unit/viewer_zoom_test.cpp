#include "viewer/zoom.h"

#include <doctest/doctest.h>

#include "viewer/display_sizes.h"

using namespace pixora;

namespace {

ViewerState State(std::uint16_t width, std::uint16_t height, const std::wstring& ratio_text) {
    ImageBuffer image;
    image.width = width;
    image.height = height;
    image.display_size = ratio_text;
    ViewerState state = NewViewerState(image, SampleBuffer{});
    state.layout_requested = false;  // as after the first layout
    return state;
}

// The ratio text after one turn of the wheel over an image of 100 x 100.
std::wstring AfterWheel(const std::wstring& ratio_text, int delta) {
    ViewerState state = State(100, 100, ratio_text);
    static_cast<void>(ZoomByWheel(state, delta, {0, 0}));
    return state.ratio_text;
}

constexpr int kForward = 120, kBackward = -120;
constexpr MonitorFacts kMonitor{{1920, 1040}, 23};

}  // namespace

TEST_CASE("a ratio is rounded to whole percent") {
    CHECK(RoundedPercent(0.05) == 5);
    CHECK(RoundedPercent(0.0549) == 5);
    CHECK(RoundedPercent(0.055) == 6);
    CHECK(RoundedPercent(1.234) == 123);
    CHECK(RoundedPercent(0.004) == 0);
    CHECK(RoundedPercent(1e300) == 2147483647);
}

TEST_CASE("the anchor keeps a whole image pixel in place") {
    CHECK(AnchorOffset({10, 20}, 1.0, 2.0) == PixelPoint{10, 20});
    // Pixel 3 lies at 7 of 2.0; at 1.0 it begins at 3.
    CHECK(AnchorOffset({7, 0}, 2.0, 1.0) == PixelPoint{-4, 0});
    // 15 / 1.5 = 10, and 10 x 0.25 - 15 = -12.5.
    CHECK(AnchorOffset({15, 15}, 1.5, 0.25) == PixelPoint{-12, -12});
    CHECK(AnchorOffset({-10, -1}, 1.0, 2.0) == PixelPoint{-10, -1});
    CHECK(AnchorOffset({100, 100}, 0.001, 1e300) == PixelPoint{2147483647, 2147483647});
}

TEST_CASE("a fixed size is stored as the menu gives it and asks for a layout") {
    ViewerState state = State(400, 300, L"1.00");
    CHECK_FALSE(SetDisplayRatio(state, L"0.50", {100, 60}));
    CHECK(state.ratio_text == L"0.50");
    CHECK(state.anchor == PixelPoint{-50, -30});
    CHECK(state.layout_requested);
}

TEST_CASE("a size beyond the limit changes nothing and tells the largest one") {
    ViewerState state = State(4000, 300, L"1.00");
    const std::optional<Message> refusal = SetDisplayRatio(state, L"10.00", {100, 60});
    CHECK(refusal == Message{L" : Error - Image display failed.",
                             L"A \"1000%\" zoom is too large to display.",
                             L"The maximum zoom level for this image is \"540%\".", L""});
    CHECK(state.ratio_text == L"1.00");
    CHECK(state.anchor == PixelPoint{});
    CHECK_FALSE(state.layout_requested);
}

TEST_CASE("every fixed size has its command and its ratio") {
    CHECK(kDisplaySizes.size() == 15);
    CHECK(RatioOfCommand(32806) == L"0.05");
    CHECK(RatioOfCommand(32782) == L"0.10");
    CHECK(RatioOfCommand(32791) == L"1.00");
    CHECK(RatioOfCommand(32795) == L"5.00");
    CHECK(RatioOfCommand(32796) == L"10.00");
    CHECK_FALSE(RatioOfCommand(32794));
    CHECK_FALSE(RatioOfCommand(0));
}

TEST_CASE("a layout follows a typed size, whether one was applied or not") {
    ViewerState state = State(400, 300, L"1.00");
    SetTypedSize(state, L"2.500");
    CHECK(state.ratio_text == L"2.500");
    CHECK(state.anchor == PixelPoint{});
    CHECK(state.layout_requested);
    state.layout_requested = false;
    SetTypedSize(state, std::nullopt);
    CHECK(state.ratio_text == L"2.500");
    CHECK(state.layout_requested);
}

TEST_CASE("the defined size gets three decimals and an anchor") {
    ViewerState state = State(400, 300, L"1.00");
    CHECK_FALSE(SetDefinedSize(state, L"0.50", {100, 60}));
    CHECK(state.ratio_text == L"0.500");
    CHECK(state.anchor == PixelPoint{-50, -30});
    CHECK(state.layout_requested);
}

TEST_CASE("the anchor of the defined size follows the stored value, not its three decimals") {
    ViewerState state = State(400, 300, L"1.00");
    CHECK_FALSE(SetDefinedSize(state, L"0.50049", {10000, 0}));
    CHECK(state.ratio_text == L"0.500");
    CHECK(state.anchor == PixelPoint{-4995, 0});  // 10000 x 0.50049 = 5004.9
}

TEST_CASE("the defined size is not checked against the limit") {
    ViewerState state = State(65535, 300, L"0.10");
    CHECK_FALSE(SetDefinedSize(state, L"10.00", {0, 0}));
    CHECK(state.ratio_text == L"10.000");
}

TEST_CASE("a defined size that is no ratio is refused and named") {
    for (const auto* text : {L"", L"---%", L"abc", L"-1", L"0", L"nan", L"0.0004"}) {
        ViewerState state = State(400, 300, L"1.00");
        const std::optional<Message> refusal = SetDefinedSize(state, text, {100, 60});
        CHECK(refusal == Message{L" : Error- Invalid Value", L"",
                                 std::wstring(L"Input Value: \"") + text + L"\"",
                                 L"The input string is invalid."});
        CHECK(state.ratio_text == L"1.00");
        CHECK_FALSE(state.layout_requested);
    }
}

TEST_CASE("the current size becomes the default through its percentage") {
    CHECK(DefaultSizeOf(L"0.05") == L"0.050");
    CHECK(DefaultSizeOf(L"1.50") == L"1.500");
    CHECK(DefaultSizeOf(L"0.523") == L"0.523");
    CHECK(DefaultSizeOf(L"0.12345") == L"0.123");
    CHECK(DefaultSizeOf(L"10.00") == L"10.000");
    CHECK(DefaultSizeOf(L"100.00") == L"100.000");
    CHECK_FALSE(DefaultSizeOf(L"0.0004"));
}

TEST_CASE("an image is fitted to the monitor by the side that limits it") {
    ViewerState state = State(1920, 1080, L"1.00");
    CHECK(FitToMonitor(state, kMonitor) == PixelPoint{36, -31});  // 1848 wide: (1920 - 1848) / 2
    CHECK(state.ratio_text == L"0.963");
    CHECK(state.layout_requested);
    state = State(4000, 1000, L"1.00");
    CHECK(FitToMonitor(state, kMonitor) == PixelPoint{-8, 280});  // 0.48: 480 high
    CHECK(state.ratio_text == L"0.480");
}

TEST_CASE("an image of the monitor's shape is fitted by its height") {
    ViewerState state = State(960, 520, L"1.00");
    CHECK(FitToMonitor(state, kMonitor) == PixelPoint{0, -31});
    CHECK(state.ratio_text == L"2.000");
}

TEST_CASE("a fit larger than the menu can show is held at 10000 percent") {
    ViewerState state = State(1, 1, L"1.00");
    // Placed for 1040 x 1040, the size that would have filled the monitor.
    CHECK(FitToMonitor(state, kMonitor) == PixelPoint{440, -31});
    CHECK(state.ratio_text == L"100.00");
    state = State(19, 10, L"1.00");                              // 101.05
    CHECK(FitToMonitor(state, kMonitor) == PixelPoint{-8, 15});  // 1010 high
    CHECK(state.ratio_text == L"100.00");
    state = State(20, 10, L"1.00");
    CHECK(FitToMonitor(state, kMonitor) == PixelPoint{-8, 40});
    CHECK(state.ratio_text == L"96.000");
}

TEST_CASE("a fit is held at 10000 percent from the next whole percent on") {
    ViewerState state = State(20, 10, L"1.00");
    CHECK(FitToMonitor(state, {{2000, 1000}, 23}));
    CHECK(state.ratio_text == L"100.000");
    state = State(200, 100, L"1.00");
    CHECK(FitToMonitor(state, {{20001, 10001}, 23}));  // 10000.5
    CHECK(state.ratio_text == L"100.005");
    state = State(100, 100, L"1.00");
    CHECK(FitToMonitor(state, {{10001, 10001}, 23}));
    CHECK(state.ratio_text == L"100.00");
}

TEST_CASE("a fit moves the window itself and leaves no anchor for the layout") {
    ViewerState state = State(400, 300, L"1.00");
    state.anchor = {17, 18};
    static_cast<void>(FitToMonitor(state, kMonitor));
    CHECK(state.anchor == PixelPoint{});
}

TEST_CASE("a fit is not checked against the limit") {
    ViewerState state = State(1, 600, L"1.00");
    static_cast<void>(FitToMonitor(state, {{40000, 30000}, 23}));
    CHECK(state.ratio_text == L"50.000");
}

TEST_CASE("a monitor without size fits nothing") {
    ViewerState state = State(400, 300, L"1.00");
    CHECK_FALSE(FitToMonitor(state, {}));
    CHECK(state.ratio_text == L"1.00");
    CHECK_FALSE(state.layout_requested);
}

TEST_CASE("the wheel steps by the size of the percentage, differently up and down") {
    CHECK(AfterWheel(L"1.00", kForward) == L"1.200");
    CHECK(AfterWheel(L"1.00", kBackward) == L"0.950");
    CHECK(AfterWheel(L"0.10", kForward) == L"0.150");
    CHECK(AfterWheel(L"0.10", kBackward) == L"0.090");
    CHECK(AfterWheel(L"0.05", kForward) == L"0.060");
    CHECK(AfterWheel(L"10.00", kForward) == L"12.000");
    CHECK(AfterWheel(L"10.00", kBackward) == L"9.800");
    CHECK(AfterWheel(L"12.00", kBackward) == L"10.000");
}

TEST_CASE("the wheel snaps to its grid before it steps") {
    CHECK(AfterWheel(L"1.23", kForward) == L"1.400");
    CHECK(AfterWheel(L"1.23", kBackward) == L"1.000");
    CHECK(AfterWheel(L"0.523", kForward) == L"0.550");
    CHECK(AfterWheel(L"0.523", kBackward) == L"0.450");
    CHECK(AfterWheel(L"11.50", kForward) == L"12.000");
    CHECK(AfterWheel(L"0.111", kBackward) == L"0.090");
}

TEST_CASE("the wheel stops at one percent and at a ratio of one hundred") {
    CHECK(AfterWheel(L"0.01", kBackward) == L"0.010");
    CHECK(AfterWheel(L"0.02", kBackward) == L"0.010");
    CHECK(AfterWheel(L"0.004", kBackward) == L"0.010");
    CHECK(AfterWheel(L"99.00", kForward) == L"100.000");
    CHECK(AfterWheel(L"100.00", kForward) == L"100.000");
    CHECK(AfterWheel(L"100.00", kBackward) == L"98.000");
}

TEST_CASE("a wheel that does not turn only snaps") {
    CHECK(AfterWheel(L"1.23", 0) == L"1.200");
    CHECK(AfterWheel(L"1.00", 0) == L"1.000");
}

TEST_CASE("only one step of the wheel is taken for each layout") {
    ViewerState state = State(100, 100, L"1.00");
    CHECK(ZoomByWheel(state, kForward, {0, 0}).tip == L"Size: 120%");
    CHECK(state.wheel_pending);
    CHECK(ZoomByWheel(state, kForward, {0, 0}).tip.empty());
    CHECK(state.ratio_text == L"1.200");
    state.wheel_pending = state.layout_requested = false;
    CHECK(ZoomByWheel(state, kForward, {0, 0}).tip == L"Size: 140%");
}

TEST_CASE("at one percent the next step need not wait for a layout") {
    ViewerState state = State(100, 100, L"0.01");
    CHECK(ZoomByWheel(state, kBackward, {0, 0}).tip == L"Size: 1%");
    CHECK_FALSE(state.wheel_pending);
    CHECK(state.layout_requested);
    CHECK(ZoomByWheel(state, kForward, {0, 0}).tip == L"Size: 2%");
}

TEST_CASE("the wheel keeps the pixel under the cursor in place") {
    ViewerState state = State(100, 100, L"1.00");
    static_cast<void>(ZoomByWheel(state, kForward, {50, 10}));
    CHECK(state.anchor == PixelPoint{10, 2});
}

TEST_CASE("the wheel is refused beyond the limit, and a layout follows all the same") {
    ViewerState state = State(22000, 10, L"1.00");
    const WheelResult result = ZoomByWheel(state, kForward, {50, 10});
    CHECK(result.refusal == Message{L" : Error - Image display failed.",
                                    L"A \"120%\" zoom is too large to display.",
                                    L"The maximum zoom level for this image is \"90%\".", L""});
    CHECK(result.tip.empty());
    CHECK(state.ratio_text == L"1.00");
    CHECK(state.anchor == PixelPoint{});
    CHECK(state.layout_requested);
    CHECK(state.wheel_pending);
}
