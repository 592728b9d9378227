// The window that says that a large file is being read.
#include <doctest/doctest.h>

#include <algorithm>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr wchar_t kCaption[] = L"Pixora (Loading File Data)";
constexpr int kText = 1064;

std::filesystem::path GreyFile(const wchar_t* name, int width, int height) {
    BmpFile file{.width = width, .height = height, .bits = 8};
    for (int i = 0; i < 256; ++i) file.palette += std::string(3, static_cast<char>(i)) + '\0';
    file.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), '\x40');
    return ScratchFile(name, Bytes(file));
}

/// A text that its window need not be asked for.
std::wstring StoredText(const Window& window) {
    wchar_t text[256] = L"";
    InternalGetWindowText(window.Handle(), text, 256);
    return text;
}

/// The cursor as the program in front shows it.
HCURSOR CursorNow() {
    CURSORINFO info{};
    info.cbSize = sizeof info;
    return GetCursorInfo(&info) ? info.hCursor : nullptr;
}

std::optional<Window> FindWait(const Program& program) {
    return program.Running().FindWindow([](const Window& window) { return StoredText(window) == kCaption; });
}

/// Looks at the wait window of a program that has stopped.
void CheckWait(Program& program) {
    const std::optional<Window> wait = FindWait(program);
    REQUIRE(wait);
    CheckCentred(*wait);
    CHECK(StoredText(wait->Item(kText)) == L"Loading data. Please wait... ");
    // Without a system menu there is no button to close it, and no key does.
    CHECK((wait->Style() & WS_SYSMENU) == 0);
    CHECK((wait->Style() & WS_CAPTION) == WS_CAPTION);
    CHECK(GetWindow(wait->Handle(), GW_OWNER) == program.Main().Handle());
    const Picture shown = program.See(wait->Item(kText));
    CHECK(std::find(shown.pixels.begin(), shown.pixels.end(), Rgb(0, 0, 0)) != shown.pixels.end());
}

}  // namespace

TEST_CASE("an image of 2048 x 2048 pixels shows the wait window, one row less does not") {
    Program program({.settings = {{L"IMG_SIZE", L"0.05"}}});
    const PauseBeforeEnd pause(program.Inside(), program.Main(), kCaption);
    program.Open(GreyFile(L"2047.bmp", 2048, 2047), 1);
    CHECK_FALSE(pause.Reached());
    Click(program.Item(kSizeLabel));
    const HCURSOR arrow = CursorNow();
    program.Drop({GreyFile(L"2048.bmp", 2048, 2048)});
    WaitFor("the wait window", [&] { return pause.Reached(); });
    CheckWait(program);
    const HCURSOR busy = CursorNow();
    CHECK(busy != arrow);
    pause.GoOn();
    program.WaitForViewer(2);
    WaitFor("the busy cursor to go", [&] { return CursorNow() != busy; });
    CHECK_FALSE(FindWait(program));
    CHECK_FALSE(pause.Reached());
    CHECK(program.Main().Enabled());
    program.Exit();
}

TEST_CASE("the wait window is gone before an error box shows") {
    Program program({.settings = {{L"IMG_SIZE", L"0.05"}}});
    const PauseBeforeEnd pause(program.Inside(), program.Main(), kCaption);
    // Large, of 16 bits and compressed: refused while its data are copied.
    TiffFile file{.width = 4096, .height = 1024, .bits = 16, .compression = 5};
    file.pixels.assign(1000, '\0');
    program.Drop({ScratchFile(L"large.tif", Bytes(file))});
    WaitFor("the wait window", [&] { return pause.Reached(); });
    CheckWait(program);
    pause.GoOn();
    const Window box = WaitForErrorBox(program);
    CHECK_FALSE(FindWait(program));
    CHECK(ReadErrorBox(box) ==
          ErrorTexts{L"Pixora  : Error   ", L"File: large.tif", L"This file is invalid or corrupt.", L""});
    PressOk(box);
    // Refused before anything is read: no wait window.
    program.Drop({ScratchFile(L"large.txt", std::string(5'000'000, 'x'))});
    CHECK(DismissErrorBox(program).line2 == L"This is an unsupported or invalid image file.");
    CHECK_FALSE(pause.Reached());
    program.Exit();
}
