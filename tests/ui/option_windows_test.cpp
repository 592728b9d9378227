// What the three option dialogs have in common, and the main dialog option.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr int kTopLeft = 1073, kTopRight = 1074, kLast = 1075;
const std::vector<Choice> kPositions = {
    {kTopLeft, L"TOP - LEFT", 0, {{L"MAIN_POS", L"TL"}}},
    {kTopRight, L"TOP - RIGHT", 0, {{L"MAIN_POS", L"TR"}}},
    {kLast, L"Last Position", 0, {{L"MAIN_POS", L"LAST"}}},
};
constexpr int kLevelOn = 1246, kLevelOff = 1260, kBinning = 1247, kNoBinning = 1248, kMarkGray = 1249,
              kFullPath = 1254;
const std::vector<Choice> kLevelCursor = {{kLevelOn, L"ON", 1, {}}, {kLevelOff, L"OFF", 1, {}}};
const std::vector<Choice> kHistogram = {{kBinning, L"256 Levels", 2, {}}, {kNoBinning, L"No Binning", 2, {}}};

const OptionDialog* const kAll[] = {&kViewerOption, &kRegionStyle, &kMainOption};

/// The control that the keys go to.
Window Focused(const Program& program) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(program.Main().Handle(), nullptr), &info);
    return Window(info.hwndFocus);
}

/// The dialog's radio buttons, in the order of the tabulator key.
std::vector<Window> RadioButtons(const Window& dialog) {
    std::vector<Window> buttons = dialog.Controls();
    std::erase_if(buttons, [](const Window& control) {
        return control.Class() != L"Button" || (control.Style() & BS_TYPEMASK) != BS_RADIOBUTTON;
    });
    return buttons;
}

std::vector<bool> StatesOf(const std::vector<Window>& buttons) {
    std::vector<bool> states;
    for (const Window& button : buttons) states.push_back(button.Checked());
    return states;
}

/// Where the main window stands, moved there as by its caption.
void MoveMain(const Program& program, int left, int top) {
    SetWindowPos(program.Main().Handle(), nullptr, left, top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    WaitFor("the main window's place", [&] { return program.Main().Frame().left == left; });
}

LONG WidthOf(const Window& window) {
    return window.Frame().right - window.Frame().left;
}

/// Takes the line of a key out of the settings file.
void RemoveLine(const std::string& key) {
    std::string text = ReadBytes(SettingsFile());
    const std::size_t first = text.find('\n' + key + '=') + 1;
    text.erase(first, text.find('\n', first) + 1 - first);
    WriteBytes(SettingsFile(), text);
}

void DismissIncomplete(const Program& program, const Window& dialog) {
    const Window box = program.Running().WaitForPlainBox(kSaveNotComplete);
    CHECK(box.Text() == L"");
    CHECK_FALSE(dialog.Enabled());
    CHECK((box.ExtendedStyle() & WS_EX_TOPMOST) != 0);
    PressOk(box);
    WaitFor("the dialog", [&] { return dialog.Enabled(); });
}

}  // namespace

TEST_CASE("the menu opens each option dialog") {
    for (const OptionDialog* kind : kAll) {
        CAPTURE(kind->caption);
        Program program;
        program.OpenMainMenu(L"&Option").Choose(kind->menu_item);
        const Window dialog = WaitForOptions(program, *kind);
        CHECK(dialog.Enabled());
        CHECK(program.Main().Enabled());
        CHECK(GetWindow(dialog.Handle(), GW_OWNER) == program.Main().Handle());
        program.Exit();
    }
}

TEST_CASE(
    "of each option dialog one opens, beside the main window, in front of the others when asked for again") {
    Program program;
    const RECT main = program.Main().Frame();
    std::vector<Window> dialogs;
    for (const OptionDialog* kind : kAll) {
        CAPTURE(kind->caption);
        dialogs.push_back(OpenOptions(program, *kind));
        const RECT place = dialogs.back().Frame();
        const auto number = static_cast<LONG>(dialogs.size() - 1);
        // To the right of the main window where it fits, else to its left; each a caption lower.
        const bool fits = main.right + WidthOf(dialogs.back()) <= GetSystemMetrics(SM_CXSCREEN);
        CHECK((fits ? place.left : place.right) == (fits ? main.right : main.left));
        CHECK(place.top == main.top + number * GetSystemMetrics(SM_CYCAPTION));
        CHECK((dialogs.back().ExtendedStyle() & WS_EX_TOPMOST) != 0);
    }
    for (std::size_t i = 0; i < 3; ++i) {
        CHECK(OpenOptions(program, *kAll[i]) == dialogs[i]);
        CHECK(OpenDialogs(program, *kAll[i]) == std::vector<Window>{dialogs[i]});
        WaitFor("the dialog in front", [&] { return program.Running().Windows().front() == dialogs[i]; });
    }
    CHECK(program.Main().Enabled());
    program.Exit();  // with all three open
}

TEST_CASE("an option dialog opens inside the screen wherever the main window is") {
    Program program;
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    for (const POINT corner : {POINT{width - 60, height - 40}, POINT{-200, -50}}) {
        MoveMain(program, corner.x, corner.y);
        for (const OptionDialog* kind : kAll) {
            CAPTURE(kind->caption);
            program.Choose(kind->menu_item);
            const Window dialog = program.Running().WaitForWindow(
                "the dialog", [&](const Window& window) { return window.Text() == kind->caption; });
            const RECT place = dialog.Frame();
            CHECK(place.left >= 0);
            CHECK(place.top >= 0);
            CHECK(place.right <= width);
            CHECK(place.bottom <= height);
            CloseOptions(dialog);
        }
    }
    program.Exit();
}

TEST_CASE("the keyboard walks over the buttons of an option dialog, and only the blank key presses one") {
    Program program({.settings = {{L"LINE_COLOR", L"GREEN"}}});
    for (const OptionDialog* kind : kAll) {
        CAPTURE(kind->caption);
        const Window dialog = OpenOptions(program, *kind);
        const std::string file = ReadBytes(SettingsFile());
        const std::vector<Window> buttons = RadioButtons(dialog);
        const std::vector<bool> states = StatesOf(buttons);
        Window at = Focused(program);
        CHECK(at == buttons.front());
        for (std::size_t i = 1; i <= buttons.size(); ++i) {
            for (const int key : {VK_DOWN, VK_RIGHT, VK_UP, VK_LEFT, VK_RETURN})
                PressKey(static_cast<WORD>(key));
            PressKey(VK_TAB);
            WaitFor("the next button", [&] { return Focused(program) == buttons[i % buttons.size()]; });
        }
        CHECK((StatesOf(buttons) == states));
        CHECK(ReadBytes(SettingsFile()) == file);
        PressKey(VK_TAB);
        WaitFor("the second button", [&] { return Focused(program) == buttons[1]; });
        CHECK_FALSE(buttons[1].Checked());
        PressKey(VK_SPACE);
        WaitFor("the second button to be on", [&] { return buttons[1].Checked(); });
        PressKey(VK_ESCAPE);
        WaitFor("the dialog to close", [&] { return !dialog.Exists(); });
    }
    WaitForSettings({{L"CAP_STYLE", L"FULL"}, {L"LINE_COLOR", L"RED"}, {L"MAIN_POS", L"TR"}});
    CHECK(program.Main().Visible());
    program.Exit();
}

TEST_CASE("an option dialog closes by its button, by Alt+F4 and by Escape, and opens anew") {
    Program program;
    const Window first = OpenOptions(program, kMainOption);
    ClickChoice(program, first, kPositions, kTopRight);
    CloseOptions(first);
    const Window second = OpenOptions(program, kMainOption);
    CHECK(ButtonsOn(second, kPositions) == std::vector<int>{kTopRight});
    HoldKey(VK_MENU);
    PressKey(VK_F4);
    ReleaseKey(VK_MENU);
    WaitFor("the dialog to close", [&] { return !second.Exists(); });
    const Window third = OpenOptions(program, kMainOption);
    PressKey(VK_ESCAPE);
    WaitFor("the dialog to close", [&] { return !third.Exists(); });
    CHECK(program.Running().Windows() == std::vector<Window>{program.Main()});
    program.Exit();
}

TEST_CASE("the option dialogs hide while the main window is minimised") {
    Program program;
    std::vector<Window> dialogs;
    for (const OptionDialog* kind : kAll) dialogs.push_back(OpenOptions(program, *kind));
    for (const bool minimised : {true, false, true, false}) {
        program.Main().Post(WM_SYSCOMMAND, minimised ? SC_MINIMIZE : SC_RESTORE);
        WaitFor("the option dialogs to hide and to come back", [&] {
            return dialogs[0].Visible() != minimised && dialogs[1].Visible() != minimised &&
                   dialogs[2].Visible() != minimised;
        });
    }
    ClickChoice(program, dialogs[2], kPositions, kTopRight);  // the front one
    program.Exit();
}

TEST_CASE("the main dialog option stores the start position alone") {
    Program program({.settings = {{L"MAIN_POS", L"somewhere"}}});
    const Window dialog = OpenOptions(program, kMainOption);
    CHECK(ButtonsOn(dialog, kPositions) == std::vector<int>{kTopLeft});
    // What somebody else wrote into the file meanwhile stays.
    WriteSettings({{L"BDR_COLOR", L"RED"}, {L"MAIN_POS", L"somewhere"}});
    SettingValues values = TestSettings();
    values[L"BDR_COLOR"] = L"RED";
    ClickAll(program, dialog, kPositions, values, {kTopLeft});
    program.Exit();
}

TEST_CASE("Restore Defaults shows its start position in the main dialog option and leaves the others alone") {
    Program program({.settings = {{L"MAIN_POS", L"TR"}, {L"LVL_CURSOR", L"OFF"}, {L"BDR_COLOR", L"RED"}}});
    const Window viewer = OpenOptions(program, kViewerOption), main = OpenOptions(program, kMainOption);
    program.Choose(L"&Execute Initialize (&E)");
    Answer(WaitForQuestion(program), false);
    CHECK(ButtonsOn(main, kPositions) == std::vector<int>{kTopRight});
    program.Choose(L"&Execute Initialize (&E)");
    Answer(WaitForQuestion(program), true);
    PressOk(WaitForNotice(program));
    WaitFor("the default position", [&] { return ButtonsOn(main, kPositions) == std::vector<int>{kLast}; });
    CHECK(ReadBytes(SettingsFile()) == DefaultSettingsBytes());
    CHECK(ButtonsOn(viewer, kLevelCursor) == std::vector<int>{kLevelOff});
    CloseOptions(main);
    // The next click stores the settings of now, not what the other rows still show.
    ClickChoice(program, viewer, kHistogram, kNoBinning);
    WaitForSettings({{L"HIS_BINNING", L"OFF"},
                     {L"LVL_CURSOR", L"ON"},
                     {L"BDR_COLOR", L"GREEN"},
                     {L"IMG_SIZE", L"0.500"}});
    program.Exit();
}

TEST_CASE("a key that the settings file has lost makes every click incomplete, the others are stored") {
    Program program;
    const Window shown = program.Open(ScratchFile(L"a.bmp", BmpBytes(Chart(120, 90), 24)));
    RemoveLine("HIS_BINNING");
    const Window viewer = OpenOptions(program, kViewerOption);
    Click(viewer.Item(kLevelOff));
    DismissIncomplete(program, viewer);
    CHECK(ButtonsOn(viewer, kLevelCursor) == std::vector<int>{kLevelOff});
    CHECK(StoredSetting(L"LVL_CURSOR") == L"OFF");
    // What was clicked takes effect all the same.
    Click(viewer.Item(kFullPath));
    DismissIncomplete(program, viewer);
    WaitFor("the viewer's caption to have the path",
            [&] { return shown.Text().ends_with((ScratchFolder() / L"a.bmp").wstring()); });
    const Window style = OpenOptions(program, kRegionStyle);
    Click(style.Item(kMarkGray));
    DismissIncomplete(program, style);
    CHECK(style.Item(kMarkGray).Checked());
    CHECK(StoredSetting(L"MARK_COLOR") == L"GRAY");
    CHECK(StoredSetting(L"HIS_BINNING") == L"");
    CHECK(viewer.Enabled());
    program.Exit();
}

TEST_CASE("a click that a write-protected settings file does not take says nothing and is stored later") {
    Program program;
    const std::string before = ReadBytes(SettingsFile());
    SetReadOnly(SettingsFile(), true);
    const Window viewer = OpenOptions(program, kViewerOption);
    ClickChoice(program, viewer, kLevelCursor, kLevelOff);
    const Window main = OpenOptions(program, kMainOption);
    ClickChoice(program, main, kPositions, kTopLeft);
    CloseOptions(main);
    CHECK(program.Running().Windows().size() == 2);
    CHECK(ReadBytes(SettingsFile()) == before);
    SetReadOnly(SettingsFile(), false);
    ClickChoice(program, viewer, kHistogram, kNoBinning);
    WaitForSettings({{L"LVL_CURSOR", L"OFF"}, {L"HIS_BINNING", L"OFF"}, {L"MAIN_POS", L"TL"}});
    program.Exit();
}

TEST_CASE("a missing settings file makes no click incomplete and stays missing") {
    Program program;
    std::filesystem::remove(SettingsFile());
    const Window viewer = OpenOptions(program, kViewerOption);
    ClickChoice(program, viewer, kLevelCursor, kLevelOff);
    CHECK(viewer.Enabled());
    CHECK_FALSE(std::filesystem::exists(SettingsFile()));
    CloseOptions(viewer);
    CHECK(ButtonsOn(OpenOptions(program, kViewerOption), kLevelCursor) == std::vector<int>{kLevelOff});
    program.Exit();
}
