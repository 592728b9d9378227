// The About box and the splash page: what they show, and the link to the maker's page.
#include <doctest/doctest.h>

#include <algorithm>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr int kPicture = 1164, kVersion = 1165, kDescription = 1166, kSpare = 1167, kCompany = 1168,
              kBuild = 1169, kAudience = 1145, kLink = 1170;
constexpr std::uint32_t kBlue = Rgb(0, 0, 255);

constexpr wchar_t kItem[] = L"About Pixora (&A)";

Window WaitForAbout(const Program& program) {
    const Window box = program.Running().WaitForWindow("the About box", [](const Window& window) {
        return window.FindItem(kLink) && window.FindItem(IDOK);
    });
    WaitForKeyboard(box);
    return box;
}

Window OpenAbout(Program& program) {
    program.Choose(kItem);
    return WaitForAbout(program);
}

void WaitForEnd(const Program& program, const Window& box) {
    WaitFor("the About box to close", [&] { return !box.Exists(); });
    WaitFor("the main window", [&] { return program.Main().Enabled(); });
}

bool Holds(const Picture& picture, std::uint32_t colour) {
    return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
}

/// The pages that were opened in the browser so far, a line each.
std::string OpenedPages() {
    wchar_t name[MAX_PATH] = L"";
    if (!GetEnvironmentVariableW(L"PIXORA_OPENED_PAGES", name, MAX_PATH))
        throw UiError("PIXORA_OPENED_PAGES names no file in which the browser's stand-in notes its pages");
    std::wstring path = name;
    if (path.front() == L'/') path.insert(0, L"Z:");
    return ReadBytes(path);
}

/// Whether the window's texts stand one below the other in this order.
bool InOrder(const Window& window, std::initializer_list<int> ids) {
    LONG above = 0;
    for (const int id : ids) {
        const RECT place = window.Item(id).Frame();
        if (place.top < above) return false;
        above = place.bottom;
    }
    return true;
}

}  // namespace

TEST_CASE("the About box names the product and stands in the middle of the screen") {
    Program program;
    program.OpenMainMenu(L"&Help").Choose(kItem);
    const Window box = WaitForAbout(program);
    CHECK(box.Text() == L"About Pixora");
    CHECK(box.ItemText(kVersion) == L"Pixora  (Ver. 2.00)");
    CHECK(box.ItemText(kDescription) == L"Image File Viewer and Analyzer");
    CHECK(box.ItemText(kBuild) == L"Build 2026-02-10");
    CHECK(box.ItemText(kSpare) == L"");
    CHECK(box.ItemText(kCompany) == L"Zelka");
    CHECK(box.ItemText(kAudience) == L"For all ZELKA camera users");
    CHECK(box.ItemText(kLink) == L"https://www.zelka.example");
    CHECK(InOrder(box, {kPicture, kVersion, kDescription, kBuild, kCompany, kAudience, kLink}));
    CheckCentred(box);
    CHECK_FALSE(program.Main().Enabled());
    CHECK(GetWindow(box.Handle(), GW_OWNER) == program.Main().Handle());
    CHECK((box.ExtendedStyle() & WS_EX_TOPMOST) != 0);
    WaitFor("the banner to be painted", [&] { return !Uniform(program.See(box.Item(kPicture))); });
    CHECK(program.Inside().Font(box.Item(kVersion)).lfWeight == FW_BOLD);
    CHECK(program.Inside().Font(box.Item(kBuild)).lfWeight == FW_NORMAL);
    CHECK(program.Inside().Font(box.Item(kLink)).lfUnderline);
    CHECK_FALSE(program.Inside().Font(box.Item(kBuild)).lfUnderline);
    CHECK(Holds(program.See(box.Item(kLink)), kBlue));
    CHECK_FALSE(Holds(program.See(box.Item(kVersion)), kBlue));
    CHECK(Holds(program.See(box.Item(kVersion)), Rgb(0, 0, 0)));
    PressOk(box);
    WaitForEnd(program, box);
    program.Exit();
}

TEST_CASE("the link in the About box opens the maker's page, and the box stays open") {
    Program program;
    const Window box = OpenAbout(program);
    const std::string before = OpenedPages();
    Click(box.Item(kLink));
    WaitFor("the page", [&] { return OpenedPages() == before + "https://www.zelka.example/\n"; });
    CHECK(box.Visible());
    CHECK(box.Enabled());
    CHECK(Holds(program.See(box.Item(kLink)), kBlue));
    // Other texts are no links.
    Click(box.Item(kAudience));
    Click(box.Item(kLink));
    WaitFor("the page again", [&] {
        return OpenedPages() == before + "https://www.zelka.example/\nhttps://www.zelka.example/\n";
    });
    PressOk(box);
    WaitForEnd(program, box);
    program.Exit();
}

TEST_CASE("the About box closes by Enter, by Escape and by its close button") {
    Program program;
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        const Window box = OpenAbout(program);
        PressKey(key);
        WaitForEnd(program, box);
    }
    const Window box = OpenAbout(program);
    ClickCloseButton(box);
    WaitForEnd(program, box);
    CHECK(program.Running().Windows() == std::vector<Window>{program.Main()});
    program.Exit();
}

TEST_CASE("the splash page shows the banner and the product's name in bold") {
    DeleteDataFolder();
    WriteSettings({});
    const Process process(QuotedProgram());
    SetWatch([&] { process.CheckAlive(); });
    const Window splash = process.WaitForWindow("the splash page", IsSplash);
    // It is gone in two seconds: first what needs the program, then what can be compared at leisure.
    Probe probe(splash);
    WaitFor("the splash page's texts", [&] { return !splash.ItemText(kCompany).empty(); });
    const LONG version_weight = probe.Font(splash.Item(kVersion)).lfWeight;
    const LONG build_weight = probe.Font(splash.Item(kBuild)).lfWeight;
    Picture banner = probe.Capture(splash.Item(kPicture));
    WaitFor("the banner to be painted",
            [&] { return !Uniform(banner = probe.Capture(splash.Item(kPicture))); });
    const bool in_order = InOrder(splash, {kPicture, kVersion, kBuild, kDescription, kCompany});
    const RECT frame = splash.Frame();
    const LONG_PTR style = splash.Style(), extended = splash.ExtendedStyle();
    HWND owner = GetWindow(splash.Handle(), GW_OWNER);
    PressKey(VK_ESCAPE);  // the hurried one
    WaitFor("the splash page to close", [&] { return !splash.Exists(); });
    CHECK(version_weight == FW_BOLD);
    CHECK(build_weight == FW_NORMAL);
    CHECK(in_order);
    CHECK((style & WS_CAPTION) != WS_CAPTION);
    CHECK((extended & WS_EX_TOPMOST) != 0);
    CHECK(owner == nullptr);
    CHECK(frame.left == (GetSystemMetrics(SM_CXSCREEN) - (frame.right - frame.left)) / 2);
    CHECK(frame.top == (GetSystemMetrics(SM_CYSCREEN) - (frame.bottom - frame.top)) / 2);
    const Window main = process.WaitForWindow("the main window", IsMainWindow);
    SetWatch(nullptr);
    main.Post(WM_CLOSE);
    CHECK(process.WaitForEnd() == 0);
}
