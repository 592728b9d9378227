// The line profile views under a person's hands: cursors, boxes, keys and the export.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/profile_view.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr std::uint32_t kViewerLine = Rgb(200, 0, 0);
constexpr int kStatChannel = 1006;

/// One colour: red 200, green 120, blue 40.
Picture OneColour(int width, int height) {
    Picture picture(width, height);
    for (std::uint32_t& pixel : picture.pixels) pixel = Rgb(200, 120, 40);
    return picture;
}

/// A viewer of 6 x 4 pixels of one colour at 1000 %, and one view of it.
struct Bench {
    Program program;
    Window viewer, view;

    explicit Bench(int command, const SettingValues& settings = {})
        : program({.settings = With(settings)}),
          viewer(program.Open(ScratchFile(L"one.colour.bmp", BmpBytes(OneColour(6, 4), 24)))),
          view(OpenView(program, viewer, command)) {
        MoveTo(view, {400, 10});
    }

    /// Presses a button and waits for what a box then shows.
    void Push(int button, int box, const std::wstring& text) const {
        pixora::ui::Push(view, button);
        WaitForText(view, box, text);
    }
    /// Types into a box and enters it.
    void Enter(int box, std::wstring_view text) const {
        TypeInto(view.Item(box), text);
        WaitForText(view, box, std::wstring(text));
        PressKey(VK_RETURN);
    }
    /// Checks the box that refuses an entry, and closes it.
    void Refused(const std::wstring& typed, const std::wstring& item, const std::wstring& range) const {
        const Window box = WaitForRangeBox(program);
        CHECK(ReadRangeBox(box) ==
              ErrorTexts{L"Pixora (Error)", L"Error: Input value (" + typed + L")", L"Item: " + item, range});
        CHECK_FALSE(view.Enabled());
        CHECK(viewer.Enabled());
        PressOk(box);
        WaitFor("the view", [&] { return view.Enabled(); });
    }
    [[nodiscard]] POINT InPlot(int x, int y) const {
        const RECT plot = view.Item(kPlot).Frame();
        return {plot.left + x, plot.top + y};
    }
    [[nodiscard]] int PlotWidth() const {
        const RECT plot = view.Item(kPlot).Frame();
        return plot.right - plot.left;
    }
    [[nodiscard]] int PlotHeight() const {
        const RECT plot = view.Item(kPlot).Frame();
        return plot.bottom - plot.top;
    }
    void ClickPlot(int x, int y, const std::wstring& level) const {
        const POINT at = InPlot(x, y);
        PointAt(at);
        ClickAt(at);
        WaitForText(view, kLevel, level);
    }

    /// The second of two fast clicks in the plot.
    void ClickTwice(int x, int y, const std::wstring& level) const {
        const RECT client = view.Client();
        const POINT at = InPlot(x, y);
        view.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x - client.left, at.y - client.top));
        WaitForText(view, kLevel, level);
    }

    /// Waits until the plot of red 200 has its level cursor there.
    void WaitForLevelLine(int level) {
        const std::uint32_t pen = level == 0 ? Rgb(128, 128, 128) : kLevelPenOverRed;  // 0 lies on the frame
        WaitForPlot(program, view,
                    PlotPicture(view, kRowTint, 6, 1).Flat(200, kRedPen).LevelCursor(level, pen));
    }

private:
    static SettingValues With(SettingValues settings) {
        settings[L"IMG_SIZE"] = L"10.00";
        return settings;
    }
};

constexpr wchar_t kLineRange[] = L"Profile line number", kLevelRange[] = L"Level cursor position";

}  // namespace

TEST_CASE("the buttons of the line cursor move a row up and down, to the ends and to the middle") {
    Bench bench(kViewHProfile);
    WaitForText(bench.view, kLine, L"1");
    bench.Push(kLineUp, kLine, L"0");
    Push(bench.view, kLineUp);  // stays at the top
    bench.Push(kLineDown, kLine, L"1");
    bench.Push(kLineDown, kLine, L"2");
    bench.Push(kLineDown, kLine, L"3");
    Push(bench.view, kLineDown);  // stays at the bottom
    bench.Push(kLineUp, kLine, L"2");
    bench.Push(kLineCentre, kLine, L"1");
    Picture shown = Enlarged(OneColour(6, 4), 10);
    const Picture plain = shown;
    DrawAcross(shown, 15, 0, 60, kViewerLine);
    WaitToSee(bench.program, bench.viewer, shown);

    // Hidden, the line cannot be moved by its own controls, nor is its box entered; a level still is.
    TypeInto(bench.view.Item(kLine), L"9");
    TypeInto(bench.view.Item(kLevel), L"007");
    WaitForText(bench.view, kLevel, L"007");
    Click(bench.view.Item(kCursor));
    WaitForText(bench.view, kCursor, L"CURSOR ON");
    WaitToSee(bench.program, bench.viewer, plain);
    for (const int control : {kLine, kLineUp, kLineDown, kLineCentre})
        CHECK_FALSE(bench.view.Item(control).Enabled());
    CHECK(bench.view.Item(kLevel).Enabled());
    bench.view.Command(kLineDown);
    PressKey(VK_RETURN);
    WaitForText(bench.view, kLevel, L"7");
    Click(bench.view.Item(kCursor));
    WaitForText(bench.view, kCursor, L"CURSOR OFF");
    WaitToSee(bench.program, bench.viewer, shown);
    for (const int control : {kLine, kLineUp, kLineDown, kLineCentre})
        CHECK(bench.view.Item(control).Enabled());
    bench.program.Exit();
}

TEST_CASE("the buttons of the line cursor move a column to the right and to the left") {
    Bench bench(kViewVProfile);
    WaitForText(bench.view, kLine, L"2");
    bench.Push(kLineUp, kLine, L"3");
    bench.Push(kLineUp, kLine, L"4");
    bench.Push(kLineUp, kLine, L"5");
    Push(bench.view, kLineUp);
    bench.Push(kLineDown, kLine, L"4");
    for (const wchar_t* line : {L"3", L"2", L"1", L"0"}) bench.Push(kLineDown, kLine, line);
    Push(bench.view, kLineDown);
    bench.Push(kLineUp, kLine, L"1");
    bench.Push(kLineCentre, kLine, L"2");
    Picture shown = Enlarged(OneColour(6, 4), 10);
    DrawDown(shown, 25, 0, 40, kViewerLine);
    WaitToSee(bench.program, bench.viewer, shown);
    bench.program.Exit();
}

TEST_CASE("the level cursor is stepped, centred, clicked, hidden and shown") {
    Bench bench(kViewHProfile);
    const PlotPicture plot = PlotPicture(bench.view, kRowTint, 6, 1).Flat(200, kRedPen);
    const auto wait_for_level = [&](int level) {
        WaitForText(bench.view, kLevel, std::to_wstring(level));
        bench.WaitForLevelLine(level);
    };
    wait_for_level(128);
    Push(bench.view, kLevelUp);
    wait_for_level(129);
    Push(bench.view, kLevelDown);
    Push(bench.view, kLevelDown);
    wait_for_level(127);

    // A click takes the level at its height; the largest one is at the top.
    const int middle = bench.PlotWidth() / 2, height = bench.PlotHeight();
    bench.ClickPlot(middle, 0, L"255");
    wait_for_level(255);
    Push(bench.view, kLevelUp);  // stays at the top
    bench.Push(kLevelDown, kLevel, L"254");
    bench.ClickPlot(middle, height / 2, std::to_wstring(255 - height / 2 * 256 / (height - 2)));
    bench.ClickPlot(middle, height - 1, L"0");
    wait_for_level(0);
    Push(bench.view, kLevelDown);  // stays at the bottom
    bench.Push(kLevelUp, kLevel, L"1");
    bench.Push(kLevelCentre, kLevel, L"128");
    // Above and below the plot the ends of the range; beside it nothing.
    bench.ClickPlot(0, -4, L"255");
    ClickAt(bench.InPlot(-1, height / 2));
    ClickAt(bench.InPlot(bench.PlotWidth(), height / 2));
    Click(bench.view.Item(kLevelDown));
    WaitForText(bench.view, kLevel, L"254");
    bench.ClickPlot(bench.PlotWidth() - 1, height + 3, L"0");
    bench.ClickTwice(middle, 0, L"255");

    // Hidden, the level is still entered.
    TypeInto(bench.view.Item(kLevel), L"090");
    WaitForText(bench.view, kLevel, L"090");
    Click(bench.view.Item(kLevelOn));
    WaitForText(bench.view, kLevelOn, L"ON");
    WaitForPlot(bench.program, bench.view, plot);
    CHECK_FALSE(bench.view.Item(kLevel).Enabled());
    PressKey(VK_RETURN);
    WaitForText(bench.view, kLevel, L"90");
    Click(bench.view.Item(kLevelOn));
    WaitForText(bench.view, kLevelOn, L"OFF");
    wait_for_level(90);
    CHECK(bench.view.Item(kLevel).Enabled());
    bench.program.Exit();
}

TEST_CASE("the settings of level cursor and caption decide how a profile view begins") {
    Bench bench(kViewVProfile, {{L"LVL_CURSOR", L"OFF"}, {L"CAP_STYLE", L"FULL"}});
    const std::wstring path = (ScratchFolder() / L"one.colour.bmp").wstring();
    CHECK(bench.view.Text() == L"V-Profile View - " + path + L" [1]");
    CHECK(bench.view.ItemText(kLevelOn) == L"ON");
    CHECK_FALSE(bench.view.Item(kLevel).Enabled());
    CHECK(bench.view.ItemText(kLevel) == L"128");
    WaitForPlot(bench.program, bench.view, PlotPicture(bench.view, kColumnTint, 4, 1).Flat(200, kRedPen));
    bench.program.Exit();
}

TEST_CASE("typed lines and levels are taken on Enter, and refused ones leave the last value") {
    Bench bench(kViewHProfile);
    bench.Enter(kLine, L"03");
    WaitForText(bench.view, kLine, L"3");
    bench.Enter(kLine, L"4");
    bench.Refused(L"4", kLineRange, L"The value must be between \"0\" and \"3\".");
    WaitForText(bench.view, kLine, L"3");
    bench.Enter(kLine, L"two");
    bench.Refused(L"two", kLineRange, L"");
    WaitForText(bench.view, kLine, L"3");
    bench.Enter(kLevel, L"255");
    bench.WaitForLevelLine(255);
    Push(bench.view, kLevelUp);
    bench.Push(kLevelDown, kLevel, L"254");
    bench.Enter(kLevel, L"-1");
    bench.Refused(L"-1", kLevelRange, L"");
    WaitForText(bench.view, kLevel, L"254");

    // The button enters the level alone.
    TypeInto(bench.view.Item(kLine), L"9");
    TypeInto(bench.view.Item(kLevel), L"256");
    Click(bench.view.Item(kLevelEnter));
    bench.Refused(L"256", kLevelRange, L"The value must be between \"0\" and \"255\".");
    WaitForText(bench.view, kLevel, L"254");
    CHECK(bench.view.ItemText(kLine) == L"9");
    TypeInto(bench.view.Item(kLevel), L"17");
    Click(bench.view.Item(kLevelEnter));
    bench.WaitForLevelLine(17);
    bench.Push(kLevelUp, kLevel, L"18");

    // Enter takes both; each refusal has its own box, also one that Enter closes.
    TypeInto(bench.view.Item(kLevel), L"");
    PressKey(VK_RETURN);
    const Window box = WaitForRangeBox(bench.program);
    CHECK(ReadRangeBox(box).line2 == std::wstring(L"Item: ") + kLineRange);
    WaitForKeyboard(box);
    PressKey(VK_RETURN);
    WaitFor("the first box to close", [&] { return !box.Exists(); });
    bench.Refused(L"", kLevelRange, L"");
    WaitForText(bench.view, kLine, L"3");
    WaitForText(bench.view, kLevel, L"18");
    TypeInto(bench.view.Item(kLine), L"0");
    bench.Enter(kLevel, L"90");
    bench.WaitForLevelLine(90);
    bench.Push(kLineDown, kLine, L"1");
    bench.Push(kLevelUp, kLevel, L"91");
    bench.program.Exit();
}

TEST_CASE("the arrow keys step the level, and the other keys of a plot do nothing to it") {
    Bench bench(kViewVProfile);
    const Window line = bench.view.Item(kLine);
    Click(line);
    WaitForKeyboard(line);
    PressKey(VK_UP);
    WaitForText(bench.view, kLevel, L"129");
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    WaitForText(bench.view, kLevel, L"127");
    for (const WORD key : {WORD{VK_LEFT}, WORD{VK_RIGHT}, WORD{VK_ESCAPE}}) PressKey(key);
    // In a box the sideways arrows move the caret.
    PressKey(VK_END);
    PressKey(VK_LEFT);
    TypeText(L"1");
    WaitForText(bench.view, kLine, L"12");
    PressKey(VK_UP);
    WaitForText(bench.view, kLevel, L"128");
    WaitForText(bench.view, kLine, L"12");
    CHECK(bench.view.Visible());
    bench.program.Exit();
}

TEST_CASE("the channel button is shared by the views of a viewer and chooses what is plotted") {
    Bench bench(kViewHProfile);
    const Window column = OpenView(bench.program, bench.viewer, kViewVProfile);
    MoveTo(column, {1000, 10});
    const Window statistics = OpenStatistics(bench.program, bench.viewer);
    MoveTo(statistics, {400, 500});
    const PlotPicture row = PlotPicture(bench.view, kRowTint, 6, 1);
    const PlotPicture down = PlotPicture(column, kColumnTint, 4, 1);
    const auto wait_for = [&](const wchar_t* caption, const auto& draw,
                              std::uint32_t cursor = kLevelPenOverRed) {
        WaitForText(bench.view, kProfileChannel, caption);
        WaitForText(column, kProfileChannel, caption);
        WaitForText(statistics, kStatChannel, caption);
        WaitForPlot(bench.program, bench.view, draw(PlotPicture(row)).LevelCursor(128, cursor));
        WaitForPlot(bench.program, column, draw(PlotPicture(down)).LevelCursor(128, cursor));
    };
    wait_for(L"R", [](PlotPicture plot) { return plot.Flat(200, kRedPen); });
    Click(bench.view.Item(kProfileChannel));
    wait_for(
        L"G", [](PlotPicture plot) { return plot.Flat(120, kGreenPen); }, kLevelPen);
    Click(column.Item(kProfileChannel));
    wait_for(
        L"B", [](PlotPicture plot) { return plot.Flat(40, kBluePen); }, kLevelPen);
    Click(column.Item(kProfileChannel));
    wait_for(L"RGB", [](PlotPicture plot) {
        return plot.Flat(200, kRedPen).Flat(120, kGreenPen).Flat(40, kBluePen);
    });
    Click(statistics.Item(kStatChannel));
    wait_for(L"R", [](PlotPicture plot) { return plot.Flat(200, kRedPen); });
    bench.program.Exit();
}

TEST_CASE("a profile is exported to the file that the user names, and to none when the user cancels") {
    const std::filesystem::path folder = FreshScratchFolder() / L"exports";
    std::filesystem::create_directories(folder);
    Bench bench(kViewVProfile, {{L"PATH_CSV", folder.wstring() + L"\\"}});
    const auto open_dialog = [&] {
        ClickAt(bench.InPlot(40, 40), Button::right);
        OpenMenu menu(bench.program.Running(), bench.program.Inside());
        CHECK(menu.Items().size() == 1);
        menu.Choose(L"&Export to CSV file");
        return FileDialog(bench.program.Running());
    };
    {
        const FileDialog dialog = open_dialog();
        CHECK(dialog.Name().ends_with(L"one.colour_V2(R).csv"));
        CHECK(dialog.Types() == std::vector<std::wstring>{L"All Files(*.*)", L"CSV Files(*.csv)"});
        CHECK_FALSE(bench.view.Enabled());
        dialog.Cancel();
    }
    WaitFor("the view", [&] { return bench.view.Enabled(); });
    CHECK(std::filesystem::is_empty(folder));
    const auto dismiss_notice = [&] {
        const Window notice = WaitForNotice(bench.program);
        CHECK(notice.Text() == L"Pixora : Information");
        CHECK(NoticeText(notice) == L"CSV file has been saved.");
        PressOk(notice);
        WaitFor("the view", [&] { return bench.view.Enabled(); });
    };
    open_dialog().Accept(L"first");  // the dialog starts in the folder of the settings
    dismiss_notice();
    CHECK(ReadBytes(folder / L"first.csv") == "Loacation,Value (R)\r\n0,200\r\n1,200\r\n2,200\r\n3,200\r\n");
    CHECK(StoredSetting(L"PATH_CSV") == folder.wstring() + L"\\");

    for (int press = 0; press < 3; ++press) Click(bench.view.Item(kProfileChannel));
    WaitForText(bench.view, kProfileChannel, L"RGB");
    bench.Push(kLineUp, kLine, L"3");
    const std::filesystem::path other = folder / L"other";
    std::filesystem::create_directories(other);
    {
        const FileDialog dialog = open_dialog();
        CHECK(dialog.Name().ends_with(L"one.colour_V3(RGB).csv"));
        dialog.Accept((other / L"mine").wstring());
    }
    dismiss_notice();
    const std::string expected =
        "Loacation,Value (R),Value (G),Value (B)\r\n0,200,120,40\r\n1,200,120,40\r\n2,200,120,40\r\n"
        "3,200,120,40\r\n";
    CHECK(ReadBytes(other / L"mine.csv") == expected);
    CHECK(StoredSetting(L"PATH_CSV") == other.wstring() + L"\\");
    open_dialog().Accept(L"second");  // the dialog starts where the first one was saved
    dismiss_notice();
    CHECK(ReadBytes(other / L"second.csv") == expected);
    bench.program.Exit();
}
