// What the main window is made of.
#include <doctest/doctest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

/// The dialog behind the main window, which is never shown.
Window HiddenDialog(const Program& program) {
    struct Search {
        const Program& program;
        HWND found = nullptr;
    } search{program};
    const auto look = [](HWND handle, LPARAM search_address) -> BOOL {
        auto& [owner, found] = *reinterpret_cast<Search*>(search_address);
        const Window window(handle);
        if (window.ProcessId() == owner.Running().Id() && window.Class() == L"#32770" && !window.Visible())
            found = handle;
        return TRUE;
    };
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return Window(search.found);
}

}  // namespace

TEST_CASE("the main window has its title, its controls and their texts") {
    Program program;
    CHECK(program.Main().Text() == L"Pixora");
    CHECK((program.Main().ExtendedStyle() & WS_EX_TOPMOST) != 0);
    CHECK((program.Main().ExtendedStyle() & WS_EX_ACCEPTFILES) != 0);
    struct Control {
        int id;
        const wchar_t *kind, *text;
    };
    const Control controls[] = {{kPathBox, L"Edit", L""},
                                {kBrowse, L"Button", L"..."},
                                {kReload, L"Button", L"RELOAD"},
                                {kSizeLabel, L"Static", L"Display Size"},
                                {kSizeBox, L"ComboBox", L"     100%"},
                                {kEdit, L"Button", L"EDIT"}};
    for (const Control& control : controls) {
        CAPTURE(control.id);
        CHECK(program.Item(control.id).Class() == control.kind);
        CHECK(program.Item(control.id).Text() == control.text);
        CHECK(program.Item(control.id).Visible());
        CHECK(program.Item(control.id).Enabled());
    }
    CHECK((program.Item(kPathBox).Style() & ES_READONLY) != 0);
    program.Exit();
}

TEST_CASE("the display size list has its fifteen sizes, aligned to the right") {
    Program program;
    CHECK(ComboItems(program.Item(kSizeBox)) ==
          std::vector<std::wstring>{L"       5%", L"      10%", L"      20%", L"      30%", L"      40%",
                                    L"      50%", L"      60%", L"      70%", L"      80%", L"      90%",
                                    L"     100%", L"     150%", L"     200%", L"     500%", L"    1000%"});
    CHECK(program.Item(kSizeBox).Send(CB_GETCURSEL) == 10);
    program.Exit();
}

TEST_CASE("the main menu has its entries") {
    Program program;
    std::vector<std::wstring> texts;
    for (const ProbeMenuItem& item : program.Inside().MenuBar(program.Main())) {
        if (item.separator) continue;
        std::wstring text = item.text;
        // The entries of the bar itself are known by their words alone.
        texts.push_back(std::wstring(item.depth, L'>') + (item.depth ? text : PlainText(text)));
    }
    CHECK(texts == std::vector<std::wstring>{L"File", L">Open (&O)", L">Close All Files (&C)",
                                             L">Restore Defaults  (&R)", L">>&Execute Initialize (&E)",
                                             L">Exit (&E)", L"Option", L">Viewer Option  (&V)",
                                             L">Line and Region Style (&S)", L">Main Dialog Option (&M)",
                                             L"Help", L">About Pixora (&A)"});
    program.Exit();
}

TEST_CASE("Close All Files is greyed as long as no viewer is open") {
    Program program;
    OpenMenu menu = program.OpenMainMenu(L"&File");
    CHECK(menu.Greyed(L"Close All Files (&C)"));
    CHECK_FALSE(menu.Greyed(L"Open (&O)"));
    menu.Dismiss();
    program.Open(Sample(L"bmp24-grey.bmp"));
    OpenMenu again = program.OpenMainMenu(L"&File");
    CHECK_FALSE(again.Greyed(L"Close All Files (&C)"));
    again.Dismiss();
    program.Exit();
}

TEST_CASE("Escape does nothing in the main window") {
    Program program;
    Click(program.Item(kSizeBox).Item(1001));
    PressKey(VK_ESCAPE);
    program.Open(Sample(L"bmp24-grey.bmp"));
    CHECK(program.Main().Visible());
    program.Exit();
}

TEST_CASE("the title counts the open viewers") {
    Program program;
    const Window first = program.Open(Sample(L"bmp24-grey.bmp"), 1);
    program.WaitForTitle(L"Pixora  (N=1)");
    const Window second = program.Open(Sample(L"bmp8-grey.bmp"), 2);
    program.WaitForTitle(L"Pixora  (N=2)");
    program.Close(second);
    program.WaitForTitle(L"Pixora  (N=1)");
    program.Close(first);
    program.WaitForTitle(L"Pixora");
    program.Exit();
}

TEST_CASE("the menu's Exit leaves the program") {
    Program program;
    program.OpenMainMenu(L"&File").Choose(L"Exit (&E)");
    program.CheckEnded();
}

TEST_CASE("the hidden dialog that runs the main window shows About for its system command") {
    Program program;
    const Window hidden = HiddenDialog(program);
    REQUIRE(hidden.Exists());
    CHECK(hidden.Text() == L"Pixora");
    constexpr WPARAM kAbout = 16;
    const std::vector<ProbeMenuItem> menu = program.Inside().SystemMenu(hidden);
    REQUIRE(menu.size() > 2);
    CHECK(menu[menu.size() - 2].separator != 0);
    CHECK(menu.back().id == kAbout);
    CHECK(std::wstring(menu.back().text) == L"Pixora\x306B\x3064\x3044\x3066(&A)...");
    CHECK(program.Inside().Icons(hidden) == 2);
    CHECK(program.Inside().Icons(program.Main()) == 2);
    hidden.Post(WM_SYSCOMMAND, kAbout);
    PressOk(program.Running().WaitForWindow(
        "the About box", [](const Window& window) { return window.Text() == L"About Pixora"; }));
    CHECK_FALSE(hidden.Visible());
    program.Exit();
}
