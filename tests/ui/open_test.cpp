// The ways to open a file: menu, button, drag and drop, RELOAD.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

/// A picture of its own for each name, so that a viewer shows which file it has.
std::filesystem::path MakePicture(std::wstring_view name, int width = 64) {
    return ScratchFile(name, BmpBytes(Chart(width, 48), 24));
}

}  // namespace

TEST_CASE("File > Open opens the chosen file and keeps its folder for the next time") {
    const std::filesystem::path file = MakePicture(L"m\\menu.bmp");
    Program program({.settings = {{L"PATH_OPEN", ScratchFolder().wstring() + L'\\'}}});
    program.OpenMainMenu(L"&File").Choose(L"Open (&O)");
    const FileDialog dialog(program.Running());
    CHECK(dialog.Types() ==
          std::vector<std::wstring>{L"All Files(*.*)", L"BMP Files(*.bmp)", L"TIFF Files(*.tif;*.tiff)"});
    CHECK(GetWindow(dialog.Box().Handle(), GW_OWNER) == program.Main().Handle());
    CHECK((dialog.Box().ExtendedStyle() & WS_EX_TOPMOST) != 0);
    constexpr int kReadOnly = 1040;  // "Open as read-only" would promise what means nothing here
    const std::optional<Window> read_only = dialog.Box().FindItem(kReadOnly);
    CHECK_FALSE((read_only && read_only->Visible()));
    for (const int id : {kBrowse, kReload, kEdit}) CHECK_FALSE(program.Item(id).Enabled());
    dialog.Accept(file.wstring());
    const Window viewer = program.WaitForViewer(1);
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : menu.bmp");
    CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    CHECK(StoredSetting(L"PATH_OPEN") == file.parent_path().wstring());
    for (const int id : {kBrowse, kReload, kEdit}) CHECK(program.Item(id).Enabled());
    program.Exit();
    CHECK(StoredSetting(L"PATH_OPEN") == file.parent_path().wstring());
}

TEST_CASE("the button with the three dots opens the chosen file") {
    const std::filesystem::path file = MakePicture(L"\x753B\x50CF 1\\by button.bmp");
    Program program;
    Click(program.Item(kBrowse));
    FileDialog(program.Running()).Accept(file.wstring());
    CHECK(program.WaitForViewer(1).Text() == L"[1 ]  (100%) File Name : by button.bmp");
    CHECK(StoredSetting(L"PATH_OPEN") == file.parent_path().wstring());
    // The next time the dialog starts there: without a separator the folder's name is part of the file's.
    WaitFor("the button", [&] { return program.Item(kBrowse).Enabled(); });
    Click(program.Item(kBrowse));
    const FileDialog again(program.Running());
    CHECK(again.Name() == L"\x753B\x50CF 1*.*");
    again.Cancel();
    program.Exit();
}

TEST_CASE("the open dialog starts with the stored folder and all files, with nothing put between them") {
    Program program({.settings = {{L"PATH_OPEN", ScratchFolder().wstring() + L"\\holiday"}}});
    Click(program.Item(kBrowse));
    const FileDialog dialog(program.Running());
    CHECK(dialog.Name() == L"holiday*.*");
    dialog.Cancel();
    program.Exit();
}

TEST_CASE("cancelling the open dialog changes nothing") {
    Program program;
    const std::wstring folder = StoredSetting(L"PATH_OPEN");
    Click(program.Item(kBrowse));
    FileDialog(program.Running()).Cancel();
    WaitFor("the buttons", [&] { return program.Item(kBrowse).Enabled(); });
    CHECK(program.Viewers().empty());
    CHECK(program.Item(kPathBox).Text() == L"");
    CHECK(StoredSetting(L"PATH_OPEN") == folder);
    program.Exit();
}

TEST_CASE("a file that the open dialog chose and that is refused leaves the stored folder alone") {
    const std::filesystem::path file = ScratchFile(L"elsewhere\\text.bmp", "no image at all");
    Program program;
    const std::wstring folder = StoredSetting(L"PATH_OPEN");
    Click(program.Item(kBrowse));
    FileDialog(program.Running()).Accept(file.wstring());
    CHECK(DismissErrorBox(program).line1 == L"File: text.bmp");
    WaitFor("the buttons", [&] { return program.Item(kBrowse).Enabled(); });
    program.Exit();
    CHECK(StoredSetting(L"PATH_OPEN") == folder);
}

TEST_CASE("a refused file leaves the path box and RELOAD with the file before it") {
    const std::filesystem::path good = MakePicture(L"good.bmp"),
                                bad = ScratchFile(L"bad.bmp", "no image at all");
    Program program;
    program.Drop({bad});
    CHECK(DismissErrorBox(program).line1 == L"File: bad.bmp");
    CHECK(program.Item(kPathBox).Text() == L"");
    program.Open(good);
    program.Drop({bad});
    CHECK(DismissErrorBox(program).line2 == L"This is an unsupported or invalid image file.");
    CHECK(program.Item(kPathBox).Text() == ShownPath(good));
    Click(program.Item(kReload));
    CHECK(program.WaitForViewer(2).Text() == L"[2 ]  (100%) File Name : good.bmp");
    // Its file is gone since: RELOAD says so, and the path stays.
    std::filesystem::remove(good);
    Click(program.Item(kReload));
    CHECK(DismissErrorBox(program) ==
          ErrorTexts{L"Pixora  : Error   ", L"File: good.bmp", L"Failed to Open Image File", L""});
    CHECK(program.Item(kPathBox).Text() == ShownPath(good));
    CHECK(program.Viewers().size() == 2);
    program.Exit();
}

TEST_CASE("a box of a viewer disables that viewer alone") {
    Program program;
    const Window wide = program.Open(ScratchFile(L"wide.bmp", BmpBytes(Chart(2201, 10), 24)), 1);
    constexpr int k1000 = 32796;
    wide.Command(k1000);
    const Window box = WaitForErrorBox(program);
    CHECK_FALSE(wide.Enabled());
    CHECK(program.Main().Enabled());
    const Window second = program.Open(MakePicture(L"meanwhile.bmp"), 2);
    program.WaitForTitle(L"Pixora  (N=2)");
    program.Close(second);
    program.WaitForTitle(L"Pixora  (N=1)");
    PressOk(box);
    WaitFor("the viewer", [&] { return wide.Enabled(); });
    program.Exit();
}

TEST_CASE("of three dropped files only the first opens") {
    const auto first = MakePicture(L"a.bmp"), second = MakePicture(L"b.bmp"), third = MakePicture(L"c.bmp");
    Program program;
    program.Drop({second, third, first});
    CHECK(program.WaitForViewer(1).Text() == L"[1 ]  (100%) File Name : b.bmp");
    CHECK(program.Item(kPathBox).Text() == ShownPath(second));
    // The next file takes the second slot, so nothing else was opened.
    program.Open(first, 2);
    CHECK(program.Viewers() ==
          std::vector<std::wstring>{L"[1 ]  (100%) File Name : b.bmp", L"[2 ]  (100%) File Name : a.bmp"});
    program.Exit();
}

TEST_CASE("RELOAD opens the file again as a further image") {
    const std::filesystem::path file = MakePicture(L"again.bmp");
    Program program;
    program.Open(file);
    // The file has changed meanwhile: the first viewer keeps its picture, the second one gets the new one.
    const Picture changed = Chart(70, 50);
    WriteBytes(file, BmpBytes(changed, 24));
    Click(program.Item(kReload));
    const Window second = program.WaitForViewer(2);
    CHECK(second.Text() == L"[2 ]  (100%) File Name : again.bmp");
    CHECK(DifferenceEnlarged(program.See(second), changed, 1) == "");
    CHECK(DifferenceEnlarged(program.See(*program.FindViewer(1)), Chart(64, 48), 1) == "");
    CHECK(TemporaryCopies() == std::vector<std::wstring>{L"import_img_00.bmp", L"import_img_01.bmp"});
    program.Exit();
}

TEST_CASE("the path box shows a long path with its middle left out, RELOAD knows all of it") {
    const std::filesystem::path file =
        MakePicture(L"a folder with a rather long name\\another one of the same kind\\picture.bmp");
    const std::wstring path = file.wstring();
    Program program;
    program.Open(file);
    // Five characters, five dots and the last ones: 46 in all, because the one that crosses the limit stays.
    CHECK(program.Item(kPathBox).Text() == path.substr(0, 5) + L"....." + path.substr(path.size() - 36));
    Click(program.Item(kReload));
    CHECK(program.WaitForViewer(2).Text() == L"[2 ]  (100%) File Name : picture.bmp");
    program.Exit();
}
