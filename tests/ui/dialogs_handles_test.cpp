// Dialogs that come and go leave nothing behind.
#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"

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

/// The handles of the idle program: the fewest of some looks, because a look may come while it paints.
HandleCounts SettledHandles(Program& program) {
    HandleCounts fewest = program.Inside().Handles();
    (void)WaitUntilStill("the handles", [&] {
        const HandleCounts now = program.Inside().Handles();
        fewest = {std::min(fewest.gdi, now.gdi), std::min(fewest.user, now.user)};
        return fewest;
    });
    return fewest;
}

}  // namespace

TEST_CASE("no dialog leaves a GDI object, a window or a menu behind") {
    constexpr int kRounds = 4, kBlocks = 5;
    const std::filesystem::path no_image = ScratchFile(L"text.txt", "This is no image.");
    Program program;
    const Window viewer = program.Open(ScratchFile(L"a.bmp", BmpBytes(Chart(120, 90), 24)));
    OpenAndCloseAll(program, viewer, no_image);
    HandleCounts before = SettledHandles(program);
    CHECK(before.gdi > 10);
    CHECK(before.user > 10);
    // The system takes brushes and fonts for itself now and then, and keeps them: some rounds may need more
    // than the ones before. What a dialog leaves behind would make every block of rounds need more.
    std::vector<HandleCounts> growths;
    do {
        for (int i = 0; i < kRounds; ++i) OpenAndCloseAll(program, viewer, no_image);
        const HandleCounts now = SettledHandles(program);
        growths.push_back({now.gdi - before.gdi, now.user - before.user});
        before = now;
    } while ((growths.back().gdi > 0 || growths.back().user > 0) && growths.size() < kBlocks);
    CAPTURE(growths.front().gdi);
    CAPTURE(growths.front().user);
    CHECK(growths.back().gdi <= 0);
    CHECK(growths.back().user <= 0);
    program.Exit();
}
