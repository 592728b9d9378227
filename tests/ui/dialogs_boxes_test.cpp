// The message windows: what they show, which keys close them, and where they stand.
#include <doctest/doctest.h>

#include <array>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr int kLine1 = 1053, kLine2 = 1051, kLine3 = 1052, kCancel = 1314, kNoticeLine = 1067;
constexpr int kQuestion1 = 1079, kQuestion2 = 1081, kQuestion3 = 1080;
constexpr int kRange1 = 1308, kRange2 = 1310, kRange3 = 1309;

/// A process that shows one message window with these texts.
class Host {
public:
    Host(const std::wstring& kind, const std::vector<std::wstring>& texts)
        : process_(Path(), Line(kind, texts)) {
        SetWatch([this] { process_.CheckAlive(); });
        box_ = process_.WaitForWindow("the message window",
                                      [](const Window& window) { return window.Class() == L"#32770"; });
        CHECK((box_.ExtendedStyle() & WS_EX_TOPMOST) != 0);
        WaitForKeyboard(box_);
    }
    ~Host() { SetWatch(nullptr); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    [[nodiscard]] const Window& Box() const { return box_; }
    [[nodiscard]] const Process& Running() const { return process_; }
    /// Waits until the process has ended and returns its exit code.
    DWORD WaitForEnd() const {
        SetWatch(nullptr);
        return process_.WaitForEnd();
    }

private:
    static std::filesystem::path Path() { return ProbePath().parent_path() / L"pixora_ui_dialogs.exe"; }
    static std::wstring Line(const std::wstring& kind, const std::vector<std::wstring>& texts) {
        std::wstring line = L'"' + Path().wstring() + L"\" " + kind;
        for (const std::wstring& text : texts) line += L" \"" + text + L'"';
        return line;
    }

    Process process_;
    Window box_;
};

/// The top of a control in its window's client area.
LONG TopOf(const Window& box, int id) {
    return box.Item(id).Frame().top - box.Client().top;
}

/// The left edge of a control in its window's client area, its width and its height.
std::array<LONG, 3> LeftAndSizeOf(const Window& box, int id) {
    const RECT frame = box.Item(id).Frame();
    return {frame.left - box.Client().left, frame.right - frame.left, frame.bottom - frame.top};
}

/// The text of a control that can be seen.
std::wstring ShownText(const Window& box, int id) {
    return box.Item(id).Visible() ? box.ItemText(id) : L"(hidden)";
}

}  // namespace

TEST_CASE("the error box shows its lines beside its symbol and closes by every usual key") {
    Program program;
    const std::filesystem::path file = ScratchFile(L"text.txt", "This is no image.");
    for (const int key : {VK_RETURN, VK_ESCAPE, VK_SPACE, 0}) {
        CAPTURE(key);
        program.Drop({file});
        const Window box = WaitForErrorBox(program);
        CHECK(ReadErrorBox(box) == ErrorTexts{L"Pixora  : Error   ", L"File: text.txt",
                                              L"This is an unsupported or invalid image file.", L""});
        CHECK(LOWORD(box.Send(DM_GETDEFID)) == IDOK);
        CHECK(GetWindow(box.Handle(), GW_OWNER) == program.Main().Handle());
        CHECK_FALSE(program.Main().Enabled());
        WaitForKeyboard(box);
        if (key == 0)
            ClickCloseButton(box);
        else
            PressKey(static_cast<WORD>(key));
        WaitFor("the box to close", [&] { return !box.Exists(); });
        WaitFor("the main window", [&] { return program.Main().Enabled(); });
    }
    program.Exit();
}

TEST_CASE("a question is accepted by OK alone: Enter on it, not on CANCEL, and not by closing") {
    const std::vector<std::wstring> texts = {L": Confirmation", L"Really?", L"", L""};
    {
        const Host host(L"question", texts);
        CHECK(host.Box().Text() == L"Pixora : Confirmation");
        CHECK(ShownText(host.Box(), kQuestion1) == L"Really?");
        CHECK(host.Box().ItemText(IDOK) == L"OK");
        CHECK(host.Box().ItemText(kCancel) == L"CANCEL");
        CHECK(LOWORD(host.Box().Send(DM_GETDEFID)) == IDOK);
        CheckCentred(host.Box());
        PressKey(VK_RETURN);
        CHECK(host.WaitForEnd() == 1);
    }
    {
        const Host host(L"question", texts);
        PressKey(VK_TAB);
        PressKey(VK_RETURN);
        CHECK(host.WaitForEnd() == 0);
    }
    {
        const Host host(L"question", texts);
        PressKey(VK_ESCAPE);
        CHECK(host.WaitForEnd() == 0);
    }
    {
        const Host host(L"question", texts);
        ClickCloseButton(host.Box());
        CHECK(host.WaitForEnd() == 0);
    }
}

TEST_CASE("the message windows place three lines, and move them up when the first one is empty") {
    std::array<std::array<LONG, 3>, 2> left_and_size{};
    {
        const Host host(L"error", {L" : Error", L"one", L"two", L"three"});
        left_and_size = {LeftAndSizeOf(host.Box(), kLine2), LeftAndSizeOf(host.Box(), kLine3)};
        CHECK(ReadErrorBox(host.Box()) == ErrorTexts{L"Pixora  : Error   ", L"one", L"two", L"three"});
        CHECK(TopOf(host.Box(), kLine1) < TopOf(host.Box(), kLine2));
        CHECK(TopOf(host.Box(), kLine2) < TopOf(host.Box(), kLine3));
        PressKey(VK_RETURN);
        CHECK(host.WaitForEnd() == 0);
    }
    {
        const Host host(L"error", {L" : Error", L"", L"two", L"three"});
        CHECK(ShownText(host.Box(), kLine1) == L"(hidden)");
        CHECK(TopOf(host.Box(), kLine2) == 20);
        CHECK(TopOf(host.Box(), kLine3) == 45);
        CHECK(LeftAndSizeOf(host.Box(), kLine2) == left_and_size[0]);
        CHECK(LeftAndSizeOf(host.Box(), kLine3) == left_and_size[1]);
        PressKey(VK_RETURN);
        CHECK(host.WaitForEnd() == 0);
    }
    {
        const Host host(L"information", {L": Information", L"", L"two", L"three"});
        CHECK(host.Box().Text() == L"Pixora : Information");
        CheckCentred(host.Box());
        CHECK(TopOf(host.Box(), kLine1) == 0);
        CHECK(TopOf(host.Box(), kLine2) == 15);
        CHECK(TopOf(host.Box(), kLine3) == 35);
        PressKey(VK_ESCAPE);
        CHECK(host.WaitForEnd() == 0);
    }
    const Host host(L"question", {L": Confirmation", L"", L"two", L"three"});
    CHECK(TopOf(host.Box(), kQuestion1) == 0);
    CHECK(TopOf(host.Box(), kQuestion2) == 15);
    CHECK(TopOf(host.Box(), kQuestion3) == 35);
    PressKey(VK_ESCAPE);
    CHECK(host.WaitForEnd() == 0);
}

TEST_CASE("a message window that is not to be centred stays where the system puts it") {
    const std::vector<std::wstring> texts = {L" : Error", L"one", L"two", L"three"};
    for (const wchar_t* kind : {L"error-here", L"information-here", L"question-here", L"notice-here"}) {
        CAPTURE(std::wstring(kind));
        const Host host(kind, texts);
        const RECT frame = host.Box().Frame();
        // Far from the middle of the screen.
        CHECK(frame.right < GetSystemMetrics(SM_CXSCREEN) / 2);
        CHECK(frame.bottom < GetSystemMetrics(SM_CYSCREEN) / 2);
        ClickCloseButton(host.Box());
        CHECK(host.WaitForEnd() == 0);
    }
}

TEST_CASE("a number out of its range is refused in words of its own, its case told the wrong way round") {
    struct Case {
        std::vector<std::wstring> input;
        const wchar_t *caption, *line1, *line3;
    };
    // Kind, mode, input, both limits, name.
    const Case cases[] = {
        {{L"1", L"1", L"4", L"5", L"9", L"Left"},
         L"Pixora (Error)",
         L"Error: Input value (4)",
         L"The value must be equal or smaller than \"5\"."},
        {{L"2", L"2", L"10", L"5", L"9", L"Left"},
         L"Pixora (Warning)",
         L"Error found",
         L"The value must be equal or larger than \"9\"."},
        {{L"2", L"4", L"7", L"-5", L"9", L"Left"},
         L"Pixora (Warning)",
         L"Error found",
         L"The value must be between \"-5\" and \"9\"."},
        {{L"1", L"3", L"-7", L"5", L"9", L"Left"}, L"Pixora (Error)", L"Error: Input value (-7)", L""},
    };
    for (const Case& each : cases) {
        CAPTURE(std::wstring(each.line1));
        const Host host(L"range", each.input);
        CHECK(host.Box().Text() == each.caption);
        CHECK(host.Box().ItemText(kRange1) == each.line1);
        CHECK(host.Box().ItemText(kRange2) == L"Item: Left");
        CHECK(host.Box().ItemText(kRange3) == each.line3);
        CHECK(TopOf(host.Box(), kRange1) < TopOf(host.Box(), kRange2));
        CHECK(TopOf(host.Box(), kRange2) < TopOf(host.Box(), kRange3));
        CHECK(LOWORD(host.Box().Send(DM_GETDEFID)) == IDOK);
        PressKey(VK_RETURN);
        CHECK(host.WaitForEnd() == 0);
    }
}

TEST_CASE("what fails unexpectedly in a window is told, and the window goes on") {
    const Host host(L"failing", {});
    for (int time = 0; time < 2; ++time) {
        CAPTURE(time);
        PressKey(VK_RETURN);
        const Window box = host.Running().WaitForPlainBox(L"The operation could not be completed.");
        CHECK(box.Text() == L"");
        CHECK_FALSE(host.Box().Enabled());
        PressOk(box);
        WaitForKeyboard(host.Box());
        CHECK(host.Box().Enabled());
    }
    PressKey(VK_ESCAPE);
    CHECK(host.WaitForEnd() == 0);
}

TEST_CASE("a notice closes by itself after its time, or earlier by its close button") {
    {
        const long long started = Now_ms();
        const Host host(L"notice", {L"Saved."});
        CHECK(host.Box().Text() == L"Pixora : Infomation");
        CHECK(host.Box().ItemText(kNoticeLine) == L"Saved.");
        CheckCentred(host.Box());
        CHECK(host.WaitForEnd() == 0);
        CHECK(Now_ms() - started >= 1500);
    }
    const Host host(L"notice", {L"Saved."});
    ClickCloseButton(host.Box());
    CHECK(host.WaitForEnd() == 0);
}
