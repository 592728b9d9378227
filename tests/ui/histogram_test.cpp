// The histogram view: what it tells and shows, and how it follows its viewer.
#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>

#include "tests/ui/support/histogram_view.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/profile_view.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/sample_values.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

/// The samples of one channel, at the depth that is measured.
std::vector<std::uint32_t> Channel(const SampleValues& image, int channel, int depth) {
    std::vector<std::uint32_t> values;
    for (std::size_t i = static_cast<std::size_t>(channel); i < image.values.size();
         i += static_cast<std::size_t>(image.channels))
        values.push_back(image.values[i] >> (image.bits - depth));
    return values;
}

std::wstring Fixed(double value) {
    wchar_t text[64];
    std::swprintf(text, std::size(text), L"%.3f", value);
    return text;
}

/// What the view must tell of these samples.
void CheckLines(const Window& view, const std::vector<std::uint32_t>& values, std::uint32_t level) {
    double sum = 0, squares = 0;
    for (const std::uint32_t value : values) sum += value;
    const double n = static_cast<double>(values.size()), mean = sum / n;
    for (const std::uint32_t value : values) squares += (value - mean) * (value - mean);
    WaitForText(view, kHistMin, L"Min.= " + std::to_wstring(std::ranges::min(values)));
    WaitForText(view, kHistMax, L"Max.= " + std::to_wstring(std::ranges::max(values)));
    WaitForText(view, kHistMean, L"Mean = " + Fixed(mean));
    WaitForText(view, kHistStd, L"Std.  = " + Fixed(std::sqrt(squares / n)));
    std::wstring count = std::to_wstring(std::ranges::count(values, level));
    if (count.size() > 3) count.insert(count.size() - 3, L",");
    WaitForText(view, kHistFrequency, L"Freq. = " + count + L" (at " + std::to_wstring(level) + L")");
}

/// The labels of the levels stand under the quarters of the plot, that of the full scale beside its top.
void CheckLabelPlaces(const Window& view) {
    const RECT plot = view.Item(kHistPlot).Frame();
    for (int i = 0; i < 4; ++i) {
        CAPTURE(i);
        const int column = (i + 1) * (plot.right - plot.left - 1) / 4;
        CHECK(std::abs(view.Item(kHistLabels[i]).Centre().x - (plot.left + column)) <= 1);
    }
    CHECK(std::abs(view.Item(kHistFullScale).Centre().y - (plot.top + 1)) <= 1);
}

void SetMinimised(const Program& program, bool minimised) {
    program.Main().Post(WM_SYSCOMMAND, minimised ? SC_MINIMIZE : SC_RESTORE);
    WaitFor("the main window", [&] { return (IsIconic(program.Main().Handle()) != 0) == minimised; });
}

}  // namespace

TEST_CASE("the histogram view tells the facts of grey images of every depth") {
    struct Facts {
        const wchar_t *name, *suffix;
        int depth;
        std::uint32_t centre;
        const wchar_t* division;
        std::array<const wchar_t*, 4> labels;
    };
    const Facts images[] = {
        {L"bmp8-grey.bmp", L"", 8, 128, L"X: 32 DN/div", {L"64", L"128", L"192", L"256"}},
        {L"tiff12-mono.tif", L"", 12, 2048, L"X: 512 DN/div", {L"1024", L"2048", L"3072", L"4096"}},
        {L"tiff16-mono-upper10.tif",
         L" - Upper 10bit",
         10,
         512,
         L"X: 128 DN/div",
         {L"256", L"512", L"768", L"1024"}},
        {L"tiff16-mono-upper12.tif",
         L" - Upper 12bit",
         12,
         2048,
         L"X: 512 DN/div",
         {L"1024", L"2048", L"3072", L"4096"}},
        {L"tiff16-mono-upper14.tif",
         L" - Upper 14bit",
         14,
         8192,
         L"X: 512 DN/div",
         {L"4096", L"8192", L"12288", L"16384"}},
        {L"tiff16-mono.tif",
         L" - 16bit",
         16,
         32768,
         L"X: 512 DN/div",
         {L"16384", L"32768", L"49152", L"65536"}},
    };
    Program program;
    int number = 0;
    for (const Facts& facts : images) {
        CAPTURE(std::wstring(facts.name));
        const Window viewer = program.Open(Sample(facts.name), ++number);
        const Window view = OpenView(program, viewer, kViewHistogram);
        CHECK(view.Text() == std::wstring(L"Histogram View - ") + facts.name + facts.suffix + L" [" +
                                 std::to_wstring(number) + L"]");
        CHECK(view.ItemText(kHistLevelDivision) == facts.division);
        for (std::size_t i = 0; i < 4; ++i) CHECK(view.ItemText(kHistLabels[i]) == facts.labels[i]);
        CHECK(view.ItemText(kHistLevel) == std::to_wstring(facts.centre));
        CHECK(view.ItemText(kHistOn) == L"OFF");
        CHECK(view.Item(kHistLevel).Enabled());
        CHECK_FALSE(view.Item(kHistChannel).Visible());
        CHECK(view.ItemText(kHistChannel) == L" ");
        CHECK(view.ItemText(kHistBinning) == L" 256 Level Binning");
        CHECK(view.Item(kHistBinning).Checked());
        CheckLines(view, Channel(ReadValues(Sample(facts.name)), 0, facts.depth), facts.centre);
    }
    program.Exit();
}

TEST_CASE("the channel button of a colour image goes through the channels for all views of the viewer") {
    struct Facts {
        const wchar_t* name;
        int depth;
        std::uint32_t centre;
    };
    Program program;
    int number = 0;
    for (const Facts& facts : {Facts{L"bmp24-colour.bmp", 8, 128}, Facts{L"tiff12-rgb.tif", 12, 2048},
                               Facts{L"tiff16-rgb.tif", 16, 32768}}) {
        CAPTURE(std::wstring(facts.name));
        const SampleValues image = ReadValues(Sample(facts.name));
        const Window viewer = program.Open(Sample(facts.name), ++number);
        const Window view = OpenView(program, viewer, kViewHistogram);
        const Window profile = OpenView(program, viewer, kViewHProfile);
        MoveTo(profile, {700, 500});
        MoveTo(view, {700, 10});
        const wchar_t* captions[] = {L"R", L"G", L"B"};
        for (int channel = 0; channel < 3; ++channel) {
            CAPTURE(channel);
            WaitForText(view, kHistChannel, captions[channel]);
            WaitForText(profile, 1056, captions[channel]);
            CheckLines(view, Channel(image, channel, facts.depth), facts.centre);
            Click(view.Item(kHistChannel));
        }
        WaitForText(view, kHistChannel, L"RGB");
        std::vector<std::uint32_t> all;
        for (const std::uint32_t value : image.values) all.push_back(value >> (image.bits - facts.depth));
        CheckLines(view, all, facts.centre);
        Click(view.Item(kHistChannel));
        WaitForText(view, kHistChannel, L"R");
        CloseWindow(profile);
        CloseWindow(view);
    }
    program.Exit();
}

TEST_CASE("the plot of a grey image has its bars, its grid and its cursor where the counts put them") {
    Program program;
    const Window viewer = program.Open(ThreeLevelsFile());
    const Window view = OpenView(program, viewer, kViewHistogram);
    MoveTo(view, {400, 10});
    // 96 of level 0, 48 of 64, 48 of 255: divisions of 10 counts up to 100.
    WaitForText(view, kHistFullScale, L"100");
    WaitForText(view, kHistCountDivision, L"Y: 10 Pixels/div");
    const HistogramPicture plot(program, view);
    const int width = plot.Width(), height = plot.Height();
    const double step = (width - 1) / 256.0;
    const auto top = [&](int count) { return height - 1 - static_cast<int>(count * ((height - 2) / 100.0)); };
    const auto column = [&](int bin) { return static_cast<int>(bin * step) + 1; };
    for (const auto& [bin, count] : {std::pair{0, 96}, std::pair{64, 48}, std::pair{255, 48}}) {
        CAPTURE(bin);
        CHECK(plot.At(column(bin), top(count)) == kHistGreyPen);
        CHECK(plot.At(column(bin), top(count) - 1) != kHistGreyPen);
        CHECK(plot.At(column(bin), height - 2) == kHistGreyPen);
    }
    CHECK(plot.At(column(1), height - 2) != kHistGreyPen);
    CHECK(plot.At(column(63), height - 2) != kHistGreyPen);
    CHECK(plot.At(column(65), height - 2) != kHistGreyPen);
    for (const auto& [x, y] : {std::pair{0, 0}, std::pair{width - 1, 0}, std::pair{0, height - 1},
                               std::pair{width - 1, height - 1}, std::pair{width / 3, 0}})
        CHECK(plot.At(x, y) == Rgb(0, 0, 0));
    CHECK(plot.HasGridRow(top(50)));
    CHECK(plot.HasGridRow(top(90)));
    CHECK_FALSE(plot.HasGridRow(top(55)));
    CHECK(plot.HasGridColumn(3 * (width - 1) / 8));
    CHECK_FALSE(plot.HasGridColumn(3 * (width - 1) / 8 + 7));
    CHECK(plot.IsCursorColumn(static_cast<int>(128 * step)));
    CheckLabelPlaces(view);

    TypeInto(view.Item(kHistLevel), L"0130");
    WaitForText(view, kHistLevel, L"0130");
    Click(view.Item(kHistOn));
    WaitForText(view, kHistOn, L"ON");
    CHECK_FALSE(view.Item(kHistLevel).Enabled());
    WaitFor("the plot without the cursor",
            [&] { return !HistogramPicture(program, view).IsCursorColumn(static_cast<int>(128 * step)); });
    // The keys work without the cursor.
    PressKey(VK_RETURN);
    WaitForText(view, kHistLevel, L"130");
    PressKey(VK_LEFT);
    WaitForText(view, kHistLevel, L"129");
    PressKey(VK_LEFT);
    WaitForText(view, kHistLevel, L"128");
    Click(view.Item(kHistOn));
    WaitForText(view, kHistOn, L"OFF");
    CHECK(view.Item(kHistLevel).Enabled());
    WaitFor("the cursor",
            [&] { return HistogramPicture(program, view).IsCursorColumn(static_cast<int>(128 * step)); });
    program.Exit();
}

TEST_CASE("the binning box draws 256 levels or all of them, and begins as the setting says") {
    Program program(
        {.settings = {{L"HIS_BINNING", L"OFF"}, {L"LVL_CURSOR", L"OFF"}, {L"IMG_SIZE", L"10.00"}}});
    const Window viewer = program.Open(TwelveBitsFile());
    const Window view = OpenView(program, viewer, kViewHistogram);
    MoveTo(view, {400, 10});
    CHECK_FALSE(view.Item(kHistBinning).Checked());
    CHECK(view.ItemText(kHistOn) == L"ON");
    CHECK_FALSE(view.Item(kHistLevel).Enabled());
    // Levels 16 to 19 with 3 pixels each, level 4095 with 4: with 16 levels a bin there are 12 and 4.
    WaitForText(view, kHistFullScale, L"4");
    Click(view.Item(kHistBinning));
    WaitForText(view, kHistFullScale, L"12");
    WaitForText(view, kHistCountDivision, L"Y: 2 Pixels/div");
    CHECK(view.Item(kHistBinning).Checked());
    CHECK(StoredSetting(L"HIS_BINNING") == L"OFF");
    const HistogramPicture plot(program, view);
    const double step = (plot.Width() - 2) / 4096.0;
    CHECK(plot.At(static_cast<int>(16 * step) + 1, 1) == kHistGreyPen);
    Click(view.Item(kHistBinning));
    WaitForText(view, kHistFullScale, L"4");
    program.Exit();
}

TEST_CASE("each channel is drawn with its pen, all three as outlines") {
    Program program;
    const Window viewer = program.Open(OneColourFile());  // red 200, green 120, blue 40
    const Window view = OpenView(program, viewer, kViewHistogram);
    MoveTo(view, {400, 10});
    const HistogramPicture first(program, view);
    const double step = (first.Width() - 1) / 256.0;
    const auto shows = [&](int level, int y, std::uint32_t pen) {
        return HistogramPicture(program, view).At(static_cast<int>(level * step) + 1, y) == pen;
    };
    const int middle = first.Height() / 2;
    struct Pen {
        const wchar_t* channel;
        int level;
        std::uint32_t colour;
    };
    for (const Pen& pen :
         {Pen{L"R", 200, Rgb(255, 0, 0)}, Pen{L"G", 120, Rgb(0, 160, 0)}, Pen{L"B", 40, Rgb(0, 0, 255)}}) {
        WaitForText(view, kHistChannel, pen.channel);
        WaitFor("the channel's bar", [&] { return shows(pen.level, middle, pen.colour); });
        Click(view.Item(kHistChannel));
    }
    WaitForText(view, kHistChannel, L"RGB");
    WaitFor("all three", [&] {
        return shows(200, middle, Rgb(255, 0, 0)) && shows(120, middle, Rgb(0, 160, 0)) &&
               shows(40, middle, Rgb(0, 0, 255));
    });
    program.Exit();
}

TEST_CASE("the histogram follows the region, hides with the main window and closes with its viewer") {
    Program program({.settings = {{L"IMG_SIZE", L"5.00"}}});
    const Window viewer = program.Open(ThreeLevelsFile());
    const Window view = OpenView(program, viewer, kViewHistogram);
    MoveTo(view, {500, 10});
    WaitForText(view, kHistMax, L"Max.= 255");
    CHECK_FALSE(Offers(program, viewer, L"Histogram"));
    viewer.Command(kViewHistogram);  // greyed: nothing may come of it
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    MoveTo(statistics, {500, 560});
    PressButton(statistics, kStatRegion, L"REGION OFF");
    const Window coordinates = OpenCoordinates(program, statistics);
    EnterEdges(coordinates, {0, 0, 15, 8});  // the rows of levels 0 and 64
    WaitForText(view, kHistMax, L"Max.= 64");
    WaitForText(view, kHistMean, L"Mean = 21.333");
    PressButton(statistics, kStatRegion, L"REGION ON");
    WaitForText(view, kHistMax, L"Max.= 255");

    SetMinimised(program, true);
    WaitFor("the view to hide", [&] { return !view.Visible(); });
    SetMinimised(program, false);
    WaitFor("the view to show", [&] { return view.Visible(); });
    CloseWindow(view);
    CHECK(Offers(program, viewer, L"Histogram"));
    const Window again = OpenView(program, viewer, L"Histogram");
    WaitForText(again, kHistMax, L"Max.= 255");
    program.Close(viewer);
    WaitFor("the view to close", [&] { return !again.Exists(); });
    program.Exit();
}

TEST_CASE("the views take the caption style at once, and the settings of a histogram when they open") {
    constexpr int kSimple = 1243, kFullPath = 1254, kLevelOff = 1260, kNoBinning = 1248;
    Program program;
    const std::filesystem::path file = ThreeLevelsFile();
    const Window viewer = program.Open(file);
    const Window row = OpenView(program, viewer, kViewHProfile),
                 column = OpenView(program, viewer, kViewVProfile),
                 view = OpenView(program, viewer, kViewHistogram);
    const Window options = OpenOptions(program, kViewerOption);
    const auto wait_for_titles = [&](const std::wstring& name) {
        WaitFor("the titles", [&] {
            return view.Text() == L"Histogram View - " + name + L" [1]" &&
                   row.Text() == L"H-Profile View - " + name + L" [1]" &&
                   column.Text() == L"V-Profile View - " + name + L" [1]";
        });
    };
    wait_for_titles(L"three.levels.bmp");
    Push(options, kFullPath);
    wait_for_titles(file.wstring());
    Push(options, kLevelOff);
    Push(options, kNoBinning);
    Push(options, kSimple);
    wait_for_titles(L"three.levels.bmp");
    CHECK(StoredSetting(L"HIS_BINNING") == L"OFF");
    CHECK(StoredSetting(L"LVL_CURSOR") == L"OFF");
    CHECK(view.Item(kHistBinning).Checked());
    CHECK(view.ItemText(kHistOn) == L"OFF");
    CloseWindow(view);
    const Window again = OpenView(program, viewer, kViewHistogram);
    CHECK_FALSE(again.Item(kHistBinning).Checked());
    CHECK(again.ItemText(kHistOn) == L"ON");
    CHECK(row.ItemText(kLevelOn) == L"OFF");
    program.Exit();
}
