// The dialog "Region Coordinates".
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

constexpr std::uint32_t kGreenTint = Rgb(153, 255, 255);
constexpr int k100 = 32791;

/// A viewer of 200 x 150 pixels with its region on, its statistics view and its coordinates dialog.
struct Bench {
    Picture picture = Chart(200, 150);
    Program program;
    Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(picture, 24)));
    Window statistics = OpenView(program, viewer, kViewStatistics);
    Window coordinates;

    Bench() {
        PressButton(statistics, kStatRegion, L"REGION OFF");
        coordinates = OpenCoordinates(program, statistics);
    }
    /// Puts texts into the entries and presses ENTER.
    void Enter(const wchar_t* left, const wchar_t* top, const wchar_t* right, const wchar_t* bottom) const {
        coordinates.Item(kCoordLeft).SetText(left);
        coordinates.Item(kCoordTop).SetText(top);
        coordinates.Item(kCoordRight).SetText(right);
        coordinates.Item(kCoordBottom).SetText(bottom);
        Click(coordinates.Item(kCoordEnter));
    }
    /// Waits for a warning about an entry and presses its OK.
    void Warned(const std::wstring& entry) const {
        const Window box = program.Running().WaitForPlainBox(L"Invalid value in \"" + entry + L"\"");
        CHECK(box.Text() == L"Error");
        CHECK(HasIcon(box));
        PressOk(box);
    }
    /// What the viewer shows of a region whose far edges are these on the canvas.
    [[nodiscard]] Picture Tinted(const RECT& hole) const {
        Picture tinted = picture;
        TintOutside(tinted, hole, kGreenTint);
        return tinted;
    }
};

bool TakesText(const Window& edit) {
    return (edit.Style() & ES_READONLY) == 0;
}

}  // namespace

TEST_CASE("coordinates are typed after EDIT and taken by ENTER") {
    Bench bench;
    const Window& dialog = bench.coordinates;
    WaitForEdges(dialog, {0, 0, 199, 149});
    CHECK(dialog.ItemText(kCoordEdit) == L"EDIT");
    CHECK(dialog.ItemText(kCoordEnter) == L"ENTER");
    CHECK(dialog.ItemText(1220) == L"Left - Top (H, V) =    ");
    CHECK(dialog.ItemText(1221) == L"Right- Bottom (H,V) =");
    CHECK_FALSE(TakesText(dialog.Item(kCoordLeft)));
    CHECK_FALSE(dialog.Item(kCoordEnter).Enabled());
    Click(dialog.Item(kCoordEdit));
    WaitFor("the entries to take text", [&] { return dialog.Item(kCoordEnter).Enabled(); });
    TypeInto(dialog.Item(kCoordLeft), L"10");
    TypeInto(dialog.Item(kCoordTop), L"20");
    TypeInto(dialog.Item(kCoordRight), L"60");
    TypeInto(dialog.Item(kCoordBottom), L"70");
    WaitForEdges(dialog, {10, 20, 60, 70});
    // It hides with the other windows and comes back with what was typed.
    bench.program.Main().Post(WM_SYSCOMMAND, SC_MINIMIZE);
    WaitFor("the dialog to hide", [&] { return !dialog.Visible() && !bench.viewer.Visible(); });
    bench.program.Main().Post(WM_SYSCOMMAND, SC_RESTORE);
    WaitFor("the dialog to come back", [&] { return dialog.Visible() && bench.viewer.Visible(); });
    WaitForEdges(dialog, {10, 20, 60, 70});
    CHECK(dialog.Item(kCoordEnter).Enabled());
    Click(dialog.Item(kCoordEnter));
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 51 x 51");
    // Until the next layout the last column and row lie outside of what the viewer shows.
    WaitToSee(bench.program, bench.viewer, bench.Tinted({10, 20, 60, 70}));
    bench.viewer.Command(k100);
    WaitToSee(bench.program, bench.viewer, bench.Tinted({10, 20, 61, 71}));
    bench.Enter(L"7", L"7", L"7", L"7");
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 1 x 1");
    bench.program.Exit();
}

TEST_CASE("wrong coordinates are told one by one and the old ones return") {
    Bench bench;
    EnterEdges(bench.coordinates, {10, 20, 60, 70});
    WaitForText(bench.statistics, kStatRegionSize, L"Region = 51 x 51");
    bench.Enter(L"", L"150", L"12abc", L"-1");
    for (const wchar_t* entry : {L"top", L"bottom", L"left", L"right"}) bench.Warned(entry);
    CHECK(DismissErrorBox(bench.program) ==
          ErrorTexts{L"Pixora - Error   ", L"Top = 150 , Bottom = -1", L"Must be : Top <= Bottom", L""});
    WaitForEdges(bench.coordinates, {10, 20, 60, 70});
    bench.Enter(L"200", L"20", L"60", L"70");
    bench.Warned(L"left");
    CHECK(DismissErrorBox(bench.program) ==
          ErrorTexts{L"Pixora - Error   ", L"Left = 200 , Right = 60", L"Must be : Left <= Right", L""});
    WaitForEdges(bench.coordinates, {10, 20, 60, 70});
    bench.Enter(L"30", L"20", L"5", L"10");
    CHECK(DismissErrorBox(bench.program) ==
          ErrorTexts{L"Pixora - Error   ", L"Top = 20 , Bottom = 10", L"Must be : Top <= Bottom", L""});
    WaitForEdges(bench.coordinates, {10, 20, 60, 70});
    bench.Enter(L"10", L"20", L"60", L"99999999999");
    bench.Warned(L"bottom");
    WaitForEdges(bench.coordinates, {10, 20, 60, 70});
    CHECK(bench.statistics.ItemText(kStatRegionSize) == L"Region = 51 x 51");
    bench.program.Exit();
}

TEST_CASE("the coordinates mode ends with its dialog, and the dialog with its mode") {
    Bench bench;
    const auto gone = [&] { WaitFor("the dialog to close", [&] { return !bench.coordinates.Exists(); }); };
    Click(bench.coordinates.Item(kCoordEdit));
    WaitForKeyboard(bench.coordinates);
    PressKey(VK_ESCAPE);
    gone();
    WaitForText(bench.statistics, kStatCoordinates, L"H-V ON");
    bench.coordinates = OpenCoordinates(bench.program, bench.statistics);
    ClickCloseButton(bench.coordinates);
    gone();
    WaitForText(bench.statistics, kStatCoordinates, L"H-V ON");
    bench.coordinates = OpenCoordinates(bench.program, bench.statistics);
    bench.statistics.Command(kStatCoordinates);
    gone();
    WaitForText(bench.statistics, kStatCoordinates, L"H-V ON");
    bench.coordinates = OpenCoordinates(bench.program, bench.statistics);
    PressButton(bench.statistics, kStatRegion, L"REGION ON");
    gone();
    PressButton(bench.statistics, kStatRegion, L"REGION OFF");
    bench.coordinates = OpenCoordinates(bench.program, bench.statistics);
    bench.program.Close(bench.viewer);
    gone();
    CHECK_FALSE(bench.statistics.Exists());
    bench.program.Exit();
}
