// A viewer's window: when it shows, how large it can be, and how it ends.
#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int k5 = 32806, k10 = 32782, k200 = 32793, k1000 = 32796;

std::filesystem::path ChartFile(int width, int height) {
    return ScratchFile(L"chart.bmp", BmpBytes(Chart(width, height), 24));
}

void WaitForClient(const Window& viewer, LONG width, LONG height) {
    WaitFor("the display size", [&] {
        const RECT client = viewer.Client();
        return client.right - client.left == width && client.bottom - client.top == height;
    });
}

HWND CaptureOf(const Window& window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window.Handle(), nullptr), &info);
    return info.hwndCapture;
}

/// Waits for the box about a copy that another program holds, and presses its OK.
void WaitForFailure(const Program& program, const std::filesystem::path& copy) {
    const Window box =
        program.Running().WaitForPlainBox(L"Failed to delete file: " + copy.wstring() + L" (Error code: 32)");
    CHECK(box.Text().empty());
    CHECK_FALSE(HasIcon(box));
    PressOk(box);
}

void Minimise(const Window& window, bool minimised) {
    window.Post(WM_SYSCOMMAND, minimised ? SC_MINIMIZE : SC_RESTORE);
    WaitFor("the window's state", [&] { return (IsIconic(window.Handle()) != 0) == minimised; });
}

}  // namespace

TEST_CASE("the viewers hide while the main window is minimised") {
    Program program;
    const Window first = program.Open(ChartFile(120, 90), 1), second = program.Open(ChartFile(120, 90), 2);
    Minimise(program.Main(), true);
    WaitFor("the viewers to hide", [&] { return !first.Visible() && !second.Visible(); });
    Minimise(program.Main(), false);
    WaitFor("the viewers to come back", [&] { return first.Visible() && second.Visible(); });
    program.Exit();
}

TEST_CASE("a viewer can be larger than the screen and smaller than other windows") {
    Program program;
    const Window viewer = program.Open(ChartFile(2200, 30));
    WaitForClient(viewer, 2200, 30);
    viewer.Command(k1000);
    WaitForClient(viewer, 22000, 300);
    viewer.Post(WM_CLOSE);  // its close button lies outside the screen
    WaitFor("the viewer to close", [&] { return !viewer.Exists(); });
    const Window small = program.Open(ChartFile(40, 30));
    small.Command(k10);
    WaitForClient(small, 4, 3);
    program.Exit();
}

TEST_CASE("a minimised viewer takes its new size when it is restored") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    Minimise(viewer, true);
    viewer.Command(k200);
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : chart.bmp");
    Minimise(viewer, false);
    WaitForClient(viewer, 240, 180);
    CHECK(viewer.Text() == L"[1 ]  (200%) File Name : chart.bmp");
    program.Exit();
}

TEST_CASE("the keyboard opens the context menu in the middle of a viewer that the cursor is not over") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    const POINT middle = viewer.ClientPoint(60, 45);
    MoveMouse({1500, 900});
    viewer.Post(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(viewer.Handle()), -1);
    OpenMenu menu(program.Running(), program.Inside());
    const RECT popup = menu.Popup().Frame();
    CHECK(popup.left == middle.x);
    CHECK(popup.top == middle.y);
    menu.Dismiss();
    const Window nothing = program.Open(ChartFile(19, 30), 2);
    nothing.Command(k5);
    WaitForClient(nothing, 0, 1);
    const POINT corner = nothing.ClientPoint(0, 0);
    nothing.Post(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(nothing.Handle()), -1);
    OpenMenu at_corner(program.Running(), program.Inside());
    CHECK(at_corner.Popup().Frame().left == corner.x);
    CHECK(at_corner.Popup().Frame().top == corner.y);
    at_corner.Dismiss();
    program.Exit();
}

TEST_CASE("the middle button drags the window by its image, until it is released") {
    Program program;
    const Window viewer = program.Open(ChartFile(300, 200));
    const RECT start = viewer.Frame();
    const auto moved_by = [&](LONG x, LONG y) {
        const RECT now = viewer.Frame();
        return now.left == start.left + x && now.top == start.top + y && now.right == start.right + x &&
               now.bottom == start.bottom + y;
    };
    const POINT grip = viewer.ClientPoint(100, 80);
    PointAt(grip);
    Press(Button::middle);
    PointAt({grip.x + 60, grip.y + 35});
    WaitFor("the window to follow the mouse", [&] { return moved_by(60, 35); });
    PointAt({grip.x + 20, grip.y + 90});
    WaitFor("the window to follow the mouse further", [&] { return moved_by(20, 90); });
    // A move without the button tells that it was released where nobody could see it.
    viewer.Post(WM_MOUSEMOVE);
    WaitFor("the end of the drag", [&] { return CaptureOf(viewer) == nullptr; });
    const POINT again{grip.x + 70, grip.y + 120};
    PointAt(again);
    CHECK(moved_by(20, 90));
    const POINT corner = viewer.ClientPoint(0, 0);
    viewer.Post(WM_MBUTTONDBLCLK, MK_MBUTTON, MAKELPARAM(again.x - corner.x, again.y - corner.y));
    WaitFor("the drag by a second press", [&] { return CaptureOf(viewer) == viewer.Handle(); });
    PointAt({again.x + 10, again.y + 5});
    WaitFor("the window to follow the mouse again", [&] { return moved_by(30, 95); });
    Release(Button::middle);
    // The wheel comes after the way to it, and keeps the point under the mouse: the window's own corner.
    PointAt(viewer.ClientPoint(0, 0));
    TurnWheel(viewer.ClientPoint(0, 0), 120);
    WaitFor("the step of the wheel", [&] { return viewer.Text().find(L"(120%)") != std::wstring::npos; });
    CHECK(viewer.Frame().left == start.left + 30);
    CHECK(viewer.Frame().top == start.top + 95);
    program.Exit();
}

TEST_CASE("a copy that cannot be deleted is reported, the others are deleted and the viewer closes") {
    Program program;
    const Window viewer = program.Open(Sample(L"tiff16-mono.tif"));
    const std::filesystem::path copy = DataFolder() / L"import_img_00.bmp";
    {
        const HeldFile held(copy);
        ClickCloseButton(viewer);
        WaitForFailure(program, copy);
        WaitFor("the end of the viewer", [&] { return !viewer.Exists(); });
        CHECK(TemporaryCopies() == std::vector<std::wstring>{L"import_img_00.bmp"});
        program.WaitForTitle(L"Pixora");
        const Window second = program.Open(Sample(L"tiff16-mono.tif"), 2);  // the first place is still taken
        const std::filesystem::path shown = DataFolder() / L"import_img_01.bmp",
                                    data = DataFolder() / L"import_img_01.bin";
        const HeldFile held_shown(shown), held_data(data);
        ClickCloseButton(second);
        WaitForFailure(program, shown);
        WaitForFailure(program, data);
        WaitFor("the end of the second viewer", [&] { return !second.Exists(); });
    }
    program.Exit();
}

TEST_CASE("each view opens once, beside its viewer, and again after it was closed") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    std::vector<Window> views;
    for (const wchar_t* item : {L"Statistics", L"H-Profile", L"V-Profie", L"Histogram", L"Image Info."}) {
        views.push_back(OpenView(program, viewer, item));
        const RECT frame = views.back().Frame();
        CHECK(frame.left >= viewer.Frame().right);
        CHECK(frame.top >= 0);
        CHECK(frame.right <= 1920);
        CHECK(frame.bottom <= 1080);
        for (std::size_t other = 0; other + 1 < views.size(); ++other)
            CHECK_FALSE((views[other].Frame().left == frame.left && views[other].Frame().top == frame.top));
        OpenMenu menu = OpenContextMenu(program, viewer);
        CHECK(menu.Greyed(item));
        menu.Dismiss();
    }
    viewer.Command(kViewHistogram);  // as a script might
    views.front().Post(WM_CLOSE);
    WaitFor("the view to close", [&] { return !views.front().Exists(); });
    OpenMenu menu = OpenContextMenu(program, viewer);
    CHECK_FALSE(menu.Greyed(L"Statistics"));
    CHECK(menu.Greyed(L"Histogram"));
    menu.Dismiss();
    CHECK(program.Running().Windows().size() == 6);  // the main window, the viewer and four views
    CHECK(OpenView(program, viewer, L"Statistics").Visible());
    program.Exit();
}

TEST_CASE("a viewer that closes takes its own views along") {
    Program program;
    const Window first = program.Open(ChartFile(120, 90), 1), second = program.Open(ChartFile(120, 90), 2);
    std::vector<Window> views;
    for (const int command : {kViewStatistics, kViewHProfile, kViewVProfile, kViewHistogram, kViewImageInfo})
        views.push_back(OpenView(program, first, command));
    const Window other = OpenView(program, second, kViewHistogram);
    first.Post(WM_CLOSE);
    WaitFor("the viewer and its views to close", [&] {
        return !first.Exists() &&
               std::none_of(views.begin(), views.end(), [](const Window& view) { return view.Exists(); });
    });
    CHECK(other.Visible());
    CHECK(program.Open(ChartFile(120, 90), 1).Visible());
    program.Exit();
}

TEST_CASE("a viewer waits with its end for the box of a view") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90));
    const Window histogram = OpenView(program, viewer, kViewHistogram);
    histogram.Item(kHistLevel).SetText(L"256");
    histogram.Command(kHistEnter);
    const Window box = WaitForRangeBox(program);
    viewer.Post(WM_CLOSE);
    (void)viewer.Send(WM_NULL);
    CHECK(viewer.Visible());
    CHECK(histogram.Visible());
    PressOk(box);
    WaitFor("the viewer and its view to close", [&] { return !viewer.Exists() && !histogram.Exists(); });
    CHECK(TemporaryCopies().empty());
    program.Exit();
}
