// Editing the region and the profile lines with the mouse.
#include <doctest/doctest.h>

#include <functional>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr std::uint32_t kGreenTint = Rgb(153, 255, 255), kWhiteMark = Rgb(250, 250, 250),
                        kRedLine = Rgb(200, 0, 0);
constexpr int kArm = 20;  // of a mark at 100 %

/// Grey levels that tell columns and rows apart.
Picture Slope(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int level = (x + y) / 2;
            picture.At(x, y) = Rgb(level, level, level);
        }
    return picture;
}

/// What the viewer shows of a region in AREA style at 100 %.
Picture WithRegion(Picture picture, const Edges& edges) {
    TintOutside(picture, {edges.left, edges.top, edges.right + 1, edges.bottom + 1}, kGreenTint);
    return picture;
}

enum class Mark { centre, top_left, top_right, bottom_left, bottom_right };

/// The region with the mark on one of its corners, whose arms lead inwards, or in its centre. On the right
/// and at the bottom the corner is that of the region's edge on the canvas, just outside.
Picture WithMark(const Picture& plain, const Edges& edges, Mark mark) {
    Picture picture = WithRegion(plain, edges);
    const bool left = mark == Mark::top_left || mark == Mark::bottom_left;
    const bool top = mark == Mark::top_left || mark == Mark::top_right;
    int x = left ? edges.left : edges.right + 1, y = top ? edges.top : edges.bottom + 1;
    int across = left ? 1 : -1, down = top ? 1 : -1;
    if (mark == Mark::centre) {
        x = (edges.left + edges.right + 1) / 2, y = (edges.top + edges.bottom + 1) / 2;
        across = down = 0;
    }
    if (across >= 0) DrawAcross(picture, y, x, x + kArm, kWhiteMark);
    if (across <= 0) DrawAcross(picture, y, x - kArm + 1, x + 1, kWhiteMark);
    if (down >= 0) DrawDown(picture, x, y, y + kArm, kWhiteMark);
    if (down <= 0) DrawDown(picture, x, y - kArm + 1, y + 1, kWhiteMark);
    return picture;
}

/// A viewer of a grey slope, its statistics view, and its region switched on.
struct Bench {
    Picture picture = Slope(200, 150);
    Program program;
    Window viewer = program.Open(ScratchFile(L"slope.bmp", BmpBytes(picture, 24)));
    Window statistics = OpenView(program, viewer, L"Statistics");

    Bench() { PressButton(statistics, kStatRegion, L"REGION OFF"); }

    /// Clicks with the right button and waits for the mark.
    void Pick(int x, int y, const Edges& edges, Mark mark) {
        ClickImage(viewer, x, y, Button::right);
        WaitToSee(program, viewer, WithMark(picture, edges, mark));
    }
    /// Waits until everything that was clicked before has been dealt with.
    void Settle(int x, int y) const {
        PointAt(viewer.ClientPoint(x, y));
        WaitForText(statistics, kStatLocation,
                    L"Location = (" + std::to_wstring(x) + L", " + std::to_wstring(y) + L")");
    }
    /// Holds the right button until the quit menu opens, and chooses from it.
    void ChooseFromQuitMenu(int x, int y, std::wstring_view item) {
        const POINT point = viewer.ClientPoint(x, y);
        PointAt(point);
        Press(Button::right);
        ChooseWhileHeld(point, item);
    }
    /// The same for the second of two fast presses. The button itself goes down beside the viewer.
    void ChooseAfterSecondPress(std::wstring_view item) {
        const POINT point = statistics.ClientPoint(5, 5);
        PointAt(point);
        Press(Button::right);
        viewer.Post(WM_RBUTTONDBLCLK, MK_RBUTTON, MAKELPARAM(5, 5));
        ChooseWhileHeld(point, item);
    }
    void ChooseWhileHeld(POINT point, std::wstring_view item) {
        OpenMenu menu(program.Running(), program.Inside());
        const RECT popup = menu.Popup().Frame();
        CHECK(popup.left == point.x + 15);
        CHECK(popup.top == point.y + 10);
        Release(Button::right);
        menu.Choose(item);
    }
};

/// Clicks while a key is held, and releases it when the effect shows. The mouse stays where it is as long as
/// the key is down: the system may look at the real keyboard when it moves.
void ClickHolding(WORD key, POINT point, const std::function<void()>& wait_for_effect) {
    PointAt(point);
    HoldKey(key);
    WaitFor("the key to be down", [key] { return GetAsyncKeyState(key) < 0; });
    Press(Button::left);
    Release(Button::left);
    wait_for_effect();
    ReleaseKey(key);
}

Picture WithLines(Picture picture, int row, int column) {
    DrawAcross(picture, row, 0, picture.width, kRedLine);
    DrawDown(picture, column, 0, picture.height, kRedLine);
    return picture;
}

}  // namespace

TEST_CASE("clicks move the profile lines; Ctrl keeps the row, Shift the column, the region holds both") {
    const Picture picture = Slope(200, 150);
    Program program;
    const Window viewer = program.Open(ScratchFile(L"slope.bmp", BmpBytes(picture, 24)));
    const Window rows = OpenView(program, viewer, L"H-Profile");
    const Window columns = OpenView(program, viewer, L"V-Profie");
    const auto wait = [&](int row, int column) {
        WaitToSee(program, viewer, WithLines(picture, row, column));
        WaitForText(rows, kProfileLine, std::to_wstring(row));
        WaitForText(columns, kProfileLine, std::to_wstring(column));
    };
    wait(74, 99);
    // The cursor counts, wherever it was when the message was sent; the second of two fast clicks is a click.
    PointAt(viewer.ClientPoint(30, 39));
    viewer.Post(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    wait(40, 30);
    PointAt(viewer.ClientPoint(110, 24));
    viewer.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    wait(25, 110);
    ClickImage(viewer, 10, 9);
    wait(10, 10);
    ClickHolding(VK_CONTROL, viewer.ClientPoint(50, 60), [&] { wait(10, 50); });
    ClickHolding(VK_SHIFT, viewer.ClientPoint(70, 79), [&] { wait(80, 50); });
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    Raise(statistics);
    PressButton(statistics, kStatRegion, L"REGION OFF");
    const Window coordinates = OpenCoordinates(program, statistics);
    EnterEdges(coordinates, {100, 90, 150, 120});
    WaitForText(statistics, kStatRegionSize, L"Region = 51 x 31");
    coordinates.Post(WM_CLOSE);
    WaitFor("the dialog to close", [&] { return !coordinates.Exists(); });
    ClickImage(viewer, 20, 140);
    WaitForText(rows, kProfileLine, L"120");
    WaitForText(columns, kProfileLine, L"100");
    program.Exit();
}

TEST_CASE("a short right press while the region is edited picks a corner and opens no menu") {
    Bench bench;
    // The coordinates mode alone picks none, and only a long press ends it.
    const Window coordinates = OpenCoordinates(bench.program, bench.statistics);
    OpenContextMenu(bench.program, bench.viewer, 30, 100).Dismiss();
    CHECK(coordinates.Exists());
    bench.ChooseFromQuitMenu(80, 20, L"Exit Region Change ");
    WaitFor("the coordinates dialog to close", [&] { return !coordinates.Exists(); });
    WaitForText(bench.statistics, kStatCoordinates, L"H-V ON");
    PressButton(bench.statistics, kStatCorner, L"CORNER");
    bench.Pick(180, 130, {0, 0, 199, 149}, Mark::bottom_right);
    bench.Settle(60, 60);
    for (const Window& window : bench.program.Running().Windows()) CHECK(window.Class() != L"#32768");
    PressButton(bench.statistics, kStatCorner, L"CORNER");  // switched off, the menu is back
    WaitToSee(bench.program, bench.viewer, bench.picture);
    OpenContextMenu(bench.program, bench.viewer, 30, 100).Dismiss();
    bench.program.Exit();
}

TEST_CASE("corner clicks reshape the region, and the mark shows the corner that they move") {
    Bench bench;
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 200 x 150");
    PressButton(bench.statistics, kStatCorner, L"CORNER");
    const Window coordinates = OpenCoordinates(bench.program, bench.statistics);
    CHECK(coordinates.Text() == L" [1 ]  Region Coordinates");
    WaitForEdges(coordinates, {0, 0, 199, 149});
    bench.Pick(20, 15, {0, 0, 199, 149}, Mark::top_left);
    ClickImage(bench.viewer, 30, 19);
    WaitForEdges(coordinates, {30, 20, 199, 149});
    WaitToSee(bench.program, bench.viewer, WithMark(bench.picture, {30, 20, 199, 149}, Mark::top_left));
    bench.Pick(180, 30, {30, 20, 199, 149}, Mark::top_right);
    ClickImage(bench.viewer, 150, 9);
    WaitForEdges(coordinates, {30, 10, 150, 149});
    bench.Pick(40, 140, {30, 10, 150, 149}, Mark::bottom_left);
    ClickImage(bench.viewer, 50, 99);
    WaitForEdges(coordinates, {50, 10, 150, 100});
    bench.Pick(140, 95, {50, 10, 150, 100}, Mark::bottom_right);
    ClickImage(bench.viewer, 119, 89);
    WaitForEdges(coordinates, {50, 10, 119, 90});
    WaitToSee(bench.program, bench.viewer, WithMark(bench.picture, {50, 10, 119, 90}, Mark::bottom_right));
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 70 x 81");
    WaitForText(bench.statistics, kStatMin, L"30");
    WaitForText(bench.statistics, kStatMax, L"104");
    ClickImage(bench.viewer, 40, 60);  // left of the left edge: the corner cannot go there
    bench.Settle(5, 140);
    WaitForEdges(coordinates, {50, 10, 119, 90});
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 70 x 81");
    bench.program.Exit();
}

TEST_CASE("move clicks move the region, and undo and exit wait behind a long right press") {
    Bench bench;
    Window coordinates = OpenCoordinates(bench.program, bench.statistics);
    EnterEdges(coordinates, {50, 40, 89, 69});
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 40 x 30");
    Raise(bench.statistics);
    Click(bench.statistics.Item(kStatMove));
    WaitFor("the coordinates dialog to close", [&] { return !coordinates.Exists(); });
    coordinates = OpenCoordinates(bench.program, bench.statistics);
    ClickImage(bench.viewer, 100, 79);  // before any right click the region's centre moves
    WaitForEdges(coordinates, {81, 66, 120, 95});
    bench.Pick(82, 67, {81, 66, 120, 95}, Mark::top_left);
    ClickImage(bench.viewer, 190, 139);
    WaitForEdges(coordinates, {160, 120, 199, 149});
    bench.Pick(198, 122, {160, 120, 199, 149}, Mark::top_right);
    ClickImage(bench.viewer, 20, 9);
    WaitForEdges(coordinates, {0, 10, 39, 39});
    bench.Pick(2, 38, {0, 10, 39, 39}, Mark::bottom_left);
    ClickImage(bench.viewer, 180, 19);
    WaitForEdges(coordinates, {161, 149, 200, 30});  // above the image's top the bottom left goes astray
    bench.ChooseFromQuitMenu(30, 100, L"Undo Last Change");
    WaitForEdges(coordinates, {0, 10, 39, 39});
    bench.Pick(38, 37, {0, 10, 39, 39}, Mark::bottom_right);
    ClickImage(bench.viewer, 20, 59);
    WaitForEdges(coordinates, {0, 31, 39, 60});
    bench.Pick(19, 46, {0, 31, 39, 60}, Mark::centre);
    bench.ChooseFromQuitMenu(80, 20, L"Exit Region Change ");
    WaitFor("the coordinates dialog to close", [&] { return !coordinates.Exists(); });
    WaitForText(bench.statistics, kStatCoordinates, L"H-V ON");
    WaitToSee(bench.program, bench.viewer, WithRegion(bench.picture, {0, 31, 39, 60}));
    coordinates = OpenCoordinates(bench.program, bench.statistics);
    bench.ChooseAfterSecondPress(L"Exit Region Change ");
    WaitFor("the coordinates dialog to close again", [&] { return !coordinates.Exists(); });
    ClickImage(bench.viewer, 120, 100);
    bench.Settle(150, 140);
    WaitToSee(bench.program, bench.viewer, WithRegion(bench.picture, {0, 31, 39, 60}));
    bench.program.Exit();
}
