// The display size box of the main window: chosen from, typed into, refused.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

/// The list's ratios as the settings file has them, and its items.
struct ListedSize {
    const wchar_t *ratio, *item;
};
constexpr ListedSize kListedSizes[] = {
    {L"0.05", L"       5%"}, {L"0.10", L"      10%"}, {L"0.20", L"      20%"}, {L"0.30", L"      30%"},
    {L"0.40", L"      40%"}, {L"0.50", L"      50%"}, {L"0.60", L"      60%"}, {L"0.70", L"      70%"},
    {L"0.80", L"      80%"}, {L"0.90", L"      90%"}, {L"1.00", L"     100%"}, {L"1.50", L"     150%"},
    {L"2.00", L"     200%"}, {L"5.00", L"     500%"}, {L"10.00", L"    1000%"}};

Window SizeEdit(const Program& program) {
    constexpr int kEditOfCombo = 1001;
    return program.Item(kSizeBox).Item(kEditOfCombo);
}

/// Waits until the size box shows a text. The program does not answer while it stores a size, so what is
/// stored with the text stands in the file by then: nothing may look into the file while it is replaced.
void WaitForSizeText(const Program& program, const std::wstring& text) {
    WaitFor("the size box's \"" + Narrow(text) + '"', [&] { return program.Item(kSizeBox).Text() == text; });
}

/// Waits until the size box shows a text, and checks the ratio stored with it.
void WaitForSize(const Program& program, const std::wstring& text, const std::wstring& ratio) {
    WaitForSizeText(program, text);
    CHECK(StoredSetting(L"IMG_SIZE") == ratio);
}

void TypeSize(const Program& program, const std::wstring& text) {
    TypeInto(SizeEdit(program), text);
    WaitForSizeText(program, text);
}

std::optional<Window> OpenList(const Program& program) {
    return program.Running().FindWindow([](const Window& window) { return window.Class() == L"ComboLBox"; });
}

void WaitUntilListCloses(const Program& program) {
    WaitFor("the list to close", [&] { return !OpenList(program); });
}

/// Opens the list with the mouse and clicks one of its items.
void ClickListItem(const Program& program, int index) {
    const RECT combo = program.Item(kSizeBox).Frame();
    ClickAt({combo.right - 9, (combo.top + combo.bottom) / 2});
    const Window list = WaitForSome("the list", [&] { return OpenList(program); });
    RECT item{};
    list.Send(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    const POINT point = list.ClientPoint((item.left + item.right) / 2, (item.top + item.bottom) / 2);
    CHECK(Window(WindowFromPoint(point)) == list);
    ClickAt(point);
    WaitUntilListCloses(program);
}

ErrorTexts InvalidInput(const std::wstring& typed) {
    return {L"Pixora  : Error- Invalid Value   ", L"", L"Input Value: \"" + typed + L'"',
            L"The input string is invalid."};
}

ErrorTexts OutOfRange(const std::wstring& value) {
    return {L"Pixora (Error)", L"Error: Input value (" + value + L")", L"Item: Display Size Ratio",
            L"The value must be between \"1\" and \"10000\"."};
}

/// Presses Enter on what stands in the size box and reads the box that refuses it, closed by Enter too.
ErrorTexts EnterRefused(const Program& program, bool by_range) {
    PressKey(VK_RETURN);
    const Window box = by_range ? WaitForRangeBox(program) : WaitForErrorBox(program);
    CHECK_FALSE(program.Main().Enabled());
    const ErrorTexts texts = by_range ? ReadRangeBox(box) : ReadErrorBox(box);
    WaitForKeyboard(box);
    PressKey(VK_RETURN);
    WaitFor("the box to close", [&] { return !box.Exists(); });
    WaitFor("the main window", [&] { return program.Main().Enabled(); });
    return texts;
}

}  // namespace

TEST_CASE("the arrow keys choose each size of the list, and each is stored at once") {
    Program program({.settings = {{L"IMG_SIZE", L"0.05"}, {L"BDR_COLOR", L"GRAY"}}});
    Click(SizeEdit(program));
    WaitForKeyboard(SizeEdit(program));
    for (int index = 1; index < 15; ++index) {
        CAPTURE(index);
        PressKey(VK_DOWN);
        WaitForSize(program, kListedSizes[index].item, kListedSizes[index].ratio);
        CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == index);
    }
    PressKey(VK_HOME);  // stays in the text: the first item is reached by the arrow alone
    PressKey(VK_UP);
    WaitForSize(program, L"     500%", L"5.00");
    CHECK(StoredSetting(L"BDR_COLOR") == L"GRAY");
    const RECT client = program.Open(ScratchFile(L"small.bmp", BmpBytes(Chart(60, 40), 24))).Client();
    CHECK(client.right - client.left == 300);
    CHECK(client.bottom - client.top == 200);
    program.Exit();
}

TEST_CASE("the mouse chooses a size from the list") {
    Program program;
    for (const int index : {0, 13, 7, 14}) {
        CAPTURE(index);
        ClickListItem(program, index);
        WaitForSize(program, kListedSizes[index].item, kListedSizes[index].ratio);
        CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == index);
    }
    program.Exit();
    CHECK(StoredSetting(L"IMG_SIZE") == L"10.00");
}

TEST_CASE("Enter in the open list closes it and stores what the box shows as a typed size") {
    Program program;
    Click(SizeEdit(program));
    WaitForKeyboard(SizeEdit(program));
    PressKey(VK_F4);
    WaitFor("the list", [&] { return OpenList(program).has_value(); });
    PressKey(VK_DOWN);
    WaitForSize(program, L"     150%", L"1.50");
    PressKey(VK_RETURN);
    WaitUntilListCloses(program);
    WaitFor("no chosen item", [&] { return program.Item(kSizeBox).Send(CB_GETCURSEL) == CB_ERR; });
    WaitForSize(program, L"     150%", L"1.500");
    program.Exit();
}

TEST_CASE("a size chosen while the settings file is damaged leaves the other settings whole") {
    Program program({.settings = {{L"BDR_COLOR", L"RED"}, {L"HIS_BINNING", L"OFF"}}});
    WriteSettings({{L"BDR_COLOR", L"GRAY"}, {L"HIS_BINNING", L""}});
    ClickListItem(program, 2);
    WaitForSize(program, L"      20%", L"0.20");
    CHECK(StoredSetting(L"HIS_BINNING") == L"OFF");
    CHECK(StoredSetting(L"PATH_SAVE") == PicturesFolder() + L"\\");
    CHECK(StoredSetting(L"BDR_COLOR") == L"RED");
    program.Exit();
}

TEST_CASE("a choice of no item is stored as dashes, and images are opened at half their size then") {
    Program program;
    program.Item(kSizeBox).Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    program.Main().Send(WM_COMMAND, MAKEWPARAM(kSizeBox, CBN_SELCHANGE));
    CHECK(StoredSetting(L"IMG_SIZE") == L"---%");
    const Window viewer = program.Open(ScratchFile(L"small.bmp", BmpBytes(Chart(60, 40), 24)));
    CHECK(viewer.Text() == L"[1 ]  (50%) File Name : small.bmp");
    program.Exit();
    CHECK(StoredSetting(L"IMG_SIZE") == L"---%");
}

TEST_CASE("Enter stores a typed percentage with three decimals and shows it like an item") {
    struct Typed {
        const wchar_t *text, *ratio, *shown;
    };
    const Typed typed[] = {
        {L"50", L"0.500", L"      50%"},      {L"200%", L"2.000", L"     200%"},
        {L"  12.5%", L"0.125", L"    12.5%"}, {L"0.96", L"0.010", L"       1%"},
        {L"66.666", L"0.667", L"    66.7%"},  {L"10000", L"100.000", L"   10000%"},
        {L"75 ", L"0.750", L"      75%"},     {L"000000000000100%", L"1.000", L"     100%"},
    };
    Program program;
    for (const Typed& entry : typed) {
        CAPTURE(std::wstring(entry.text));
        TypeSize(program, entry.text);
        PressKey(VK_RETURN);
        WaitForSize(program, entry.shown, entry.ratio);
        CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == CB_ERR);
    }
    TypeSize(program, L"300");
    PressKey(VK_RETURN);
    WaitForSize(program, L"     300%", L"3.000");
    const RECT client = program.Open(ScratchFile(L"small.bmp", BmpBytes(Chart(60, 40), 24))).Client();
    CHECK(client.right - client.left == 180);
    program.Exit();
}

TEST_CASE("what is no percentage is refused with its text, and the last accepted size stays") {
    Program program;
    for (const wchar_t* typed : {L"", L"abc", L"-5", L"+5", L"1.2.3", L"50.", L"5.%", L"%", L"50%%", L"50 %",
                                 L"   ", L"1e2", L"\xFF15\xFF10"}) {
        CAPTURE(std::wstring(typed));
        TypeSize(program, typed);
        CHECK(EnterRefused(program, false) == InvalidInput(typed));
        CHECK(program.Item(kSizeBox).Text() == L"     100%");
        CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == 10);
    }
    program.Exit();
    CHECK(StoredSetting(L"IMG_SIZE") == L"1.00");
}

TEST_CASE("a percentage beyond its range is refused with its limits, and the last accepted size stays") {
    struct Typed {
        const wchar_t *text, *named;
    };
    Program program;
    TypeSize(program, L"75");
    PressKey(VK_RETURN);
    WaitForSize(program, L"      75%", L"0.750");
    // Letters that count as digits by their low byte have no value.
    for (const Typed& entry : {Typed{L"0", L"0"},
                               {L"0.4", L"0"},
                               {L"10001", L"10001"},
                               {L"\x0430\x0431", L"0"},
                               {L"99999999999999999999999999", L"2147483647"}}) {
        CAPTURE(std::wstring(entry.text));
        TypeSize(program, entry.text);
        CHECK(EnterRefused(program, true) == OutOfRange(entry.named));
        CHECK(program.Item(kSizeBox).Text() == L"      75%");
    }
    TypeSize(program, L"10000.1%");
    CHECK(EnterRefused(program, false) ==
          ErrorTexts{L"Pixora  : Error   ", L"", L"The input value: 10000.1", L"Out of range"});
    CHECK(program.Item(kSizeBox).Text() == L"      75%");
    CHECK(StoredSetting(L"IMG_SIZE") == L"0.750");
    program.Exit();
}

TEST_CASE("Enter applies the size wherever the keyboard is, the blank key presses the button") {
    Program program;
    TypeSize(program, L"80");
    PressKey(VK_TAB);
    WaitForKeyboard(program.Item(kEdit));
    CHECK(StoredSetting(L"IMG_SIZE") == L"1.00");
    PressKey(VK_RETURN);
    WaitForSize(program, L"      80%", L"0.800");
    CHECK(program.Item(kEdit).Text() == L"EDIT");
    PressKey(VK_SPACE);
    WaitFor("path edit mode", [&] { return program.Item(kEdit).Text() == L"ENTER"; });
    program.Exit();
    CHECK(StoredSetting(L"IMG_SIZE") == L"0.800");
}
