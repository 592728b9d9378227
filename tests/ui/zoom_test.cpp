// Every way of changing a viewer's display size.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kByValue = 32805, kFit = 32812, k50 = 32786, k100 = 32791, k200 = 32793, k500 = 32795,
              k1000 = 32796, kDefined = 32802, kSaveDefault = 32801;
constexpr int kValueEdit = 1002, kValueOk = 1003;

std::filesystem::path ChartFile(int width, int height) {
    return ScratchFile(L"chart.bmp", BmpBytes(Chart(width, height), 24));
}

struct Extent {
    LONG width = 0, height = 0;
    friend bool operator==(const Extent&, const Extent&) = default;
};

Extent ClientExtent(const Window& viewer) {
    const RECT client = viewer.Client();
    return {client.right - client.left, client.bottom - client.top};
}

/// Waits until the viewer's client area has this size and its caption this percentage.
void WaitForSize(const Window& viewer, Extent extent, const std::wstring& percent) {
    WaitFor("the display size", [&] {
        return ClientExtent(viewer) == extent &&
               viewer.Text().find(L" (" + percent + L") ") != std::wstring::npos;
    });
}

/// Waits until the viewer shows each pixel of `picture` as a block of `zoom` pixels.
void WaitForPicture(Program& program, const Window& viewer, const Picture& picture, int zoom) {
    WaitFor("the picture", [&] { return DifferenceEnlarged(program.See(viewer), picture, zoom).empty(); });
}

/// Opens the context menu at a point of the viewer's client area.
OpenMenu RightClick(Program& program, const Window& viewer, int x, int y) {
    ClickAt(viewer.ClientPoint(x, y), Button::right);
    return {program.Running(), program.Inside()};
}

/// The image pixel that the viewer shows at a point of the screen, at a whole ratio.
POINT PixelAt(const Window& viewer, POINT screen, int zoom) {
    const RECT client = viewer.Client();
    return {(screen.x - client.left) / zoom, (screen.y - client.top) / zoom};
}

bool operator==(const POINT& a, const POINT& b) {
    return a.x == b.x && a.y == b.y;
}

/// Whether the window gets all mouse input.
bool HasMouse(const Window& window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window.Handle(), nullptr), &info) &&
           info.hwndCapture == window.Handle();
}

/// Opens a file and drags its viewer to where it can grow on all sides.
Window OpenInTheMiddle(Program& program, const std::filesystem::path& file) {
    const Window viewer = program.Open(file);
    const POINT from = viewer.ClientPoint(60, 40);
    const RECT before = viewer.Frame();
    MoveMouse(from);
    Press(Button::middle);
    WaitFor("the viewer to take the mouse", [&] { return HasMouse(viewer); });
    // The button goes up once the window has come along: the system may report an older place of the cursor
    // after a newer one, and only the last report before the release counts.
    for (int step = 1; step <= 5; ++step) {
        WaitFor("the viewer to follow the mouse", [&] {
            // Again at each look: a late report of the step before puts the cursor back there.
            MoveMouse({from.x + 130 * step, from.y + 80 * step});
            const RECT now = viewer.Frame();
            return now.left == before.left + 130 * step && now.top == before.top + 80 * step;
        });
    }
    Release(Button::middle);
    WaitFor("the viewer to leave the mouse", [&] { return !HasMouse(viewer); });
    MoveMouse({from.x, from.y});
    CHECK(viewer.Frame().left == before.left + 650);
    return viewer;
}

/// The profile lines and the region of a viewer at a whole ratio.
Picture WithOverlays(const Picture& picture, int zoom, const Edges& region, bool framed) {
    constexpr int kRow = 11, kColumn = 15;
    constexpr std::uint32_t kRedLine = Rgb(200, 0, 0), kGreenFrame = Rgb(53, 158, 66),
                            kGreenTint = Rgb(153, 255, 255);
    Picture shown = Enlarged(picture, zoom);
    DrawAcross(shown, kRow * zoom + zoom / 2, 0, shown.width, kRedLine);
    DrawDown(shown, kColumn * zoom + zoom / 2, 0, shown.height, kRedLine);
    const RECT rectangle{region.left * zoom, region.top * zoom, (region.right + 1) * zoom,
                         (region.bottom + 1) * zoom};
    if (framed)
        DrawFrame(shown, rectangle, kGreenFrame);
    else
        TintOutside(shown, rectangle, kGreenTint);
    return shown;
}

/// The mark on the region's top left corner.
Picture WithMark(Picture shown, int zoom, const Edges& region) {
    constexpr std::uint32_t kWhiteMark = Rgb(250, 250, 250);
    const int x = region.left * zoom, y = region.top * zoom, arm = 20 * zoom;
    DrawAcross(shown, y, x, x + arm, kWhiteMark);
    DrawDown(shown, x, y, y + arm, kWhiteMark);
    return shown;
}

/// Shows lines, region and mark of a viewer at several sizes.
void CheckOverlays(const wchar_t* style) {
    const Picture picture = Chart(40, 30);
    const bool framed = style == std::wstring(L"LINE");
    constexpr Edges kRegion{5, 4, 24, 19};
    Program program({.settings = {{L"BDR_TYPE", style}, {L"IMG_SIZE", L"2.00"}}});
    const Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(picture, 24)));
    const Window row = OpenView(program, viewer, kViewHProfile);
    const Window column = OpenView(program, viewer, kViewVProfile);
    ClickImage(viewer, 30, 21);
    WaitForText(row, kProfileLine, L"11");
    WaitForText(column, kProfileLine, L"15");
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    Raise(statistics);
    PressButton(statistics, kStatRegion, L"REGION OFF");
    EnterEdges(OpenCoordinates(program, statistics), kRegion);
    WaitForText(statistics, kStatRegionSize, L"Region = 20 x 16");
    for (const auto& [command, zoom] : {std::pair{k100, 1}, {k200, 2}, {k500, 5}}) {
        viewer.Command(command);
        WaitToSee(program, viewer, WithOverlays(picture, zoom, kRegion, framed));
    }
    statistics.Command(kStatCorner);
    ClickImage(viewer, 28, 24, Button::right);
    WaitToSee(program, viewer, WithMark(WithOverlays(picture, 5, kRegion, framed), 5, kRegion));
    viewer.Command(k200);
    WaitToSee(program, viewer, WithMark(WithOverlays(picture, 2, kRegion, framed), 2, kRegion));
    program.Exit();
}

}  // namespace

TEST_CASE("lines, frame and mark follow the display size") {
    CheckOverlays(L"LINE");
}

TEST_CASE("the tint around the region follows the display size") {
    CheckOverlays(L"AREA");
}

TEST_CASE("the context menu holds the views, the display sizes and the rest") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    OpenMenu menu = RightClick(program, viewer, 60, 40);
    for (const wchar_t* text :
         {L"Statistics", L"H-Profile", L"V-Profie", L"Histogram", L"Image Info.", L"Close"})
        CHECK_FALSE(menu.Greyed(text));
    CHECK(menu.Greyed(L"Save Region Image"));
    OpenMenu sizes = menu.Open(L"Display Size");
    for (const wchar_t* text : {L"Set Display Size by Value", L"Fit to Monitor", L"   5%", L" 100%",
                                L"1000% ", L"Defined Size", L"Save as Default Size"})
        CHECK_FALSE(sizes.Greyed(text));
    sizes.Dismiss();
    CHECK(viewer.Exists());
    program.Exit();
}

TEST_CASE("a size from the menu keeps the pixel under the menu in place") {
    const Picture picture = Chart(120, 90);
    Program program;
    const Window viewer = OpenInTheMiddle(program, ScratchFile(L"chart.bmp", BmpBytes(picture, 24)));
    const POINT point = viewer.ClientPoint(60, 40);
    OpenMenu menu = RightClick(program, viewer, 60, 40);
    menu.Open(L"Display Size").Choose(L" 200%");
    WaitForSize(viewer, {240, 180}, L"200%");
    CHECK(PixelAt(viewer, point, 2) == POINT{60, 40});
    WaitForPicture(program, viewer, picture, 2);
    viewer.Command(k1000);
    WaitForSize(viewer, {1200, 900}, L"1000%");
    CHECK(PixelAt(viewer, point, 10) == POINT{60, 40});
    WaitForPicture(program, viewer, picture, 10);
    viewer.Command(k100);
    WaitForSize(viewer, {120, 90}, L"100%");
    CHECK(PixelAt(viewer, point, 1) == POINT{60, 40});
    program.Exit();
}

TEST_CASE("a size beyond the limit is refused and nothing changes") {
    Program program;
    const Window viewer = program.Open(ChartFile(2201, 10));
    const RECT before = viewer.Frame();
    viewer.Command(k1000);
    CHECK(DismissErrorBox(program) == ErrorTexts{L"Pixora  : Error - Image display failed.   ",
                                                 L"A \"1000%\" zoom is too large to display.",
                                                 L"The maximum zoom level for this image is \"990%\".", L""});
    const RECT after = viewer.Frame();
    CHECK(EqualRect(&before, &after));
    viewer.Command(k50);
    WaitForSize(viewer, {1100, 5}, L"50%");
    // The wheel's next step would be beyond the limit as well.
    WriteSettings({{L"IMG_SIZE", L"9.80"}});
    viewer.Command(kDefined);
    WaitForSize(viewer, {21569, 98}, L"980%");
    const POINT point = viewer.ClientPoint(50, 50);
    MoveMouse(point);
    TurnWheel(point, 120);
    CHECK(DismissErrorBox(program).line1 == L"A \"1000%\" zoom is too large to display.");
    CHECK(ClientExtent(viewer) == Extent{21569, 98});
    program.Exit();
}

TEST_CASE("the wheel zooms about the cursor and tells the size") {
    const Picture picture = Chart(120, 90);
    Program program;
    const Window viewer = OpenInTheMiddle(program, ScratchFile(L"chart.bmp", BmpBytes(picture, 24)));
    const POINT point = viewer.ClientPoint(50, 50);
    MoveMouse(point);
    TurnWheel(point, 120);
    WaitForSize(viewer, {144, 108}, L"120%");
    const Window tip = program.Running().WaitForWindow(
        "the note at the cursor", [](const Window& window) { return window.Class() == L"tooltips_class32"; });
    CHECK(program.Inside().Tooltips(tip) == std::vector<std::wstring>{L"Size: 120%"});
    const long long shown = Now_ms();
    for (const wchar_t* percent : {L"140%", L"160%", L"180%", L"200%"}) {
        TurnWheel(point, 120);
        WaitFor("the next size", [&] { return viewer.Text().find(percent) != std::wstring::npos; });
    }
    CHECK(PixelAt(viewer, point, 2) == POINT{50, 50});
    WaitForPicture(program, viewer, picture, 2);
    WaitFor("the end of the note", [&] { return !tip.Visible(); });
    CHECK(Now_ms() - shown >= 2900);
    for (const wchar_t* percent : {L"180%", L"160%", L"140%", L"120%", L"100%", L"95%"}) {
        TurnWheel(point, -120);
        WaitFor("the next size", [&] { return viewer.Text().find(percent) != std::wstring::npos; });
    }
    CHECK(ClientExtent(viewer) == Extent{114, 85});
    program.Exit();
}

TEST_CASE("the wheel stops at one percent") {
    Program program({.settings = {{L"IMG_SIZE", L"0.02"}}});
    const Window viewer = program.Open(ChartFile(1900, 900));
    const POINT point = viewer.ClientPoint(5, 5);
    TurnWheel(point, -120);
    WaitForSize(viewer, {19, 9}, L"1%");
    TurnWheel(point, -120);
    TurnWheel(point, 120);
    WaitForSize(viewer, {38, 18}, L"2%");
    program.Exit();
}

TEST_CASE("an image is fitted to the monitor with its frame outside") {
    Program program;
    const Window viewer = program.Open(ChartFile(400, 100));
    viewer.Command(kFit);
    WaitForSize(viewer, {1920, 480}, L"480%");
    CHECK(viewer.Frame().left == -8);
    CHECK(viewer.Frame().top == (1080 - 480) / 2);
    const Window high = program.Open(ChartFile(100, 400), 2);
    high.Command(kFit);
    WaitForSize(high, {270, 1080}, L"270%");
    CHECK(high.Frame().left == (1920 - 270) / 2);
    CHECK(high.Frame().top == -8 - GetSystemMetrics(SM_CYCAPTION));
    program.Exit();
}

TEST_CASE("the defined size is that of the settings file") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    WriteSettings({{L"IMG_SIZE", L"1.5"}});
    viewer.Command(kDefined);
    WaitForSize(viewer, {180, 135}, L"150%");
    WriteSettings({{L"IMG_SIZE", L"---%"}});
    viewer.Command(kDefined);
    CHECK(DismissErrorBox(program) == ErrorTexts{L"Pixora  : Error- Invalid Value   ", L"",
                                                 L"Input Value: \"---%\"", L"The input string is invalid."});
    CHECK(ClientExtent(viewer) == Extent{180, 135});
    program.Exit();
}

TEST_CASE("the current size becomes the default for new viewers") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    viewer.Command(k200);
    WaitForSize(viewer, {240, 180}, L"200%");
    viewer.Command(kSaveDefault);
    WaitFor("the stored size", [] { return StoredSetting(L"IMG_SIZE") == L"2.000"; });
    WaitFor("the size box", [&] { return program.Item(kSizeBox).Text() == L"     200%"; });
    CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == CB_ERR);
    CHECK(ClientExtent(program.Open(ChartFile(120, 90), 2)) == Extent{240, 180});
    program.Exit();
}

TEST_CASE("a size is typed in percent") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    viewer.Command(kByValue);
    const Window entry = program.Running().WaitForWindow(
        "the dialog", [](const Window& window) { return window.Text() == L"Display Size Value"; });
    CHECK(entry.ItemText(kValueEdit) == L"100%");
    CHECK_FALSE(viewer.Enabled());
    entry.Item(kValueEdit).SetText(L"250");
    Click(entry.Item(kValueOk));
    WaitFor("the end of the dialog", [&] { return !entry.Exists(); });
    WaitForSize(viewer, {300, 225}, L"250%");
    CHECK(viewer.Enabled());
    program.Exit();
}

TEST_CASE("Close in the context menu closes the viewer") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    RightClick(program, viewer, 60, 40).Choose(L"Close");
    WaitFor("the end of the viewer", [&] { return !viewer.Exists(); });
    CHECK(TemporaryCopies().empty());
    program.Exit();
}
