// The histogram view under a person's hands: level cursor, keys, clicks and the export.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/histogram_view.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

/// A viewer of one image and its histogram beside it.
struct Bench {
    Program program;
    Window viewer, view;

    explicit Bench(const std::filesystem::path& file, const SettingValues& settings = {})
        : program({.settings = settings}),
          viewer(program.Open(file)),
          view(OpenView(program, viewer, kViewHistogram)) {
        MoveTo(view, {500, 10});
    }

    void Push(int button, const std::wstring& level) const {
        Click(view.Item(button));
        WaitForText(view, kHistLevel, level);
    }
    /// Clicks in a column counted from the plot's left edge.
    void ClickPlot(int x, const std::wstring& level) const {
        const RECT plot = view.Item(kHistPlot).Frame();
        const POINT at{plot.left + x, plot.top + 40};
        PointAt(at);
        ClickAt(at);
        WaitForText(view, kHistLevel, level);
    }
    [[nodiscard]] int PlotWidth() const {
        const RECT plot = view.Item(kHistPlot).Frame();
        return plot.right - plot.left;
    }
    void Type(std::wstring_view text) const {
        TypeInto(view.Item(kHistLevel), text);
        WaitForText(view, kHistLevel, std::wstring(text));
    }
    void WaitForLevel(const std::wstring& level, const std::wstring& frequency) const {
        WaitForText(view, kHistLevel, level);
        WaitForText(view, kHistFrequency, L"Freq. = " + frequency + L" (at " + level + L")");
    }
    /// Checks the box that refuses an entry, and closes it by `close`.
    template <typename Close>
    void Refused(const std::wstring& typed, const std::wstring& range, Close close) const {
        const Window box = WaitForRangeBox(program);
        CHECK(ReadRangeBox(box) == ErrorTexts{L"Pixora (Error)", L"Error: Input value (" + typed + L")",
                                              L"Item: Level cursor position", range});
        CHECK_FALSE(view.Enabled());
        CHECK(viewer.Enabled());
        close(box);
        WaitFor("the view", [&] { return view.Enabled(); });
    }
    /// A point of the screen, counted from the plot's left and bottom edge.
    [[nodiscard]] POINT UnderPlot(int x, int y) const {
        const RECT plot = view.Item(kHistPlot).Frame();
        return {plot.left + x, plot.bottom + y};
    }
    /// The second of two fast clicks in a column of the plot.
    void ClickTwice(int x, const std::wstring& level) const {
        const RECT client = view.Client();
        const POINT at = UnderPlot(x, -40);
        view.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x - client.left, at.y - client.top));
        WaitForText(view, kHistLevel, level);
    }
    [[nodiscard]] FileDialog OpenExport() {
        const POINT at = UnderPlot(40, -40);
        PointAt(at);
        ClickAt(at, Button::right);
        return ChooseExport();
    }
    /// As the keyboard asks for the menu while the view itself has the focus.
    [[nodiscard]] FileDialog OpenExportByKeyboard() {
        view.Post(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view.Handle()), -1);
        return ChooseExport();
    }
    [[nodiscard]] FileDialog ChooseExport() {
        OpenMenu menu(program.Running(), program.Inside());
        CHECK(menu.Items().size() == 1);
        menu.Choose(L"&Export to CSV file");
        return FileDialog(program.Running());
    }
    void DismissNotice() const {
        const Window notice = WaitForNotice(program);
        CHECK(notice.Text() == L"Pixora : Information");
        CHECK(NoticeText(notice) == L"CSV file has been saved.");
        PressOk(notice);
        WaitFor("the view", [&] { return view.Enabled(); });
    }
};

constexpr wchar_t kByteRange[] = L"The value must be between \"0\" and \"255\".";

}  // namespace

TEST_CASE("the level is moved by buttons, clicks and arrow keys, to both ends of its range") {
    Bench bench(ThreeLevelsFile());
    bench.WaitForLevel(L"128", L"0");
    bench.Push(kHistUp, L"129");
    bench.Push(kHistDown, L"128");
    bench.Push(kHistDown, L"127");
    bench.Push(kHistCentre, L"128");
    bench.ClickPlot(-5, L"0");
    bench.WaitForLevel(L"0", L"96");
    WaitFor("the cursor beside the left edge",
            [&] { return HistogramPicture(bench.program, bench.view).IsCursorColumn(1); });
    Click(bench.view.Item(kHistDown));  // stays at 0
    ClickAt(bench.UnderPlot(60, 6));    // not in the plot
    bench.Push(kHistUp, L"1");
    bench.ClickPlot(bench.PlotWidth() + 6, L"255");
    bench.WaitForLevel(L"255", L"48");
    Click(bench.view.Item(kHistUp));  // stays at 255
    bench.Push(kHistDown, L"254");
    bench.ClickPlot(bench.PlotWidth() / 4 + 1, L"64");
    bench.WaitForLevel(L"64", L"48");
    bench.ClickTwice(bench.PlotWidth() + 6, L"255");
    bench.ClickTwice(bench.PlotWidth() / 4 + 1, L"64");

    // The menu is the plot's: beside it the right button opens none, which would take the key.
    ClickAt(bench.UnderPlot(40, 6), Button::right);
    PressKey(VK_RIGHT);
    bench.WaitForLevel(L"65", L"0");
    PressKey(VK_RIGHT);
    bench.WaitForLevel(L"66", L"0");
    PressKey(VK_LEFT);
    bench.WaitForLevel(L"65", L"0");
    // None of these does anything; the next arrow shows that they have been served.
    for (const int key : {VK_UP, VK_DOWN, VK_ESCAPE}) PressKey(static_cast<WORD>(key));
    PressKey(VK_LEFT);
    bench.WaitForLevel(L"64", L"48");
    CHECK(bench.view.Visible());
    bench.program.Exit();
}

TEST_CASE("a typed level is applied by ENTER and by the Enter key, and refused out of its range") {
    Bench bench(ThreeLevelsFile());
    const auto by_button = [](const Window& box) { PressOk(box); };
    const auto by_enter = [](const Window& box) {
        WaitForKeyboard(box);
        PressKey(VK_RETURN);
        WaitFor("the box to close", [&] { return !box.Exists(); });
    };
    bench.Type(L"64");
    Click(bench.view.Item(kHistEnter));
    bench.WaitForLevel(L"64", L"48");
    bench.Type(L"0255");
    PressKey(VK_RETURN);
    bench.WaitForLevel(L"255", L"48");
    bench.Type(L"256");
    Click(bench.view.Item(kHistEnter));
    bench.Refused(L"256", kByteRange, by_button);
    bench.WaitForLevel(L"255", L"48");
    // The Enter that closes the box is released over the view and must not apply anything there.
    bench.Type(L"1.5");
    PressKey(VK_RETURN);
    bench.Refused(L"1.5", L"", by_enter);
    bench.WaitForLevel(L"255", L"48");
    bench.Type(L"0");
    PressKey(VK_RETURN);
    bench.WaitForLevel(L"0", L"96");
    bench.Type(L"-7");
    PressKey(VK_RETURN);
    bench.Refused(L"-7", L"", by_button);
    bench.WaitForLevel(L"0", L"96");
    bench.program.Exit();
}

TEST_CASE("clicks reach the levels of the valid bits, and the range is theirs") {
    Bench bench(Sample(L"tiff16-mono-upper12.tif"));
    WaitForText(bench.view, kHistLevel, L"2048");
    bench.ClickPlot(bench.PlotWidth() + 6, L"4095");
    Click(bench.view.Item(kHistUp));
    bench.Push(kHistDown, L"4094");
    bench.ClickPlot(0, L"0");
    bench.Type(L"4096");
    PressKey(VK_RETURN);
    bench.Refused(L"4096", L"The value must be between \"0\" and \"4095\".",
                  [](const Window& box) { PressOk(box); });
    bench.program.Exit();
}

TEST_CASE("a histogram is exported through the save dialog, or not at all") {
    const std::filesystem::path folder = FreshScratchFolder(), other = folder / L"other";
    const std::filesystem::path file = OneColourFile();
    std::filesystem::create_directories(other);
    Bench bench(file, {{L"PATH_CSV", folder.wstring() + L"\\"}});
    {
        const FileDialog dialog = bench.OpenExport();
        CHECK(dialog.Name().ends_with(L"one.colour_HIS(R).csv"));
        CHECK(dialog.Types() == std::vector<std::wstring>{L"All Files(*.*)", L"CSV Files(*.csv)"});
        CHECK_FALSE(bench.view.Enabled());
        dialog.Cancel();
    }
    WaitFor("the view", [&] { return bench.view.Enabled(); });
    CHECK_FALSE(std::filesystem::exists(folder / L"one.colour_HIS(R).csv"));
    CHECK(StoredSetting(L"PATH_CSV") == folder.wstring() + L"\\");

    for (const wchar_t* channel : {L"G", L"B", L"RGB"}) {
        Click(bench.view.Item(kHistChannel));
        WaitForText(bench.view, kHistChannel, channel);
    }
    {
        const FileDialog dialog = bench.OpenExport();
        CHECK(dialog.Name().ends_with(L"one.colour_HIS(RGB).csv"));
        dialog.Accept((other / L"mine").wstring());
    }
    bench.DismissNotice();
    std::string expected = "Value,Freq (R),Freq (G),Freq (B)\r\n";
    for (int level = 0; level < 256; ++level)
        expected += std::to_string(level) + (level == 200 ? ",24" : ",0") + (level == 120 ? ",24" : ",0") +
                    (level == 40 ? ",24" : ",0") + "\r\n";
    CHECK(ReadBytes(other / L"mine.csv") == expected);
    CHECK(StoredSetting(L"PATH_CSV") == other.wstring() + L"\\");
    bench.OpenExportByKeyboard().Accept(L"second");  // the dialog starts where the first one was saved
    bench.DismissNotice();
    CHECK(ReadBytes(other / L"second.csv") == expected);
    bench.program.Exit();
}

TEST_CASE("an export that cannot be written says nothing and changes nothing") {
    const std::filesystem::path folder = FreshScratchFolder(), other = folder / L"other";
    std::filesystem::create_directories(other);
    const std::filesystem::path file = ThreeLevelsFile(), kept = other / L"kept.csv";
    WriteBytes(kept, "mine");
    SetReadOnly(kept, true);
    Bench bench(file, {{L"PATH_CSV", folder.wstring() + L"\\"}});
    const FileDialog dialog = bench.OpenExport();
    dialog.Box().Item(1148).SetText(kept.wstring());
    Click(dialog.Box().Item(IDOK));
    const Window question = bench.program.Running().WaitForWindow(
        "the question about overwriting",
        [](const Window& window) { return window.FindItem(IDYES) && window.FindItem(IDNO); });
    Click(question.Item(IDYES));
    // The main window, the viewer and the view are left, and the view can be used: no box has come up.
    WaitFor("the view alone",
            [&] { return bench.view.Enabled() && bench.program.Running().Windows().size() == 3; });
    bench.Push(kHistUp, L"129");
    CHECK(bench.program.Running().Windows().size() == 3);
    CHECK(ReadBytes(kept) == "mine");
    CHECK(StoredSetting(L"PATH_CSV") == folder.wstring() + L"\\");
    SetReadOnly(kept, false);
    std::filesystem::remove(kept);
    bench.program.Exit();
}

TEST_CASE("the file of a grey histogram has every level of the depth, whatever is drawn") {
    const std::filesystem::path folder = FreshScratchFolder();
    const std::filesystem::path file = TwelveBitsFile();
    Bench bench(file, {{L"PATH_CSV", folder.wstring() + L"\\"}, {L"IMG_SIZE", L"10.00"}});
    CHECK(bench.view.Item(kHistBinning).Checked());
    {
        const FileDialog dialog = bench.OpenExport();
        CHECK(dialog.Name().ends_with(L"twelve_HIS.csv"));
        dialog.Accept(L"levels");  // the dialog starts in the folder of the settings
    }
    bench.DismissNotice();
    std::string expected = "Value,Freq.\r\n";
    for (int level = 0; level < 4096; ++level)
        expected += std::to_string(level) +
                    (level >= 16 && level <= 19 ? ",3"
                     : level == 4095            ? ",4"
                                                : ",0") +
                    "\r\n";
    CHECK(ReadBytes(folder / L"levels.csv") == expected);
    bench.program.Exit();
}
