// The main window's questions, its path menu, and its keys.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/clipboard.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr wchar_t kCopyItem[] = L"Copy Full Path to Clipboard";

std::filesystem::path MakePicture(std::wstring_view name) {
    return ScratchFile(name, BmpBytes(Chart(64, 48), 24));
}

OpenMenu OpenPathMenu(Program& program) {
    Click(program.Item(kPathBox), Button::right);
    return {program.Running(), program.Inside()};
}

/// Waits until something was copied after the clipboard had this number, and checks it. Looking into the
/// clipboard before would keep it from the program.
void WaitForCopy(DWORD before, const std::wstring& text) {
    WaitFor("the clipboard to change", [&] { return GetClipboardSequenceNumber() != before; });
    WaitFor("the copied text", [&] { return ClipboardText() == text; });
}

bool IsOptionDialog(const Window& window) {
    return window.Text() == L"Pixora - Viewer Option";
}

}  // namespace

TEST_CASE("the path box's menu copies the whole path, chosen or not, and nothing before the first file") {
    const std::filesystem::path file =
        MakePicture(L"a folder with a rather long name\\\x5199\x771F and another\\copied.bmp");
    SetClipboardText(L"somebody's");
    Program program;
    for (const bool chosen : {false, true}) {
        OpenMenu menu = OpenPathMenu(program);
        CHECK(menu.Items().size() == 1);
        chosen ? menu.Choose(kCopyItem) : menu.Dismiss();
    }
    program.Open(file);
    CHECK(ClipboardText() == L"somebody's");
    for (const bool chosen : {false, true}) {
        CAPTURE(chosen);
        SetClipboardText(L"somebody's");
        const DWORD before = GetClipboardSequenceNumber();
        OpenMenu menu = OpenPathMenu(program);
        chosen ? menu.Choose(kCopyItem) : menu.Dismiss();
        WaitForCopy(before, file.wstring());
    }
    program.Exit();
    CHECK(ClipboardText() == file.wstring());
}

TEST_CASE("Close All Files asks first, and closes only those viewers that are open then") {
    const std::filesystem::path file = MakePicture(L"many.bmp");
    Program program;
    program.Choose(L"Close All Files (&C)");  // greyed in the menu: nothing may come of it
    for (int number = 1; number <= 3; ++number) program.Open(file, number);

    program.OpenMainMenu(L"&File").Choose(L"Close All Files (&C)");
    const Window question = WaitForQuestion(program);
    CHECK(question.Text() == L"Pixora : Confirmation");
    CHECK(QuestionText(question) == L"Are you sure you want to close all viewer windows?");
    CHECK_FALSE(program.Main().Enabled());
    Answer(question, false);
    WaitFor("the main window", [&] { return program.Main().Enabled(); });
    CHECK(program.Viewers().size() == 3);

    program.OpenMainMenu(L"&File").Choose(L"Close All Files (&C)");
    const Window escaped = WaitForQuestion(program);
    WaitForKeyboard(escaped);
    PressKey(VK_ESCAPE);
    WaitFor("the question to close", [&] { return !escaped.Exists(); });
    CHECK(program.Viewers().size() == 3);

    program.OpenMainMenu(L"&File").Choose(L"Close All Files (&C)");
    Answer(WaitForQuestion(program), true);
    WaitFor("the viewers to close", [&] { return program.Viewers().empty(); });
    program.WaitForTitle(L"Pixora");
    CHECK(TemporaryCopies().empty());
    // The next viewers are not meant, neither in the places that were taken nor in those that were free.
    for (int number = 1; number <= 4; ++number) program.Open(file, number);
    program.WaitForTitle(L"Pixora  (N=4)");
    CHECK(program.Viewers().size() == 4);
    program.Exit();
}

TEST_CASE("Restore Defaults rewrites the settings file and touches no control and no viewer") {
    const std::filesystem::path file = MakePicture(L"kept.bmp");
    Program program({.settings = {{L"IMG_SIZE", L"2.00"}, {L"CAP_STYLE", L"FULL"}, {L"BDR_COLOR", L"RED"}}});
    const Window viewer = program.Open(file);
    const std::wstring caption = L"[1 ]  (200%) File Name : " + ShownPath(file, 50);
    CHECK(viewer.Text() == caption);
    const std::string before = ReadBytes(SettingsFile());

    OpenMenu menu = program.OpenMainMenu(L"&File");
    menu.Open(L"Restore Defaults  (&R)").Choose(L"&Execute Initialize (&E)");
    const Window question = WaitForQuestion(program);
    CHECK(question.Text() == L"Pixora : Confirmation");
    CHECK(QuestionText(question) == L"Are you sure you want to restore the default settings?");
    Answer(question, false);
    WaitFor("the main window", [&] { return program.Main().Enabled(); });
    CHECK(ReadBytes(SettingsFile()) == before);

    program.Choose(L"&Execute Initialize (&E)");
    Answer(WaitForQuestion(program), true);
    const Window notice = WaitForNotice(program);
    CHECK(notice.Text() == L"Pixora : Information");
    CHECK(NoticeText(notice) == L"Defaults have been restored.");
    CHECK(ReadBytes(SettingsFile()) == DefaultSettingsBytes());
    PressOk(notice);
    CHECK(program.Item(kSizeBox).Text() == L"     200%");

    // The next viewer starts with the defaults; the first one has not changed meanwhile.
    const Window next = program.Open(file, 2);
    CHECK(next.Text() == L"[2 ]  (50%) File Name : kept.bmp");
    CHECK(viewer.Text() == caption);
    CHECK(program.Item(kSizeBox).Text() == L"     200%");

    // A refused text brings the stored size into the box, which is none of its items.
    TypeInto(program.Item(kSizeBox).Item(1001), L"abc");
    WaitFor("the typed text", [&] { return program.Item(kSizeBox).Text() == L"abc"; });
    PressKey(VK_RETURN);
    CHECK(DismissErrorBox(program).line3 == L"The input string is invalid.");
    CHECK(program.Item(kSizeBox).Text() == L"      50%");
    CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == CB_ERR);
    program.Exit();
}

TEST_CASE("what is asked for while a box is up comes to nothing") {
    Program program;
    program.Drop({ScratchFile(L"text.bmp", "no image at all")});
    const Window box = WaitForErrorBox(program);
    CHECK_FALSE(program.Main().Enabled());
    // In the order in which the program gets them; the last one before the box closes is the press of OK.
    program.Drop({MakePicture(L"meanwhile.bmp")});
    program.Choose(L"Open (&O)");
    program.Choose(L"Viewer Option  (&V)");
    program.Item(kEdit).Post(BM_CLICK);
    PressOk(box);
    WaitFor("the main window", [&] { return program.Main().Enabled(); });
    // Nothing took the first slot before this file.
    const Window viewer = program.Open(MakePicture(L"later.bmp"), 1);
    CHECK(viewer.Text() == L"[1 ]  (100%) File Name : later.bmp");
    CHECK(program.Viewers().size() == 1);
    CHECK_FALSE(program.Running().FindWindow(IsOptionDialog));
    CHECK(program.Item(kEdit).Text() == L"EDIT");
    program.Exit();
}

TEST_CASE("the menus open and act by keyboard") {
    Program program;
    program.Open(MakePicture(L"by keys.bmp"));
    Click(program.Item(kSizeLabel));
    WaitFor("the main window in front", [&] { return GetForegroundWindow() == program.Main().Handle(); });
    HoldKey(VK_MENU);
    PressKey('F');
    ReleaseKey(VK_MENU);
    const OpenMenu file(program.Running(), program.Inside());
    CHECK_FALSE(file.Greyed(L"Close All Files (&C)"));
    PressKey('C');
    const Window question = WaitForQuestion(program);
    WaitForKeyboard(question);
    PressKey(VK_RETURN);  // OK is the default button
    WaitFor("the viewer to close", [&] { return program.Viewers().empty(); });
    program.WaitForTitle(L"Pixora");
    program.Exit();
}

TEST_CASE("Escape leaves the main window alone wherever the keyboard is, Alt+F4 leaves the program") {
    Program program;
    for (const int id : {kPathBox, kSizeBox}) {
        const Window control = program.Item(id);
        Click(control.FindItem(1001).value_or(control));
        WaitForKeyboard(control);
        PressKey(VK_ESCAPE);
    }
    PressKey(VK_TAB);
    WaitForKeyboard(program.Item(kEdit));
    PressKey(VK_ESCAPE);
    PressKey(VK_TAB);
    WaitForKeyboard(program.Item(kReload));
    CHECK(program.Main().Visible());
    SetWatch(nullptr);
    HoldKey(VK_MENU);
    PressKey(VK_F4);
    ReleaseKey(VK_MENU);
    program.CheckEnded();
}
