// The image information view, and how both views end.
#include <doctest/doctest.h>

#include "tests/ui/support/clipboard.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int k200 = 32793;
constexpr int kFolder = 1250, kName = 1246, kFormat = 1245, kSize = 1224, kPixels = 1293;
constexpr int kRegionSize = 1225, kRegionPixels = 1226, kDisplaySize = 1209;
constexpr int kRegionButton = 1056;

std::filesystem::path ChartFile(std::wstring_view name) {
    return ScratchFile(name, BmpBytes(Chart(120, 90), 24));
}

/// A name of Latin letters and digits with so many characters, ".bmp" included.
std::wstring LongName(std::size_t characters) {
    std::wstring name;
    while (name.size() < characters - 4) name += static_cast<wchar_t>(L'0' + name.size() % 10);
    return name + L".bmp";
}

/// Right-clicks the name and waits for its menu, which opens there.
OpenMenu NameMenu(Program& program, const Window& view) {
    const RECT name = view.Item(kName).Frame();
    const POINT point{name.left + 5, (name.top + name.bottom) / 2};
    PointAt(point);
    ClickAt(point, Button::right);
    OpenMenu menu(program.Running(), program.Inside());
    const RECT popup = menu.Popup().Frame();
    CHECK(popup.left == point.x);
    CHECK(popup.top == point.y);
    return menu;
}

void Minimise(const Window& window, bool minimised) {
    window.Post(WM_SYSCOMMAND, minimised ? SC_MINIMIZE : SC_RESTORE);
    WaitFor("the window's state", [&] { return (IsIconic(window.Handle()) != 0) == minimised; });
}

}  // namespace

TEST_CASE("the image information tells the format and the valid bits of every kind of image") {
    struct Facts {
        const wchar_t *name, *format;
    };
    constexpr Facts kImages[] = {
        {L"bmp24-colour.bmp", L"File Format:  RGB8"},
        {L"bmp24-grey.bmp", L"File Format:  Mono8"},
        {L"tiff12-mono.tif", L"File Format:  Mono12"},
        {L"tiff16-mono.tif", L"File Format:  Mono16 (Upper 16 bits Valid)"},
        {L"tiff16-mono-upper14.tif", L"File Format:  Mono16 (Upper 14 bits Valid)"},
        {L"tiff16-mono-upper10.tif", L"File Format:  Mono16 (Upper 10 bits Valid)"},
        {L"tiff16-mono-big-endian.tif", L"File Format:  Mono16 (Upper 16 bits Valid)"},
        {L"tiff16-rgb-upper12.tif", L"File Format:  RGB16 (Upper 12 bits Valid)"},
    };
    Program program;
    int number = 0;
    for (const Facts& facts : kImages) {
        CAPTURE(std::wstring(facts.name));
        const Window viewer = program.Open(Sample(facts.name), ++number);
        const Window view = OpenImageInfo(program, viewer, number);
        const Picture picture = ReadImage(Sample(facts.name));
        CHECK(view.ItemText(kFormat) == facts.format);
        CHECK(view.ItemText(kName) == facts.name);
        CHECK(view.ItemText(kSize) == L"Image Size (HxV): " + std::to_wstring(picture.width) + L" x " +
                                          std::to_wstring(picture.height));
    }
    program.Exit();
}

TEST_CASE("the image information follows the region and the display size") {
    Program program;
    const std::filesystem::path file = ChartFile(L"a&b.bmp");
    const Window viewer = program.Open(file);
    const Window info = OpenImageInfo(program, viewer), statistics = OpenStatistics(program, viewer);
    CHECK(info.ItemText(1249) == L"Folder: ");
    CHECK(info.ItemText(kFolder) == ShownPath(file.parent_path() / L"", 45));
    CHECK(info.ItemText(1247) == L"File Name: ");
    CHECK(info.ItemText(kName) == L"a&b.bmp");
    CHECK(info.ItemText(kFormat) == L"File Format:  RGB8");
    CHECK(info.ItemText(kSize) == L"Image Size (HxV): 120 x 90");
    CHECK(info.ItemText(kPixels) == L"Total Number of Pixels:  10,800");
    CHECK(info.ItemText(kRegionSize) == L"");
    CHECK(info.ItemText(kRegionPixels) == L"");
    CHECK(info.ItemText(kDisplaySize) == L"Display Size: 100%");
    PressButton(statistics, kRegionButton);
    WaitForText(info, kRegionSize, L"Reigion (HxV) :120 x 90");
    WaitForText(info, kRegionPixels, L"Reigion (Total) : 10,800");
    PressButton(statistics, kRegionButton);
    WaitForText(info, kRegionSize, L"");
    WaitForText(info, kRegionPixels, L"");
    viewer.Command(k200);
    WaitForText(info, kDisplaySize, L"Display Size: 200%");
    program.Exit();
}

TEST_CASE("names of more than 45 columns are shortened") {
    const std::wstring twenty(20, L'\u753B');
    const std::pair<std::wstring, std::wstring> names[] = {
        {LongName(45), LongName(45)},
        {LongName(46), L"01234....." + LongName(46).substr(10)},
        {twenty + L"1.bmp", twenty + L"1.bmp"},
        {twenty + L"12.bmp", std::wstring(5, L'\u753B') + L"....." + std::wstring(13, L'\u753B') + L"12.bmp"},
    };
    Program program;
    int number = 0;
    for (const auto& [name, shown] : names) {
        CAPTURE(name);
        const Window viewer = program.Open(ChartFile(name), ++number);
        CHECK(OpenImageInfo(program, viewer, number).ItemText(kName) == shown);
    }
    program.Exit();
}

TEST_CASE("the menu of the file name copies the full path, and only when it is chosen") {
    Program program;
    const std::filesystem::path file = ChartFile(LongName(60));
    const Window view = OpenImageInfo(program, program.Open(file));
    SetClipboardText(L"before");
    OpenMenu dismissed = NameMenu(program, view);
    REQUIRE(dismissed.Items().size() == 1);
    CHECK(dismissed.Item(L"Copy Full Path to Clipboard").id == 148);
    dismissed.Dismiss();
    CHECK(ClipboardText() == L"before");
    {
        const HeldClipboard held;
        NameMenu(program, view).Choose(L"Copy Full Path to Clipboard");
        NameMenu(program, view).Dismiss();  // it opens when the copy has been given up
        CHECK(program.Running().Windows().size() == 3);
        CHECK(view.Enabled());
    }
    CHECK(ClipboardText() == L"before");
    // Elsewhere no menu opens: the next one that is found is that of the name.
    PointAt(view.Item(kSize).Centre());
    ClickAt(view.Item(kSize).Centre(), Button::right);
    OpenMenu chosen = NameMenu(program, view);
    CHECK(ClipboardText() == L"before");
    chosen.Choose(L"Copy Full Path to Clipboard");
    WaitFor("the copy", [&] { return ClipboardText() == file.wstring(); });
    program.Exit();
}

TEST_CASE("the views are offered once, hide with the main window and close with their viewer") {
    Program program;
    const Window viewer = program.Open(ChartFile(L"chart.bmp"));
    CHECK(Offers(program, viewer, L"Statistics"));
    CHECK(Offers(program, viewer, L"Image Info."));
    Window statistics = OpenStatistics(program, viewer);
    CHECK_FALSE(Offers(program, viewer, L"Statistics"));
    CHECK(Offers(program, viewer, L"Image Info."));
    Window info = OpenImageInfo(program, viewer);
    CHECK_FALSE(Offers(program, viewer, L"Image Info."));

    Minimise(program.Main(), true);
    WaitFor("the views to hide", [&] { return !statistics.Visible() && !info.Visible(); });
    Minimise(program.Main(), false);
    WaitFor("the views to come back", [&] { return statistics.Visible() && info.Visible(); });

    CloseWindow(statistics);
    CHECK(Offers(program, viewer, L"Statistics"));
    CHECK(info.Exists());
    statistics = OpenStatistics(program, viewer);
    CloseWindow(info);
    CHECK(Offers(program, viewer, L"Image Info."));
    CHECK_FALSE(Offers(program, viewer, L"Statistics"));
    info = OpenImageInfo(program, viewer);
    program.Close(viewer);
    WaitFor("the views to close", [&] { return !statistics.Exists() && !info.Exists(); });
    program.Exit();
}
