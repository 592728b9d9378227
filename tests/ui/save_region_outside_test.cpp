// Saving a region that the image does not hold, or not all of it.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/sample_values.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kNoticeLine = 1067;

/// Asks for the region to be saved, checks the proposed name and saves under another one.
void SaveAs(Program& program, const Window& viewer, const std::wstring& proposed,
            const std::filesystem::path& path) {
    viewer.Command(kViewSaveRegion);
    const FileDialog dialog(program.Running());
    CHECK(dialog.Name() == proposed);
    dialog.Accept(path.wstring());
}

}  // namespace

TEST_CASE("of a region that leaves the image its part is saved, of one without pixels nothing") {
    const std::filesystem::path folder = FreshScratchFolder();
    const std::filesystem::path file = ScratchFile(L"chart.bmp", BmpBytes(Chart(200, 150), 24));
    Program program;
    const Window viewer = program.Open(file);
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    PressButton(statistics, kStatRegion, L"REGION OFF");
    const Window typed = OpenCoordinates(program, statistics);
    EnterEdges(typed, {60, 20, 159, 99});
    WaitForText(statistics, kStatRegionSize, L"Region = 100 x 80");
    statistics.Command(kStatMove);  // ends the coordinates mode, which may come back beside it
    WaitFor("the dialog to close", [&] { return !typed.Exists(); });
    WaitForText(statistics, kStatCoordinates, L"H-V ON");
    const Window coordinates = OpenCoordinates(program, statistics);
    ClickImage(viewer, 62, 100, Button::right);
    WaitFor("the mark on the bottom left corner",
            [&] { return program.See(viewer).At(60, 90) == Rgb(250, 250, 250); });

    // The bottom left corner at the right edge sends the region one column past it.
    ClickImage(viewer, 120, 109);
    WaitForEdges(coordinates, {101, 31, 200, 110});
    SaveAs(program, viewer, L"chart_101.31_200.110.bmp", folder / L"part.bmp");
    const Window notice = program.Running().WaitForWindow(
        "the notice", [](const Window& window) { return window.FindItem(kNoticeLine).has_value(); });
    notice.Post(WM_CLOSE);
    WaitFor("the notice to close", [&] { return !notice.Exists(); });
    const SampleValues saved = ReadValues(folder / L"part.bmp");
    CHECK(saved.width == 99);
    CHECK(saved.height == 80);
    CHECK((saved.values == PartOf(ReadValues(file), {101, 31, 199, 110}, 8, false, 0)));
    CHECK(StoredSetting(L"PATH_SAVE") == folder.wstring() + L"\\");

    // The same corner above the top edge turns the region round: no pixel lies in it.
    ClickImage(viewer, 50, 75);
    WaitForEdges(coordinates, {50, 149, 149, 80});
    const std::filesystem::path deeper = folder / L"deeper";
    std::filesystem::create_directory(deeper);
    SaveAs(program, viewer, L"chart_50.149_149.80.bmp", deeper / L"nothing.bmp");
    CHECK(DismissErrorBox(program) ==
          ErrorTexts{L"Pixora  : Error   ", L"File: nothing.bmp", L"Failed to save the image file.", L""});
    CHECK(std::filesystem::is_empty(deeper));
    CHECK(StoredSetting(L"PATH_SAVE") == folder.wstring() + L"\\");
    program.Exit();
}
