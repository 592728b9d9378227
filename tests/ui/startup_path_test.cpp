// The image path that the program may be started with.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/clipboard.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

TEST_CASE("a quoted start-up path with blanks and Japanese letters opens its viewer") {
    const Picture picture = Chart(90, 60);
    const std::filesystem::path file =
        ScratchFile(L"\x753B\x50CF \x30D5\x30A9\x30EB\x30C0\\my \x5199\x771F 1.bmp", BmpBytes(picture, 24));
    Program program({.arguments = L'"' + file.wstring() + L'"'});
    const Window viewer = program.WaitForViewer(1);
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : my \x5199\x771F 1.bmp");
    CHECK(DifferenceEnlarged(program.See(viewer), picture, 1) == "");
    program.WaitForTitle(L"Pixora  (N=1)");
    program.Exit();
}

TEST_CASE("a start-up path without quotes opens its viewer") {
    const std::filesystem::path file = ScratchFile(L"plain.bmp", BmpBytes(Chart(40, 30), 24));
    Program program({.arguments = file.wstring()});
    CHECK(program.WaitForViewer(1).Text() == L"[1 ]  (100%) File Name : plain.bmp");
    program.Exit();
}

TEST_CASE("a launcher that writes the program's name without quotes opens the path's viewer, too") {
    const std::filesystem::path file = ScratchFile(L"from a launcher.bmp", BmpBytes(Chart(40, 30), 24));
    DeleteDataFolder();
    WriteSettings({});
    const Process process(ProgramPath(), L"pixora.exe  \"" + file.wstring() + L'"');
    SetWatch([&] { process.CheckAlive(); });
    process.WaitForWindow("the splash page", IsSplash).Post(WM_CLOSE);
    const Window viewer = process.WaitForWindow("the viewer", IsViewer);
    WaitFor("its caption", [&] { return viewer.Text() == L"[1 ]  (100%) File Name : from a launcher.bmp"; });
    const Window main = process.WaitForWindow("the main window", IsMainWindow);
    SetWatch(nullptr);
    main.Post(WM_CLOSE);
    CHECK(process.WaitForEnd() == 0);
}

TEST_CASE("after a start with a path the path box is empty, its menu copies it and RELOAD opens nothing") {
    const std::filesystem::path file = ScratchFile(L"first.bmp", BmpBytes(Chart(40, 30), 24));
    Program program({.arguments = L'"' + file.wstring() + L'"'});
    program.WaitForViewer(1);
    CHECK(program.Item(kPathBox).Text() == L"");
    SetClipboardText(L"somebody's");
    Click(program.Item(kPathBox), Button::right);
    OpenMenu(program.Running(), program.Inside()).Choose(L"Copy Full Path to Clipboard");
    WaitFor("the copied path", [&] { return ClipboardText() == file.wstring(); });
    program.Item(kReload).Send(BM_CLICK);  // answered before the next file is dropped
    // The next file gets the second slot: the press before it took none.
    program.Open(ScratchFile(L"second.bmp", BmpBytes(Chart(50, 30), 24)), 2);
    CHECK(program.Viewers() == std::vector<std::wstring>{L"[1 ]  (100%) File Name : first.bmp",
                                                         L"[2 ]  (100%) File Name : second.bmp"});
    program.Exit();
}

TEST_CASE("a start-up path that cannot be opened is reported and the program goes on") {
    Program program(
        {.arguments = L"\"C:\\no such folder\\nothing.bmp\"", .meanwhile = [](const Process& process) {
             const Window box = process.WaitForWindow("the error box", [](const Window& window) {
                 return window.FindItem(1022) && window.FindItem(1053);
             });
             CHECK(ReadErrorBox(box) == ErrorTexts{L"Pixora  : Error   ", L"File: nothing.bmp",
                                                   L"Failed to Open Image File", L""});
             CHECK_FALSE(process.FindWindow(IsMainWindow));  // not before it stands in its place
             PressOk(box);
         }});
    CHECK(program.Viewers().empty());
    CHECK(program.Item(kPathBox).Text() == L"");
    program.Exit();
}

TEST_CASE("a start-up argument of one character is no path") {
    Program program({.arguments = L"x"});
    program.WaitForTitle(L"Pixora");
    CHECK(program.Viewers().empty());
    program.Exit();
}

TEST_CASE("a start-up path relative to the current folder is completed for all that follows") {
    const std::filesystem::path file = ScratchFile(L"by hand\\relative.bmp", BmpBytes(Chart(40, 30), 24));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(ScratchFolder());
    struct GoBack {
        const std::filesystem::path& folder;
        ~GoBack() { std::filesystem::current_path(folder); }
    } const go_back{before};
    Program program({.arguments = L"\"by hand\\relative.bmp\"", .settings = {{L"CAP_STYLE", L"FULL"}}});
    const std::wstring caption = program.WaitForViewer(1).Text();
    CHECK(caption == L"[1 ]  (100%) File Name : " + ShownPath(file, 50));
    program.Exit();
}
