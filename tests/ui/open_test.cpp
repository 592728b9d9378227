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
    for (const int id : {kBrowse, kReload, kEdit}) CHECK_FALSE(program.Item(id).Enabled());
    dialog.Accept(file.wstring());
    const Window viewer = program.WaitForViewer(1);
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : menu.bmp");
    CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    WaitFor("the stored folder", [&] { return StoredSetting(L"PATH_OPEN") == file.parent_path().wstring(); });
    for (const int id : {kBrowse, kReload, kEdit}) CHECK(program.Item(id).Enabled());
    program.Exit();
    CHECK(StoredSetting(L"PATH_OPEN") == file.parent_path().wstring());
}

TEST_CASE("the button with the three dots opens the chosen file") {
    const std::filesystem::path file = MakePicture(L"by button.bmp");
    Program program;
    Click(program.Item(kBrowse));
    FileDialog(program.Running()).Accept(file.wstring());
    CHECK(program.WaitForViewer(1).Text() == L"[1 ]  (100%) File Name : by button.bmp");
    WaitFor("the stored folder", [&] { return StoredSetting(L"PATH_OPEN") == ScratchFolder().wstring(); });
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
