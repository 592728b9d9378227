// Minimising the main window and bringing it back.
#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr struct {
    const wchar_t *item, *caption;
} kOptionDialogs[] = {{L"Viewer Option  (&V)", L"Pixora - Viewer Option"},
                      {L"Line and Region Style (&S)", L"Pixora - Line and Region Style"},
                      {L"Main Dialog Option (&M)", L"Pixora - Main Dialog Option "}};

/// Opens two viewers and the three option dialogs.
std::vector<Window> OpenAll(Program& program) {
    std::vector<Window> windows;
    for (int number = 1; number <= 2; ++number)
        windows.push_back(program.Open(ScratchFile(L"hidden.bmp", BmpBytes(Chart(90, 60), 24)), number));
    for (const auto& [item, caption] : kOptionDialogs) {
        program.Choose(item);
        windows.push_back(program.Running().WaitForWindow(
            "an option dialog", [text = caption](const Window& window) { return window.Text() == text; }));
    }
    return windows;
}

void ClickMinimise(const Window& window) {
    const RECT frame = window.Frame();
    const LONG y = (frame.top + window.Client().top) / 2;
    // Down to the button's middle from its right edge; the menu bar lies below the caption.
    for (LONG line = frame.top + 4; line < y; line += 2)
        for (LONG x = frame.right - 1; x > frame.left; x -= 2)
            if (window.Send(WM_NCHITTEST, 0, MAKELPARAM(x, line)) == HTMINBUTTON) {
                ClickAt({x - 6, line + 4});
                return;
            }
    FAIL("there is no minimise button");
}

void WaitUntilVisible(const std::vector<Window>& windows, bool visible) {
    WaitFor(visible ? "all windows to show" : "all windows to hide", [&] {
        return std::ranges::all_of(windows,
                                   [&](const Window& window) { return window.Visible() == visible; });
    });
    for (const Window& window : windows) CHECK(window.Exists());
}

}  // namespace

TEST_CASE("minimising hides the viewers and the option dialogs, restoring brings all of them back") {
    Program program;
    const std::vector<Window> windows = OpenAll(program);
    const RECT place = program.Main().Frame();
    for (int round = 0; round < 2; ++round) {
        ClickMinimise(program.Main());
        WaitFor("the main window to be minimised", [&] { return IsIconic(program.Main().Handle()); });
        WaitUntilVisible(windows, false);
        program.Main().Post(WM_SYSCOMMAND, SC_RESTORE);
        WaitFor("the main window to be back", [&] { return !IsIconic(program.Main().Handle()); });
        WaitUntilVisible(windows, true);
        const RECT back = program.Main().Frame();
        CHECK(EqualRect(&place, &back));
    }
    CHECK(program.Viewers() == std::vector<std::wstring>{L"[1 ]  (100%) File Name : hidden.bmp",
                                                         L"[2 ]  (100%) File Name : hidden.bmp"});
    CHECK(DifferenceEnlarged(program.See(windows.front()), Chart(90, 60), 1) == "");
    program.Exit();
}

TEST_CASE("leaving while all windows are hidden leaves nothing behind and keeps the place from before") {
    Program program;
    const std::vector<Window> windows = OpenAll(program);
    SetWindowPos(program.Main().Handle(), nullptr, 640, 480, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    program.Main().Post(WM_SYSCOMMAND, SC_MINIMIZE);
    WaitUntilVisible(windows, false);
    program.Main().Post(WM_SYSCOMMAND, SC_CLOSE);
    program.CheckEnded();
    CHECK(StoredSetting(L"MAIN_POS_X") == L"640");
    CHECK(StoredSetting(L"MAIN_POS_Y") == L"480");
}
