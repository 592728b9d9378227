// Leaving the program.
#include <doctest/doctest.h>

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

TEST_CASE("leaving changes nothing else in the settings file") {
    DeleteDataFolder();
    WriteSettings({{L"MAIN_POS_X", L"1200"}, {L"MAIN_POS_Y", L"800"}, {L"BDR_COLOR", L"GRAY"}});
    const std::string before = ReadBytes(SettingsFile());
    Program program({.keep_data_folder = true});
    program.Open(Sample(L"bmp24-grey.bmp"));
    program.Exit();
    CHECK(ReadBytes(SettingsFile()) == before);
}
