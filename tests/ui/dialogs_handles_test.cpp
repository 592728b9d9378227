// Dialogs that come and go leave nothing behind.
#include <doctest/doctest.h>

#include <functional>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr int kByValue = 32805, kValueEdit = 1002;

/// Waits for a window with this caption.
Window WaitForCaption(const Program& program, std::wstring_view caption) {
    return program.Running().WaitForWindow(Narrow(caption),
                                           [&](const Window& window) { return window.Text() == caption; });
}

/// Closes a window and waits until nothing of it is left.
void Close(const Window& window) {
    window.Post(WM_CLOSE);
    WaitFor("the window to close", [&] { return !window.Exists(); });
}

/// Opens and closes every dialog once.
void OpenAndCloseAll(Program& program, const Window& viewer, const std::filesystem::path& no_image) {
    program.Choose(L"About Pixora (&A)");
    Close(WaitForCaption(program, L"About Pixora"));
    for (const OptionDialog* kind : {&kViewerOption, &kRegionStyle, &kMainOption}) {
        program.Choose(kind->menu_item);
        const Window dialog = WaitForCaption(program, kind->caption);
        WaitFor("the buttons to be painted", [&] { return !Uniform(program.See(dialog)); });
        Close(dialog);
    }
    program.Choose(L"&Execute Initialize (&E)");
    Answer(WaitForQuestion(program), true);
    Close(WaitForNotice(program));
    program.Drop({no_image});
    Close(WaitForErrorBox(program));
    viewer.Command(kByValue);
    const Window entry = WaitForCaption(program, L"Display Size Value");
    entry.Item(kValueEdit).SetText(L"0");
    entry.Post(WM_KEYDOWN, VK_RETURN);
    Close(WaitForRangeBox(program));
    Close(entry);
    WaitFor("the windows", [&] { return program.Main().Enabled() && viewer.Enabled(); });
}

}  // namespace

TEST_CASE("no dialog leaves a GDI object, a window or a menu behind") {
    const std::filesystem::path no_image = ScratchFile(L"text.txt", "This is no image.");
    Program program;
    const Window viewer = program.Open(ScratchFile(L"a.bmp", BmpBytes(Chart(120, 90), 24)));
    // The system keeps brushes and fonts of its own from the first use on.
    for (int i = 0; i < 2; ++i) OpenAndCloseAll(program, viewer, no_image);
    const HandleCounts before = program.Inside().Handles();
    CHECK(before.gdi > 10);
    CHECK(before.user > 10);
    for (int i = 0; i < 8; ++i) OpenAndCloseAll(program, viewer, no_image);
    WaitFor("the handles to be given back", [&] {
        const HandleCounts now = program.Inside().Handles();
        return now.gdi <= before.gdi && now.user <= before.user;
    });
    program.Exit();
}
