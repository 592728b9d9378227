// Saving the region of an image as a file.
#include <doctest/doctest.h>

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/sample_values.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kNoticeLine = 1067;

Window WaitForSavedNotice(const Program& program) {
    const Window notice = program.Running().WaitForWindow(
        "the notice", [](const Window& window) { return window.FindItem(kNoticeLine).has_value(); });
    CHECK(notice.ItemText(kNoticeLine) == L"Image file has been saved.");
    return notice;
}

/// Ends the notice early; it would close by itself.
void EndNotice(const Window& notice) {
    notice.Post(WM_CLOSE);
    WaitFor("the notice to close", [&] { return !notice.Exists(); });
}

/// Opens a file with its region from the top left to the click, which lies one row above the last one.
Window OpenWithRegion(Program& program, const std::filesystem::path& file, int right, int bottom) {
    const Window viewer = program.Open(file);
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    statistics.Command(kStatRegion);
    WaitForText(statistics, kStatRegion, L"REGION OFF");
    statistics.Command(kStatCorner);  // the bottom right corner, as long as no other was picked
    (void)statistics.Send(WM_NULL);
    ClickImage(viewer, right, bottom - 1);
    WaitForText(statistics, kStatRegionSize,
                L"Region = " + std::to_wstring(right + 1) + L" x " + std::to_wstring(bottom + 1));
    return viewer;
}

void SaveAs(Program& program, const Window& viewer, const std::filesystem::path& path) {
    viewer.Command(kViewSaveRegion);
    FileDialog(program.Running()).Accept(path.wstring());
}

/// Keeps a file for whoever reads it with other programs afterwards: in the folder PIXORA_UI_SAVED, if it is
/// set, named after the image.
void KeepForOthers(const std::filesystem::path& file, const std::filesystem::path& source) {
    wchar_t folder[MAX_PATH] = L"";
    const DWORD length = GetEnvironmentVariableW(L"PIXORA_UI_SAVED", folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return;
    std::wstring name = source.stem().wstring();
    name += file == source ? L".source" + file.extension().wstring() : file.extension().wstring();
    WriteBytes(std::filesystem::path(folder) / name, ReadBytes(file));
}

struct Kind {
    std::filesystem::path file;
    bool colour;
    int depth;
};

/// A colour TIFF of 16 bits of which only the upper ones differ.
std::filesystem::path RgbTiff(const std::wstring& name, int depth) {
    TiffFile file{.width = 120, .height = 70, .bits = 16, .channels = 3, .photometric = 2};
    for (int i = 0; i < 120 * 70 * 3; ++i) {
        const auto value = static_cast<std::uint32_t>(i * 40503) >> (16 - depth) << (16 - depth) & 0xFFFF;
        file.pixels += static_cast<char>(value & 255);
        file.pixels += static_cast<char>(value >> 8);
    }
    return ScratchFile(name, Bytes(file));
}

constexpr Part kPart{7, 5, 98, 60};
constexpr int kWidth = 92, kHeight = 56;

/// Opens a file with the region kPart.
Window OpenWithPart(Program& program, const std::filesystem::path& file) {
    const Window viewer = OpenWithRegion(program, file, kPart.right, kPart.bottom);
    // The mouse stays where it picks the corner, so that it is there whenever the program looks.
    ClickImage(viewer, kPart.left, kPart.top - 1, Button::right);
    ClickImage(viewer, kPart.left, kPart.top - 1);
    const Window statistics = WaitForTitled(program, StatisticsTitle());
    WaitForText(statistics, kStatRegionSize, L"Region = 92 x 56");
    return viewer;
}

void CheckTiff(Program& program, const Window& viewer, const Kind& kind, const SampleValues& source) {
    const std::filesystem::path path = ScratchFolder() / L"part.TIF";
    SaveAs(program, viewer, path);
    EndNotice(WaitForSavedNotice(program));
    const SampleValues saved = ReadValues(path);
    CHECK(saved.width == kWidth);
    CHECK(saved.height == kHeight);
    CHECK(saved.channels == (kind.colour ? 3 : 1));
    CHECK(saved.bits == (kind.depth == 8 ? 8 : 16));
    CHECK((saved.values == PartOf(source, kPart, kind.depth, !kind.colour, 0)));
    KeepForOthers(path, kind.file);
    std::filesystem::remove(path);
}

void CheckBmp(Program& program, const Window& viewer, const Kind& kind, const SampleValues& source) {
    const std::filesystem::path path = ScratchFolder() / L"part.bmp";
    SaveAs(program, viewer, path);
    if (!kind.colour && kind.depth > 12) {  // too deep for eight bits
        CHECK(DismissErrorBox(program) ==
              ErrorTexts{L"Pixora  : Error   ", L"File: part.bmp", L"Failed to save the image file.", L""});
        CHECK_FALSE(std::filesystem::exists(path));
        return;
    }
    EndNotice(WaitForSavedNotice(program));
    const SampleValues saved = ReadValues(path);
    CHECK(saved.width == kWidth);
    CHECK(saved.height == kHeight);
    SampleValues narrow = saved;
    if (!kind.colour) {  // a grey BMP of eight bits is read as three equal channels
        CHECK(ReadBytes(path).size() == 1078 + kWidth * kHeight);
        narrow.values = PartOf(saved, {0, 0, kWidth - 1, kHeight - 1}, 8, true, 0);
    }
    CHECK((narrow.values == PartOf(source, kPart, kind.depth, !kind.colour, kind.depth - 8)));
    KeepForOthers(path, kind.file);
    std::filesystem::remove(path);
}

void CheckKinds(const std::vector<Kind>& kinds) {
    Program program;
    for (const Kind& kind : kinds) {
        CAPTURE(kind.file.filename().string());
        const SampleValues source = ReadValues(kind.file);
        const Window viewer = OpenWithPart(program, kind.file);
        CheckTiff(program, viewer, kind, source);
        CheckBmp(program, viewer, kind, source);
        KeepForOthers(kind.file, kind.file);
        viewer.Post(WM_CLOSE);
        WaitFor("the viewer to close", [&] { return !viewer.Exists(); });
    }
    program.Exit();
}

}  // namespace

TEST_CASE("regions of grey images are saved with their samples, as TIFF and as BMP") {
    (void)FreshScratchFolder();
    CheckKinds({{Sample(L"bmp8-grey.bmp"), false, 8},
                {Sample(L"tiff8-mono.tif"), false, 8},
                {Sample(L"tiff16-mono-upper10.tif"), false, 10},
                {Sample(L"tiff16-mono-upper12.tif"), false, 12},
                {Sample(L"tiff12-mono.tif"), false, 12},
                {Sample(L"tiff16-mono-upper14.tif"), false, 14},
                {Sample(L"tiff16-mono.tif"), false, 16},
                {Sample(L"tiff16-mono-big-endian.tif"), false, 16}});
}

TEST_CASE("regions of colour images are saved with their samples, as TIFF and as BMP") {
    (void)FreshScratchFolder();
    CheckKinds({{Sample(L"bmp24-colour.bmp"), true, 8},
                {Sample(L"bmp24-top-down.bmp"), true, 8},
                {Sample(L"bmp8-palette.bmp"), true, 8},
                {Sample(L"tiff8-rgb-big-endian.tif"), true, 8},
                {RgbTiff(L"upper10.tif", 10), true, 10},
                {Sample(L"tiff12-rgb.tif"), true, 12},
                {Sample(L"tiff16-rgb-upper12.tif"), true, 12},
                {RgbTiff(L"upper14.tif", 14), true, 14},
                {Sample(L"tiff16-rgb.tif"), true, 16}});
}

TEST_CASE("the user is proposed a name, sees a notice and finds the folder again") {
    const std::filesystem::path folder = FreshScratchFolder();
    Program program;
    const Window viewer = program.Open(Sample(L"tiff16-mono-upper12.tif"));
    OpenMenu off = OpenContextMenu(program, viewer);
    CHECK(off.Greyed(L"Save Region Image"));
    off.Dismiss();
    (void)viewer.Send(WM_COMMAND, kViewSaveRegion);  // would not come back from a dialog
    viewer.Post(WM_CLOSE);
    WaitFor("the viewer to close", [&] { return !viewer.Exists(); });
    const Window shown = OpenWithRegion(program, Sample(L"tiff16-mono-upper12.tif"), 98, 60);
    shown.Command(kViewSaveRegion);
    {
        const FileDialog dialog(program.Running());
        CHECK(dialog.Name() == L"tiff16-mono-upper12_0.0_98.60.tif");
        CHECK(dialog.Types() ==
              std::vector<std::wstring>{L"All Files(*.*)", L"BMP Files(*.bmp)", L"TIFF Files(*.tif;*.tiff)"});
        CHECK_FALSE(shown.Enabled());
        dialog.Cancel();
    }
    WaitFor("the viewer to be usable", [&] { return shown.Enabled(); });
    CHECK(StoredSetting(L"PATH_SAVE") == PicturesFolder() + L"\\");
    SaveAs(program, shown, folder / L"plain");  // without an extension it gets that of the source
    const long long saved_ms = Now_ms();
    const Window notice = WaitForSavedNotice(program);
    CHECK(ReadValues(folder / L"plain.tif").bits == 16);
    WaitFor("the notice to close by itself", [&] { return !notice.Exists(); });
    CHECK(Now_ms() - saved_ms >= 1300);
    CHECK(StoredSetting(L"PATH_SAVE") == folder.wstring() + L"\\");
    shown.Command(kViewSaveRegion);
    FileDialog(program.Running()).Accept(L"second.bmp");  // the dialog starts where the first one was saved
    EndNotice(WaitForSavedNotice(program));
    CHECK(ReadValues(folder / L"second.bmp").width == 99);
    program.Exit();
}

TEST_CASE("a region that cannot be saved is told, and an earlier file of that name stays") {
    (void)FreshScratchFolder();
    const std::filesystem::path kept = ScratchFile(L"kept.bmp", "mine");
    SetReadOnly(kept, true);
    Program program;
    const Window viewer = OpenWithRegion(program, Sample(L"bmp24-colour.bmp"), 20, 20);
    viewer.Command(kViewSaveRegion);
    const FileDialog dialog(program.Running());
    dialog.Box().Item(1148).SetText(kept.wstring());
    Click(dialog.Box().Item(IDOK));
    const Window question = program.Running().WaitForWindow(
        "the question about overwriting",
        [](const Window& window) { return window.FindItem(IDYES) && window.FindItem(IDNO); });
    Click(question.Item(IDYES));
    CHECK(DismissErrorBox(program) ==
          ErrorTexts{L"Pixora  : Error   ", L"File: kept.bmp", L"Failed to save the image file.", L""});
    CHECK(ReadBytes(kept) == "mine");
    CHECK(StoredSetting(L"PATH_SAVE") == PicturesFolder() + L"\\");
    SetReadOnly(kept, false);
    program.Exit();
}
