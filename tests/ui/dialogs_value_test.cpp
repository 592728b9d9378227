// The dialog "Display Size Value": its keys, its place, and what it refuses.
#include <doctest/doctest.h>

#include <utility>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr int kByValue = 32805, kValueEdit = 1002, kValueOk = 1003;

std::filesystem::path ChartFile(int width, int height) {
    return ScratchFile(L"chart.bmp", BmpBytes(Chart(width, height), 24));
}

Window WaitForEntry(const Program& program) {
    const Window entry = program.Running().WaitForWindow(
        "the value dialog", [](const Window& window) { return window.Text() == L"Display Size Value"; });
    WaitForKeyboard(entry.Item(kValueEdit));
    return entry;
}

/// Opens the dialog with the mouse; it gets the keyboard.
Window OpenEntry(Program& program, const Window& viewer) {
    const RECT client = viewer.Client();
    ClickAt({client.left + 40, client.top + 4}, Button::right);
    OpenMenu menu(program.Running(), program.Inside());
    menu.Open(L"Display Size").Choose(L"Set Display Size by Value");
    return WaitForEntry(program);
}

/// The text of the item that a menu has marked.
std::wstring Marked(Program& program, const OpenMenu& menu) {
    const auto handle = reinterpret_cast<HMENU>(menu.Popup().Send(0x01E1));  // MN_GETHMENU
    for (const ProbeMenuItem& item : program.Inside().PopupItems(handle))
        if (item.depth == 0 && (item.state & MFS_HILITE)) return item.text;
    return {};
}

/// Opens the dialog from the viewer's menu with the keys; Enter is still held then.
Window OpenEntryByKeys(Program& program, POINT cursor) {
    ClickAt(cursor, Button::right);
    const OpenMenu menu(program.Running(), program.Inside());
    for (std::wstring marked; marked != L"Display Size"; marked = Marked(program, menu)) {
        PressKey(VK_UP);
        WaitFor("the next item", [&, before = marked] { return Marked(program, menu) != before; });
    }
    PressKey(VK_RIGHT);
    const OpenMenu sizes(program.Running(), program.Inside(), {menu.Popup()});
    WaitFor("the first size", [&] { return Marked(program, sizes) == L"Set Display Size by Value"; });
    HoldKey(VK_RETURN);
    return WaitForEntry(program);
}

void WaitForField(const Window& entry, const std::wstring& text) {
    WaitFor("the field to show \"" + Narrow(text) + '"', [&] { return entry.ItemText(kValueEdit) == text; });
}

void Type(const Window& entry, const std::wstring& text) {
    WaitForKeyboard(entry.Item(kValueEdit));
    PressKey(VK_END);
    HoldKey(VK_SHIFT);
    PressKey(VK_HOME);
    ReleaseKey(VK_SHIFT);
    PressKey(VK_DELETE);
    TypeText(text);
    WaitForField(entry, text);
}

void WaitForEnd(const Window& entry, const Window& viewer) {
    WaitFor("the value dialog to close", [&] { return !entry.Exists(); });
    WaitFor("the viewer", [&] { return viewer.Enabled(); });
}

void WaitForClient(const Window& viewer, LONG width, LONG height) {
    WaitFor("the display size", [&] {
        const RECT client = viewer.Client();
        return client.right - client.left == width && client.bottom - client.top == height;
    });
}

ErrorTexts InvalidInput(const std::wstring& typed) {
    return {L"Pixora  : Error- Invalid Value   ", L"", L"Input Value: \"" + typed + L'"',
            L"The input string is invalid."};
}

/// Presses Enter on `typed`, and closes the box that comes with Enter too, whose end comes only after the
/// box's: nothing may be applied by it.
ErrorTexts EnterRefused(const Program& program, const Window& entry, const std::wstring& typed,
                        bool by_range) {
    Type(entry, typed);
    PressKey(VK_RETURN);
    const Window box = by_range ? WaitForRangeBox(program) : WaitForErrorBox(program);
    const ErrorTexts texts = by_range ? ReadRangeBox(box) : ReadErrorBox(box);
    // The last good text is back already, and the box stands over the dialog alone.
    CHECK(entry.ItemText(kValueEdit) == L"100%");
    CHECK_FALSE(entry.Enabled());
    CHECK(GetWindow(box.Handle(), GW_OWNER) == entry.Handle());
    CHECK(program.Main().Enabled());
    WaitForKeyboard(box);
    HoldKey(VK_RETURN);
    WaitFor("the box to close", [&] { return !box.Exists(); });
    WaitForKeyboard(entry.Item(kValueEdit));
    ReleaseKey(VK_RETURN);
    TypeText(L"7");  // arrives after that release
    WaitFor("the next digit", [&] { return entry.ItemText(kValueEdit).find(L'7') != std::wstring::npos; });
    CHECK(program.Running().FindWindow([&](const Window& window) { return window == entry; }));
    PressKey(VK_ESCAPE);
    WaitForField(entry, L"100%");
    return texts;
}

}  // namespace

TEST_CASE("a display size that is no number is refused with the text as it was typed") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90)), entry = OpenEntry(program, viewer);
    for (const wchar_t* typed :
         {L"", L"   ", L"abc", L"-5", L"+5", L"1.2.3", L"50.", L"5.%", L"%", L"50%%", L"50 %", L"%50",
          L"50% ", L"1,5", L"0x10", L"1e3", L"\xFF15\xFF10", L"\x2160"}) {
        CAPTURE(std::wstring(typed));
        CHECK(EnterRefused(program, entry, typed, false) == InvalidInput(typed));
    }
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : chart.bmp");
    program.Exit();
}

TEST_CASE("a display size out of the range is refused with the value that counts") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 90)), entry = OpenEntry(program, viewer);
    const std::pair<const wchar_t*, const wchar_t*> refused[] = {{L"0", L"0"},
                                                                 {L"0.4", L"0"},
                                                                 {L"0.94%", L"0"},
                                                                 {L"10001", L"10001"},
                                                                 {L"10001.9%", L"10001"},
                                                                 {L"65536", L"65536"},
                                                                 {L"4294967396", L"2147483647"},
                                                                 {L"99999999999999999999999", L"2147483647"}};
    for (const auto& [typed, value] : refused) {
        CAPTURE(std::wstring(typed));
        CHECK(EnterRefused(program, entry, typed, true) ==
              ErrorTexts{L"Pixora (Error)", std::wstring(L"Error: Input value (") + value + L")",
                         L"Item: Display Size Ratio", L"The value must be between \"1\" and \"10000\"."});
    }
    for (const wchar_t* typed : {L"10000.1", L"10000.9%"}) {
        CAPTURE(std::wstring(typed));
        const std::wstring number = std::wstring(typed).substr(0, 7);
        CHECK(EnterRefused(program, entry, typed, false) ==
              ErrorTexts{L"Pixora  : Error   ", L"", L"The input value: " + number, L"Out of range"});
    }
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : chart.bmp");
    program.Exit();
}

TEST_CASE("a display size that the image cannot be shown at is refused and the last one stays") {
    Program program;
    const Window viewer = program.Open(ChartFile(2201, 10)), entry = OpenEntry(program, viewer);
    CHECK(EnterRefused(program, entry, L"1000", false) ==
          ErrorTexts{L"Pixora  : Error - Image display failed.   ",
                     L"A \"1000%\" zoom is too large to display.",
                     L"The maximum zoom level for this image is \"990%\".", L""});
    // The button refuses like the key.
    Type(entry, L"1200.5%");
    Click(entry.Item(kValueOk));
    CHECK(DismissErrorBox(program).line1 == L"A \"1200.5%\" zoom is too large to display.");
    CHECK(entry.Visible());
    WaitForField(entry, L"100%");
    Click(entry.Item(kValueEdit));
    Type(entry, L"50");
    PressKey(VK_RETURN);
    WaitForEnd(entry, viewer);
    WaitForClient(viewer, 1100, 5);
    program.Exit();
}

TEST_CASE("the value dialog opens where the cursor is and applies a size by Enter") {
    Program program;
    const Window viewer = program.Open(ChartFile(120, 200));
    const POINT cursor = viewer.ClientPoint(100, 80);
    const Window entry = OpenEntryByKeys(program, cursor);
    CHECK(entry.Frame().left == cursor.x - 40);
    CHECK(entry.Frame().top == cursor.y - 45);
    ReleaseKey(VK_RETURN);  // the key that chose the item applies nothing
    CHECK(entry.ItemText(kValueEdit) == L"100%");
    CHECK(GetWindow(entry.Handle(), GW_OWNER) == viewer.Handle());
    CHECK_FALSE(viewer.Enabled());
    CHECK(program.Main().Enabled());
    Type(entry, L"  250.5%");
    PressKey(VK_RETURN);
    WaitForEnd(entry, viewer);
    WaitForClient(viewer, 300, 501);
    CHECK(viewer.Text() == L"[1 ]  (250.5%) File Name : chart.bmp");
    // Whatever carries the key's number counts as the key; the smallest size is one percent.
    viewer.Command(kByValue);
    const Window again = WaitForEntry(program);
    CHECK(again.ItemText(kValueEdit) == L"250.5%");
    Type(again, L"0.96");
    again.Post(WM_APP, VK_RETURN);
    WaitForEnd(again, viewer);
    WaitForClient(viewer, 1, 2);
    program.Exit();
}

TEST_CASE("Escape restores the text, OK on it and the close button apply nothing") {
    Program program({.settings = {{L"IMG_SIZE", L"0.9634"}}});
    const Window viewer = program.Open(ChartFile(1900, 100));
    WaitForClient(viewer, 1830, 96);
    const Window entry = OpenEntry(program, viewer);
    CHECK(entry.ItemText(kValueEdit) == L"96.3%");
    for (const wchar_t* typed : {L"12", L"what"}) {
        Type(entry, typed);
        PressKey(VK_ESCAPE);
        WaitForField(entry, L"96.3%");
    }
    // Applied, the text would give 1829 columns.
    Click(entry.Item(kValueOk));
    WaitForEnd(entry, viewer);
    viewer.Command(kByValue);
    const Window second = WaitForEntry(program);
    Type(second, L"50");
    ClickCloseButton(second);
    WaitForEnd(second, viewer);
    WaitForClient(viewer, 1830, 96);
    CHECK(viewer.Text() == L"[1 ]  (96.3%) File Name : chart.bmp");
    program.Exit();
}
