// Leaving the program.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

TEST_CASE("Exit closes the viewers, deletes their files and keeps the main window's place") {
    Program program;
    program.Open(Sample(L"tiff16-rgb.tif"), 1);
    program.Open(Sample(L"tiff12-mono.tif"), 2);
    program.Open(Sample(L"bmp8-palette.bmp"), 3);
    WriteBytes(DataFolder() / L"notes.txt", "somebody's");
    SetReadOnly(DataFolder() / L"import_img_01.tiff", true);
    SetWindowPos(program.Main().Handle(), nullptr, 321, 654, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    program.OpenMainMenu(L"&File").Choose(L"Exit (&E)");
    SetWatch(nullptr);
    CHECK(program.Running().WaitForEnd() == 0);
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini", L"notes.txt"});
    CHECK(StoredSetting(L"MAIN_POS_X") == L"321");
    CHECK(StoredSetting(L"MAIN_POS_Y") == L"654");
}

TEST_CASE("the close button of the main window leaves the program") {
    Program program;
    program.Open(Sample(L"bmp24-grey.bmp"));
    ClickCloseButton(program.Main());
    program.CheckEnded();
    CHECK(StoredSetting(L"MAIN_POS_X") == L"1200");
    CHECK(StoredSetting(L"MAIN_POS_Y") == L"800");
}

TEST_CASE("the main window stands where it was left at the next start") {
    {
        Program program;
        SetWindowPos(program.Main().Handle(), nullptr, 77, 555, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        program.Exit();
    }
    Program program({.keep_data_folder = true});
    CHECK(program.Main().Frame().left == 77);
    CHECK(program.Main().Frame().top == 555);
    program.Exit();
}

TEST_CASE("leaving while minimised keeps the place from before") {
    Program program;
    program.Main().Post(WM_SYSCOMMAND, SC_MINIMIZE);
    WaitFor("the main window to be minimised", [&] { return IsIconic(program.Main().Handle()); });
    program.Exit();
    CHECK(StoredSetting(L"MAIN_POS_X") == L"1200");
    CHECK(StoredSetting(L"MAIN_POS_Y") == L"800");
}

TEST_CASE("leaving closes boxes, dialogs and file dialogs of all windows that are up") {
    constexpr int kByValue = 32805, k1000 = 32796;
    Program program;
    const Window first = program.Open(ScratchFile(L"small.bmp", BmpBytes(Chart(60, 40), 24)), 1);
    const Window second = program.Open(ScratchFile(L"wide.bmp", BmpBytes(Chart(2201, 10), 24)), 2);
    program.Choose(L"Viewer Option  (&V)");
    first.Command(kByValue);
    (void)program.Running().WaitForWindow(
        "the value dialog", [](const Window& window) { return window.Text() == L"Display Size Value"; });
    second.Command(k1000);
    (void)WaitForErrorBox(program);
    Click(program.Item(kBrowse));
    const FileDialog dialog(program.Running());
    program.Main().Post(WM_CLOSE);
    program.CheckEnded();
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
    CHECK(StoredSetting(L"MAIN_POS_X") == L"1200");
}

TEST_CASE("leaving answers an open question with no") {
    Program program;
    const std::string before = ReadBytes(SettingsFile());
    program.Choose(L"&Execute Initialize (&E)");
    (void)WaitForQuestion(program);
    program.Main().Post(WM_CLOSE);
    program.CheckEnded();
    CHECK(ReadBytes(SettingsFile()) == before);
}

TEST_CASE("a copy that cannot be deleted does not keep the program from leaving") {
    Program program;
    program.Open(Sample(L"tiff16-mono.tif"), 1);
    program.Open(Sample(L"bmp24-grey.bmp"), 2);
    SetWatch(nullptr);
    {
        const HeldFile held(DataFolder() / L"import_img_00.bmp");
        program.Main().Post(WM_CLOSE);
        // The box about the copy goes with the viewer that it belongs to: nobody has to answer it.
        CHECK(program.Running().WaitForEnd() == 0);
    }
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini", L"import_img_00.bmp"});
    CHECK(StoredSetting(L"MAIN_POS_X") == L"1200");
    CHECK(StoredSetting(L"MAIN_POS_Y") == L"800");
}

TEST_CASE("leaving closes an open menu") {
    {
        Program program;
        const OpenMenu menu = program.OpenMainMenu(L"&File");
        program.Main().Post(WM_CLOSE);
        program.CheckEnded();
    }
    Program program;
    const Window viewer = program.Open(Sample(L"bmp24-colour.bmp"));
    ClickAt(viewer.ClientPoint(9, 9), Button::right);
    OpenMenu menu(program.Running(), program.Inside());
    const OpenMenu sizes = menu.Open(L"Display Size");
    program.Main().Post(WM_CLOSE);
    program.CheckEnded();
}

TEST_CASE("the end of the session leaves the program in order") {
    Program program;
    program.Open(Sample(L"tiff16-mono.tif"));
    CHECK(program.Main().Send(WM_QUERYENDSESSION) != 0);
    SetWatch(nullptr);
    program.Main().Send(WM_ENDSESSION, TRUE);
    program.CheckEnded();
    CHECK(StoredSetting(L"MAIN_POS_X") == L"1200");
}

TEST_CASE("leaving changes nothing else in the settings file") {
    DeleteDataFolder();
    WriteSettings({{L"MAIN_POS_X", L"1200"}, {L"MAIN_POS_Y", L"800"}, {L"BDR_COLOR", L"GRAY"}});
    const std::string before = ReadBytes(SettingsFile());
    Program program({.keep_data_folder = true});
    program.Open(Sample(L"bmp24-grey.bmp"));
    program.Exit();
    CHECK(ReadBytes(SettingsFile()) == before);
}
