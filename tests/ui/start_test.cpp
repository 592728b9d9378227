// Starting the program: splash page, settings file, clean-up, place on the screen, a second copy.
#include <doctest/doctest.h>

#include <filesystem>
#include <memory>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr wchar_t kDefaultsNotice[] = L"Created a default initial file.";

/// A plain message box has no words of its own in its caption.
void DismissNotice(const Process& process, const std::wstring& text) {
    const Window box = process.WaitForPlainBox(text);
    CHECK(box.Text() == L"");
    PressOk(box);
}

}  // namespace

TEST_CASE("the splash page names the product for two seconds, then the main window shows") {
    DeleteDataFolder();
    WriteSettings({});
    const long long started = Now_ms();
    const Process process(QuotedProgram());
    SetWatch([&] { process.CheckAlive(); });
    const Window splash = process.WaitForWindow("the splash page", IsSplash);
    WaitFor("the splash page's texts", [&] { return !splash.ItemText(1165).empty(); });
    CHECK(splash.ItemText(1165) == L"Pixora  (Ver. 2.00)");
    CHECK(splash.ItemText(1166) == L"Image File Viewer and Analyzer");
    CHECK(splash.ItemText(1169) == L"Build 2026-02-10");
    CHECK(splash.ItemText(1168) == L"Zelka");
    CHECK_FALSE(process.FindWindow(IsMainWindow));
    WaitFor("the splash page to close by itself", [&] { return !splash.Exists(); });
    CHECK(Now_ms() - started >= 2000);
    const Window main = process.WaitForWindow("the main window", IsMainWindow);
    SetWatch(nullptr);
    main.Post(WM_CLOSE);
    CHECK(process.WaitForEnd() == 0);
}

TEST_CASE("a first start makes the data folder with the default settings and says so") {
    DeleteDataFolder();
    Program program({.keep_data_folder = true,
                     .meanwhile = [](const Process& process) { DismissNotice(process, kDefaultsNotice); }});
    CHECK(ReadBytes(SettingsFile()) == DefaultSettingsBytes());
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
    // The default is no item of the list: its text stands for itself.
    CHECK(program.Item(kSizeBox).Text() == L"      50%");
    CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == CB_ERR);
    program.Exit();
}

TEST_CASE("a settings file that lacks a key is replaced by the defaults") {
    DeleteDataFolder();
    WriteSettings({{L"HIS_BINNING", L""}, {L"BDR_COLOR", L"RED"}});
    Program program({.keep_data_folder = true,
                     .meanwhile = [](const Process& process) { DismissNotice(process, kDefaultsNotice); }});
    CHECK(ReadBytes(SettingsFile()) == DefaultSettingsBytes());
    program.Exit();
}

TEST_CASE("a complete settings file is left as it is") {
    DeleteDataFolder();
    WriteSettings({{L"BDR_COLOR", L"GRAY"}, {L"IMG_SIZE", L"2.00"}});
    const std::string before = ReadBytes(SettingsFile());
    Program program({.keep_data_folder = true});
    CHECK(ReadBytes(SettingsFile()) == before);
    CHECK(program.Item(kSizeBox).Text() == L"     200%");
    CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == 12);
    program.Exit();
}

TEST_CASE("temporary copies of an earlier run are deleted at start, other files stay") {
    DeleteDataFolder();
    WriteSettings({});
    for (const wchar_t* name : {L"import_img_00.bmp", L"import_img_03.bin", L"import_img_07.tiff",
                                L"import_img_0x.anything", L"import_img_10.bmp", L"notes.txt"})
        WriteBytes(DataFolder() / name, "left over");
    SetReadOnly(DataFolder() / L"import_img_03.bin", true);
    Program program({.keep_data_folder = true});
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini", L"import_img_10.bmp", L"notes.txt"});
    program.Choose(L"Exit (&E)");
    SetWatch(nullptr);
    CHECK(program.Running().WaitForEnd() == 0);
}

TEST_CASE("the main window appears where MAIN_POS says") {
    struct Place {
        std::wstring position, x, y;
        enum { top_left, top_right, stored } expected;
    };
    const Place places[] = {
        {L"TL", L"700", L"600", Place::top_left},         {L"TR", L"700", L"600", Place::top_right},
        {L"LAST", L"700", L"600", Place::stored},         {L"LAST", L"9000", L"600", Place::top_left},
        {L"LAST", L"-32000", L"-32000", Place::top_left}, {L"CENTER", L"700", L"600", Place::top_left},
    };
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    for (const Place& place : places) {
        CAPTURE(place.position);
        CAPTURE(place.x);
        Program program(
            {.settings = {
                 {L"MAIN_POS", place.position}, {L"MAIN_POS_X", place.x}, {L"MAIN_POS_Y", place.y}}});
        const RECT frame = program.Main().Frame();
        const int free_width = width - (frame.right - frame.left),
                  free_height = height - (frame.bottom - frame.top);
        const int percent = place.expected == Place::top_right ? 98 : 3;
        const bool stored = place.expected == Place::stored;
        CHECK(frame.left == (stored ? 700 : free_width * percent / 100));
        CHECK(frame.top == (stored ? 600 : free_height * 3 / 100));
        program.Exit();
    }
}

TEST_CASE("a second copy says that the program is open and touches nothing") {
    Program program;
    const Window viewer = program.Open(Sample(L"bmp24-colour.bmp"));
    const std::string settings = ReadBytes(SettingsFile());
    const Process second(QuotedProgram() + L" \"" + Sample(L"bmp24-grey.bmp").wstring() + L'"');
    SetWatch([&] { second.CheckAlive(); });
    const Window box = second.WaitForPlainBox(L"\"Pixora\" is already open !");
    SetWatch([&] { program.Running().CheckAlive(); });
    CHECK(box.Text() == L"");
    CHECK(second.Windows() == std::vector<Window>{box});
    PressOk(box);
    CHECK(second.WaitForEnd() == 0);
    CHECK(viewer.Visible());
    CHECK(program.Viewers() == std::vector<std::wstring>{L"[1 ]  (100%) File Name : bmp24-colour.bmp"});
    CHECK(TemporaryCopies() == std::vector<std::wstring>{L"import_img_00.bmp"});
    CHECK(ReadBytes(SettingsFile()) == settings);
    program.Exit();
}

TEST_CASE("a copy that cannot tell whether it is the only one says so and touches nothing") {
    DeleteDataFolder();
    // What else bears the name that every copy takes.
    const std::unique_ptr<void, decltype(&CloseHandle)> other(
        CreateEventW(nullptr, TRUE, FALSE, L"Pixora.exe"), &CloseHandle);
    REQUIRE(other);
    const Process process(QuotedProgram() + L" \"" + Sample(L"bmp24-grey.bmp").wstring() + L'"');
    SetWatch([&] { process.CheckAlive(); });
    const Window box = process.WaitForPlainBox(L"\"Pixora\" found opening error");
    CHECK(box.Text() == L"");
    CHECK(process.Windows() == std::vector<Window>{box});
    SetWatch(nullptr);
    PressOk(box);
    CHECK(process.WaitForEnd() == 0);
    CHECK_FALSE(std::filesystem::exists(DataFolder()));
}
