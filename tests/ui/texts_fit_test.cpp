// Every text of the main window and its dialogs has the room that it needs.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

/// The size of a text in a font, without marks of underlined letters.
SIZE SizeOf(const std::wstring& text, const LOGFONTW& font) {
    const HDC screen = GetDC(nullptr);
    const HFONT handle = CreateFontIndirectW(&font);
    const HGDIOBJ before = SelectObject(screen, handle);
    SIZE size{};
    GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(screen, before);
    DeleteObject(handle);
    ReleaseDC(nullptr, screen);
    return size;
}

/// What a control has beside its text, in pixels at 96 dots per inch: a circle, a frame.
int Beside(const Window& control) {
    if (control.Class() == L"Static") return 0;
    switch (control.Style() & BS_TYPEMASK) {
        case BS_RADIOBUTTON:
            return 18;
        case BS_GROUPBOX:
            return 16;
        default:
            return 8;
    }
}

/// Checks each text of a window; they are what it shows at present.
void CheckTextsFit(Program& program, const Window& window, int least) {
    CAPTURE(window.Text());
    const int dpi = static_cast<int>(GetDpiForSystem());
    int seen = 0;
    for (const Window& control : window.Controls()) {
        const std::wstring text = control.Text(), kind = control.Class();
        if (text.empty() || !control.Visible() || (kind != L"Static" && kind != L"Button")) continue;
        CAPTURE(text);
        const SIZE needed = SizeOf(text, program.Inside().Font(control));
        const RECT room = control.Client();
        CHECK(needed.cx + MulDiv(Beside(control), dpi, 96) <= room.right - room.left);
        CHECK(needed.cy <= room.bottom - room.top);
        ++seen;
    }
    CHECK(seen >= least);
}

/// Checks a window that the menu opens, and closes it.
void CheckDialog(Program& program, std::wstring_view item, const std::wstring& caption, int least) {
    program.Choose(item);
    const Window dialog = program.Running().WaitForWindow(
        Narrow(caption), [&](const Window& window) { return window.Text() == caption; });
    CheckTextsFit(program, dialog, least);
    dialog.Post(WM_CLOSE);
    WaitFor("the window to close", [&] { return !dialog.Exists(); });
}

}  // namespace

TEST_CASE("every text of the main window and of its dialogs has room") {
    Program program;
    CheckTextsFit(program, program.Main(), 4);
    Click(program.Item(kEdit));
    WaitFor("path edit mode", [&] { return program.Item(kEdit).Text() == L"ENTER"; });
    CheckTextsFit(program, program.Main(), 4);
    CheckDialog(program, kViewerOption.menu_item, kViewerOption.caption, 16);
    CheckDialog(program, kRegionStyle.menu_item, kRegionStyle.caption, 16);
    CheckDialog(program, kMainOption.menu_item, kMainOption.caption, 4);
    CheckDialog(program, L"About Pixora (&A)", L"About Pixora", 7);
    CheckDialog(program, L"&Execute Initialize (&E)", L"Pixora : Confirmation", 3);
    program.Exit();
}

TEST_CASE("every text of the boxes about files and display sizes has room") {
    constexpr int kByValue = 32805, kValueEdit = 1002;
    Program program;
    // As long as a name is shown: of letters, and of Japanese ones, of which half as many are.
    for (const std::wstring& name : {std::wstring(L"DSC_0123 studio, chart and grey card 2.bmp"),
                                     std::wstring(17, L'\x5199') + L".bmp"}) {
        program.Drop({ScratchFile(name, "no image at all")});
        const Window unknown = WaitForErrorBox(program);
        CheckTextsFit(program, unknown, 3);
        PressOk(unknown);
    }
    program.Drop({ScratchFile(L"10-bit.tif", Bytes(TiffFile{.bits = 10, .pixels = std::string(400, '\0')}))});
    const Window depth = WaitForErrorBox(program);
    CheckTextsFit(program, depth, 3);
    PressOk(depth);
    const Window viewer = program.Open(ScratchFile(L"wide.bmp", BmpBytes(Chart(2201, 10), 24)));
    viewer.Command(kByValue);
    const Window entry = program.Running().WaitForWindow(
        "the value dialog", [](const Window& window) { return window.Text() == L"Display Size Value"; });
    CheckTextsFit(program, entry, 1);
    const auto enter = [&](const wchar_t* typed) {
        entry.Item(kValueEdit).SetText(typed);
        entry.Post(WM_KEYDOWN, VK_RETURN);
    };
    enter(L"99999999999999999");
    const Window range = WaitForRangeBox(program);
    CheckTextsFit(program, range, 4);
    PressOk(range);
    for (const wchar_t* typed : {L"1000", L"10000.1", L"what"}) {
        CAPTURE(std::wstring(typed));
        WaitFor("the value dialog", [&] { return entry.Enabled(); });
        enter(typed);
        const Window box = WaitForErrorBox(program);
        CheckTextsFit(program, box, 3);
        PressOk(box);
    }
    program.Exit();
}
