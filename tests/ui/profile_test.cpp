// The line profile views: what they tell and show, and how they follow their viewer.
#include <doctest/doctest.h>

#include <cstdlib>
#include <iterator>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/profile_view.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr std::uint32_t kViewerLine = Rgb(200, 0, 0);
constexpr int kTerraceStep = 8;

/// A grey image whose rows have one level each: 8 x row.
Picture Terraces(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        DrawAcross(picture, y, 0, width, Rgb(kTerraceStep * y, kTerraceStep * y, kTerraceStep * y));
    return picture;
}

/// A viewer of 40 x 30 terraces on the left, and its views away from it.
struct Bench {
    Picture picture = Terraces(40, 30);
    Program program;
    Window viewer = program.Open(ScratchFile(L"terraces.bmp", BmpBytes(picture, 24)));

    Window OpenRow(std::wstring_view item = L"H-Profile") {
        const Window view = OpenView(program, viewer, item);
        MoveTo(view, {400, 10});
        return view;
    }
    Window OpenColumn() {
        const Window view = OpenView(program, viewer, kViewVProfile);
        MoveTo(view, {1000, 10});
        return view;
    }
    /// Waits until the viewer shows its picture with these lines; -1 stands for none.
    void WaitForLines(int row, int column) {
        Picture expected = picture;
        if (row >= 0) DrawAcross(expected, row, 0, 40, kViewerLine);
        if (column >= 0) DrawDown(expected, column, 0, 30, kViewerLine);
        WaitToSee(program, viewer, expected);
    }
};

/// The plot of one row of the terraces.
PlotPicture RowPlot(const Window& view, int row, int level) {
    return PlotPicture(view, kRowTint, 40, 5).Flat(kTerraceStep * row, kMonoPen).LevelCursor(level);
}

std::vector<int> ColumnSamples() {
    std::vector<int> samples;
    for (int y = 0; y < 30; ++y) samples.push_back(kTerraceStep * y);
    return samples;
}

void CheckLevelLabels(const Window& view, const std::vector<std::wstring>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) CHECK(view.ItemText(kLevelLabels[i]) == texts[i]);
}

/// Each label of a level of 8 bits stands beside its row.
void CheckLevelLabelPlaces(const Window& view) {
    const RECT plot = view.Item(kPlot).Frame();
    const int height = plot.bottom - plot.top;
    constexpr int kLevels[] = {255, 192, 128, 64};
    for (std::size_t i = 0; i < std::size(kLevels); ++i) {
        CAPTURE(kLevels[i]);
        const int row = plot.top + height - 1 - kLevels[i] * height / 256;
        CHECK(std::abs(view.Item(kLevelLabels[i]).Centre().y - row) <= 1);
    }
}

/// Clicks into the viewer with a key held, and waits for the line of a view.
void ClickWithKey(const Window& viewer, POINT at, WORD key, const Window& view, const wchar_t* line) {
    const POINT point = viewer.ClientPoint(at.x, at.y);
    PointAt(point);  // first, because a moved mouse may bring news of the keyboard's own state
    HoldKey(key);
    WaitFor("the key to be down", [&] { return GetAsyncKeyState(key) < 0; });
    ClickAt(point);
    WaitForText(view, kLine, line);
    ReleaseKey(key);
}

void SetMinimised(const Program& program, bool minimised) {
    program.Main().Post(WM_SYSCOMMAND, minimised ? SC_MINIMIZE : SC_RESTORE);
    WaitFor("the main window", [&] { return (IsIconic(program.Main().Handle()) != 0) == minimised; });
}

}  // namespace

TEST_CASE("a profile view tells the kind, the file, the depth and the extent of its image") {
    struct Facts {
        const wchar_t *name, *depth;
        std::vector<std::wstring> levels;
        const wchar_t* level;
        bool colour;
        const wchar_t *row, *column, *unit, *last_column, *last_row;
    };
    const Facts images[] = {
        {L"bmp24-colour.bmp",
         L"",
         {L"255", L"192", L"128", L"64"},
         L"128",
         true,
         L"120",
         L"159",
         L"50",
         L"318",
         L"240"},
        {L"tiff12-mono.tif",
         L"",
         {L"4095", L"3072", L"2048", L"1024"},
         L"2048",
         false,
         L"119",
         L"159",
         L"50",
         L"319",
         L"239"},
        {L"tiff16-mono-upper10.tif",
         L" - Upper 10bit",
         {L"1023", L"768", L"512", L"256"},
         L"512",
         false,
         L"119",
         L"159",
         L"50",
         L"319",
         L"239"},
        {L"tiff16-mono-upper14.tif",
         L" - Upper 14bit",
         {L"16383", L"12288", L"8192", L"4096"},
         L"8192",
         false,
         L"74",
         L"99",
         L"20",
         L"199",
         L"149"},
        {L"tiff16-rgb.tif",
         L" - 16bit",
         {L"65535", L"49152", L"32768", L"16384"},
         L"32768",
         true,
         L"74",
         L"99",
         L"20",
         L"199",
         L"149"},
    };
    Program program({.settings = {{L"IMG_SIZE", L"0.50"}}});
    int number = 0;
    for (const Facts& facts : images) {
        CAPTURE(std::wstring(facts.name));
        const Window viewer = program.Open(Sample(facts.name), ++number);
        for (const bool row : {true, false}) {
            CAPTURE(row);
            const Window view = OpenView(program, viewer, row ? kViewHProfile : kViewVProfile);
            CHECK(view.Text() == std::wstring(row ? L"H" : L"V") + L"-Profile View - " + facts.name +
                                     facts.depth + L" [" + std::to_wstring(number) + L"]");
            CheckLevelLabels(view, facts.levels);
            WaitForText(view, kDivision, (row ? L"H: " : L"V: ") + std::wstring(facts.unit) + L" Pixels/div");
            CHECK(view.ItemText(kFirstPosition) == L"0");
            CHECK(view.ItemText(kLastPosition) == (row ? facts.last_column : facts.last_row));
            CHECK(view.ItemText(kLine) == (row ? facts.row : facts.column));
            CHECK(view.ItemText(kLevel) == facts.level);
            CHECK(view.ItemText(kCursor) == L"CURSOR OFF");
            CHECK(view.ItemText(kLevelOn) == L"OFF");
            CHECK(view.Item(kProfileChannel).Visible() == facts.colour);
            CHECK(view.ItemText(kProfileChannel) == (facts.colour ? L"R" : L"B/W"));
        }
    }
    program.Exit();
}

TEST_CASE("both profile lines show in the viewer, follow its clicks and take their plots along") {
    Bench bench;
    const Window row = bench.OpenRow();
    CheckLevelLabelPlaces(row);
    bench.WaitForLines(14, -1);
    WaitForPlot(bench.program, row, RowPlot(row, 14, 128));
    const Window column = bench.OpenColumn();
    bench.WaitForLines(14, 19);
    const PlotPicture empty(column, kColumnTint, 30, 5);
    Push(column, kLevelOn);  // the level cursor would lie over one of the samples
    WaitForSamples(bench.program, column, empty, ColumnSamples(), kMonoPen);

    ClickImage(bench.viewer, 8, 4);  // the row below the click
    WaitForText(row, kLine, L"5");
    WaitForText(column, kLine, L"8");
    bench.WaitForLines(5, 8);
    WaitForPlot(bench.program, row, RowPlot(row, 5, 128));

    ClickWithKey(bench.viewer, {30, 20}, VK_SHIFT, row, L"21");
    bench.WaitForLines(21, 8);
    ClickWithKey(bench.viewer, {2, 2}, VK_CONTROL, column, L"2");
    bench.WaitForLines(21, 2);
    WaitForPlot(bench.program, row, RowPlot(row, 21, 128));
    bench.program.Exit();
}

TEST_CASE("a profile view opens once, and closing it puts the lines back and hides its own") {
    Bench bench;
    const Window row = bench.OpenRow();
    CHECK_FALSE(Offers(bench.program, bench.viewer, L"H-Profile"));
    CHECK(Offers(bench.program, bench.viewer, L"V-Profie"));
    bench.viewer.Command(kViewHProfile);  // greyed: nothing may come of it
    const Window column = bench.OpenColumn();
    CHECK_FALSE(Offers(bench.program, bench.viewer, L"V-Profie"));
    bench.WaitForLines(14, 19);
    ClickImage(bench.viewer, 8, 4);
    bench.WaitForLines(5, 8);
    ClickImage(bench.viewer, 30, 20);
    bench.WaitForLines(21, 30);

    // Both lines go back to where they were before the last click; the other view's stays to be seen.
    CloseWindow(row);
    bench.WaitForLines(-1, 8);
    WaitForText(column, kLine, L"8");
    CHECK(Offers(bench.program, bench.viewer, L"H-Profile"));
    const Window again = bench.OpenRow();
    WaitForText(again, kLine, L"5");
    bench.WaitForLines(5, 8);

    // A view whose line is hidden leaves the lines alone.
    ClickImage(bench.viewer, 12, 9);
    bench.WaitForLines(10, 12);
    Push(column, kCursor);
    bench.WaitForLines(10, -1);
    CloseWindow(column);
    bench.WaitForLines(10, -1);
    CHECK(again.ItemText(kLine) == L"10");
    const Window back = bench.OpenColumn();
    WaitForText(back, kLine, L"12");
    bench.program.Exit();
}

TEST_CASE("the profile views hide with the main window and close with their viewer") {
    Bench bench;
    const Window row = bench.OpenRow(), column = bench.OpenColumn();
    SetMinimised(bench.program, true);
    WaitFor("the views to hide", [&] { return !row.Visible() && !column.Visible(); });
    SetMinimised(bench.program, false);
    WaitFor("the views to show", [&] { return row.Visible() && column.Visible(); });
    // Neither Escape nor Enter closes a view.
    Raise(row);
    WaitForKeyboard(row);
    PressKey(VK_ESCAPE);
    PressKey(VK_RETURN);
    PressKey(VK_UP);
    WaitForText(row, kLevel, L"129");
    CHECK(row.Visible());
    bench.program.Close(bench.viewer);
    WaitFor("the views to close", [&] { return !row.Exists() && !column.Exists(); });
    bench.program.Exit();
}

TEST_CASE("the region limits a profile, and its labels tell its edges") {
    Bench bench;
    const Window statistics = OpenStatistics(bench.program, bench.viewer);
    MoveTo(statistics, {10, 500});
    const Window row = bench.OpenRow(), column = bench.OpenColumn();
    PressButton(statistics, kStatRegion, L"REGION OFF");
    const Window coordinates = OpenCoordinates(bench.program, statistics);
    EnterEdges(coordinates, {10, 4, 20, 24});
    WaitForText(row, kFirstPosition, L"10");
    WaitForText(row, kLastPosition, L"20");
    WaitForText(row, kDivision, L"H: 2 Pixels/div");
    WaitForText(column, kFirstPosition, L"4");
    WaitForText(column, kLastPosition, L"24");
    WaitForText(column, kDivision, L"V: 5 Pixels/div");
    WaitForPlot(bench.program, row,
                PlotPicture(row, kRowTint, 11, 2).Flat(14 * kTerraceStep, kMonoPen).LevelCursor(128));
    WaitForSamples(bench.program, column, PlotPicture(column, kColumnTint, 21, 5),
                   {32, 40, 48, 56, 64, 72, 80}, kMonoPen);

    // The cursor stays within the region.
    Push(column, kLineCentre);
    WaitForText(column, kLine, L"15");
    row.Item(kLine).SetText(L"24");
    Raise(row);
    WaitForKeyboard(row);
    PressKey(VK_RETURN);
    WaitForPlot(bench.program, row,
                PlotPicture(row, kRowTint, 11, 2).Flat(24 * kTerraceStep, kMonoPen).LevelCursor(128));
    Push(row, kLineDown);
    Push(row, kLineUp);
    WaitForText(row, kLine, L"23");

    // One position is a level line, and the text of its division shows 1.
    EnterEdges(coordinates, {12, 4, 12, 24});
    WaitForText(row, kDivision, L"H: 1 Pixels/div");
    WaitForText(row, kLastPosition, L"12");
    WaitFor("the level line", [&] {
        const Picture shown = bench.program.See(row.Item(kPlot));
        const int y = shown.height - 1 - 23 * kTerraceStep * shown.height / 256;
        return shown.At(1, y) == kMonoPen && shown.At(shown.width - 2, y) == kMonoPen;
    });
    bench.program.Exit();
}
