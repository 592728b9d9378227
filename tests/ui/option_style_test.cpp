// "Line and Region Style": its buttons, what they store, and what open viewers are told.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"

using namespace pixora::ui;

namespace {

constexpr int kLineGreen = 1244, kLineRed = 1247, kLineGray = 1246, kBorderGreen = 1241, kBorderRed = 1242,
              kBorderGray = 1243, kArea = 1306, kLine = 1307, kMarkGreen = 1245, kMarkRed = 1248,
              kMarkGray = 1249, kMarkWhite = 1250;

/// In an order in which each click changes something, beginning with the defaults.
const std::vector<Choice> kChoices = {
    {kLineGreen, L"Green", 0, {{L"LINE_COLOR", L"GREEN"}}},
    {kLineGray, L"Gray", 0, {{L"LINE_COLOR", L"GRAY"}}},
    {kLineRed, L"Red", 0, {{L"LINE_COLOR", L"RED"}}},
    {kBorderRed, L"Red", 1, {{L"BDR_COLOR", L"RED"}}},
    {kBorderGray, L"Gray", 1, {{L"BDR_COLOR", L"GRAY"}}},
    {kBorderGreen, L"Green", 1, {{L"BDR_COLOR", L"GREEN"}}},
    {kLine, L"Line", 2, {{L"BDR_TYPE", L"LINE"}}},
    {kArea, L"Area", 2, {{L"BDR_TYPE", L"AREA"}}},
    {kMarkGreen, L"Green", 3, {{L"MARK_COLOR", L"GREEN"}}},
    {kMarkRed, L"Red", 3, {{L"MARK_COLOR", L"RED"}}},
    {kMarkGray, L"Gray", 3, {{L"MARK_COLOR", L"GRAY"}}},
    {kMarkWhite, L"White", 3, {{L"MARK_COLOR", L"WHITE"}}},
};

/// A picture of one colour.
Picture Plain(int width, int height) {
    Picture picture(width, height);
    for (std::uint32_t& pixel : picture.pixels) pixel = Rgb(60, 60, 60);
    return picture;
}

/// What a click on a button makes of the viewer's overlay.
struct Look {
    int button;
    std::uint32_t colour;
};

/// Clicks each button and waits until the viewer shows what `draw` makes of its picture in that colour.
template <typename Draw>
void CheckLooks(Program& program, const Window& dialog, const Window& viewer, const std::vector<Look>& looks,
                const Draw& draw) {
    for (const Look& look : looks) {
        CAPTURE(look.button);
        ClickChoice(program, dialog, kChoices, look.button);
        Picture expected = Plain(200, 150);
        draw(expected, look.colour);
        WaitToSee(program, viewer, expected);
    }
}

}  // namespace

TEST_CASE(
    "each button of the line and region style stores its value at once and puts the others of its row out") {
    Program program({.settings = {{L"CAP_STYLE", L"FULL"}, {L"VALID_BITS", L"10"}}});
    const Window dialog = OpenOptions(program, kRegionStyle);
    SettingValues values = TestSettings();
    values[L"CAP_STYLE"] = L"FULL";
    values[L"VALID_BITS"] = L"10";
    ClickAll(program, dialog, kChoices, values, {kLineRed, kBorderGreen, kArea, kMarkWhite});
    program.Exit();
}

TEST_CASE("the line and region style opens with what the settings say") {
    Program program({.settings = {{L"LINE_COLOR", L"GRAY"},
                                  {L"BDR_COLOR", L"RED"},
                                  {L"BDR_TYPE", L"LINE"},
                                  {L"MARK_COLOR", L"GREEN"}}});
    const Window dialog = OpenOptions(program, kRegionStyle);
    CHECK(ButtonsOn(dialog, kChoices) == std::vector<int>{kLineGray, kBorderRed, kLine, kMarkGreen});
    for (const Choice& choice : kChoices) {
        CAPTURE(choice.id);
        CHECK(ShowsMark(program, dialog.Item(choice.id)) == dialog.Item(choice.id).Checked());
    }
    program.Exit();
}

TEST_CASE("unknown colours show the default ones, which the next change stores") {
    Program program({.settings = {{L"LINE_COLOR", L"BLUE"},
                                  {L"BDR_COLOR", L"green"},
                                  {L"BDR_TYPE", L"DOTS"},
                                  {L"MARK_COLOR", L"BLUE"}}});
    const std::string before = ReadBytes(SettingsFile());
    const Window dialog = OpenOptions(program, kRegionStyle);
    CHECK(ButtonsOn(dialog, kChoices) == std::vector<int>{kLineRed, kBorderGreen, kLine, kMarkWhite});
    CHECK(ReadBytes(SettingsFile()) == before);
    ClickChoice(program, dialog, kChoices, kBorderGray);
    SettingValues values = TestSettings();
    values[L"BDR_COLOR"] = L"GRAY";
    values[L"BDR_TYPE"] = L"DOTS";  // only colours are replaced
    WaitForSettings(values);
    program.Exit();
}

TEST_CASE("restored defaults reach open viewers with the next change of the line and region style") {
    const std::filesystem::path file = ScratchFile(L"a.bmp", BmpBytes(Chart(120, 90), 24));
    Program program({.settings = {{L"CAP_STYLE", L"FULL"}}});
    const Window viewer = program.Open(file);
    const Window second = program.Open(file, 2);
    const std::wstring with_path = L"[1 ]  (100%) File Name : " + file.wstring();
    CHECK(viewer.Text() == with_path);
    const Window dialog = OpenOptions(program, kRegionStyle);
    program.Choose(L"&Execute Initialize (&E)");
    Answer(WaitForQuestion(program), true);
    PressOk(WaitForNotice(program));
    CHECK(StoredSetting(L"CAP_STYLE") == L"SIMPLE");
    CHECK(viewer.Text() == with_path);
    ClickChoice(program, dialog, kChoices, kLineGreen);
    WaitFor("the viewer to take the settings over",
            [&] { return viewer.Text() == L"[1 ]  (100%) File Name : a.bmp"; });
    WaitFor("the second viewer, too", [&] { return second.Text() == L"[2 ]  (100%) File Name : a.bmp"; });
    program.Exit();
}

TEST_CASE("a click in the line and region style repaints the profile line of an open viewer") {
    Program program;
    const Window viewer = program.Open(ScratchFile(L"plain.bmp", BmpBytes(Plain(200, 150), 24)));
    (void)OpenView(program, viewer, kViewHProfile);
    const Window dialog = OpenOptions(program, kRegionStyle);
    CheckLooks(program, dialog, viewer,
               {{kLineGreen, Rgb(0, 200, 0)}, {kLineGray, Rgb(200, 200, 200)}, {kLineRed, Rgb(200, 0, 0)}},
               [](Picture& picture, std::uint32_t colour) { DrawAcross(picture, 74, 0, 200, colour); });
    program.Exit();
}

TEST_CASE("a click in the line and region style repaints the region and its mark in an open viewer") {
    // Until the next layout the last column and row lie outside of what the viewer shows.
    constexpr RECT kRegion{50, 40, 149, 109};
    const auto draw_mark = [](Picture& picture, std::uint32_t colour) {
        DrawAcross(picture, 40, 50, 70, colour);
        DrawDown(picture, 50, 40, 60, colour);
    };
    Program program;
    const Window viewer = program.Open(ScratchFile(L"plain.bmp", BmpBytes(Plain(200, 150), 24)));
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    PressButton(statistics, kStatRegion, L"REGION OFF");
    const Window coordinates = OpenCoordinates(program, statistics);
    EnterEdges(coordinates, {50, 40, 149, 109});
    WaitForText(statistics, kStatRegionSize, L"Region = 100 x 70");
    coordinates.Post(WM_CLOSE);
    WaitFor("the coordinates dialog to close", [&] { return !coordinates.Exists(); });
    const Window dialog = OpenOptions(program, kRegionStyle);
    CheckLooks(
        program, dialog, viewer,
        {{kBorderRed, Rgb(200, 0, 0)}, {kBorderGray, Rgb(240, 240, 240)}, {kBorderGreen, Rgb(153, 255, 255)}},
        [&](Picture& picture, std::uint32_t colour) { TintOutside(picture, kRegion, colour); });
    CheckLooks(program, dialog, viewer,
               {{kLine, Rgb(53, 158, 66)}, {kBorderRed, Rgb(200, 0, 0)}, {kBorderGray, Rgb(240, 240, 240)}},
               [&](Picture& picture, std::uint32_t colour) { DrawFrame(picture, kRegion, colour); });
    Raise(statistics);
    PressButton(statistics, kStatCorner, L"CORNER");
    ClickImage(viewer, 55, 45, Button::right);
    Picture marked = Plain(200, 150);
    DrawFrame(marked, kRegion, Rgb(240, 240, 240));
    draw_mark(marked, Rgb(250, 250, 250));
    WaitToSee(program, viewer, marked);
    CheckLooks(program, dialog, viewer,
               {{kMarkGreen, Rgb(0, 200, 0)},
                {kMarkRed, Rgb(200, 0, 0)},
                {kMarkGray, Rgb(200, 200, 200)},
                {kMarkWhite, Rgb(250, 250, 250)}},
               [&](Picture& picture, std::uint32_t colour) {
                   DrawFrame(picture, kRegion, Rgb(240, 240, 240));
                   draw_mark(picture, colour);
               });
    program.Exit();
}
