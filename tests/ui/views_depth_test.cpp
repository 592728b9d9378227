// Everything that the views of an image say, for grey and colour images of every depth.
#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/histogram_view.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/profile_view.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kStatFormat = 1245, kStatColour = 1246, kStatImageSize = 1226, kStatDisplaySize = 1227,
              kStatChannel = 1006, kStatTop = 1239, kStatBottom = 1241;
constexpr int kInfoFormat = 1245, kInfoSize = 1224, kInfoPixels = 1293, kInfoRegionSize = 1225,
              kInfoRegionPixels = 1226, kInfoDisplaySize = 1209;

using Labels = std::array<const wchar_t*, 4>;

/// A depth, and what the views say of it.
struct Depth {
    int stored, valid;  ///< bits of a sample in the file, and how many of them count
    std::uint32_t centre, most;
    const wchar_t *title, *note;
    Labels quarters;
    const wchar_t* division;
    Labels levels;
    std::uint32_t grid;  ///< levels from one line of a profile's grid to the next
};

constexpr Labels kQuarters8 = {L"64", L"128", L"192", L"256"}, kLevels8 = {L"255", L"192", L"128", L"64"};
constexpr Labels kQuarters10 = {L"256", L"512", L"768", L"1024"},
                 kLevels10 = {L"1023", L"768", L"512", L"256"};
constexpr Labels kQuarters12 = {L"1024", L"2048", L"3072", L"4096"},
                 kLevels12 = {L"4095", L"3072", L"2048", L"1024"};
constexpr Labels kQuarters14 = {L"4096", L"8192", L"12288", L"16384"},
                 kLevels14 = {L"16383", L"12288", L"8192", L"4096"};
constexpr Labels kQuarters16 = {L"16384", L"32768", L"49152", L"65536"},
                 kLevels16 = {L"65535", L"49152", L"32768", L"16384"};

constexpr Depth kDepths[] = {
    {8, 8, 128, 255, L"", L"", kQuarters8, L"X: 32 DN/div", kLevels8, 32},
    {12, 12, 2048, 4095, L"", L"", kQuarters12, L"X: 512 DN/div", kLevels12, 512},
    {16, 8, 128, 255, L" - Upper 8bit", L" (Upper 8 bits Valid)", kQuarters8, L"X: 32 DN/div", kLevels8, 32},
    {16, 10, 512, 1023, L" - Upper 10bit", L" (Upper 10 bits Valid)", kQuarters10, L"X: 128 DN/div",
     kLevels10, 128},
    {16, 12, 2048, 4095, L" - Upper 12bit", L" (Upper 12 bits Valid)", kQuarters12, L"X: 512 DN/div",
     kLevels12, 512},
    {16, 14, 8192, 16383, L" - Upper 14bit", L" (Upper 14 bits Valid)", kQuarters14, L"X: 512 DN/div",
     kLevels14, 2048},
    {16, 16, 32768, 65535, L" - 16bit", L" (Upper 16 bits Valid)", kQuarters16, L"X: 512 DN/div", kLevels16,
     8196},
};

using Samples = std::vector<std::uint32_t>;

/// 4 x 3 pixels. Red, or grey: 0 in the two columns on the left, the largest level in the others; green: the
/// level in the middle; blue: 0.
Samples Values(const Depth& depth, bool colour) {
    Samples values;
    for (int pixel = 0; pixel < 12; ++pixel) {
        values.push_back(pixel % 4 < 2 ? 0 : depth.most);
        if (colour) values.insert(values.end(), {depth.centre, 0});
    }
    return values;
}

Samples Channel(const Samples& values, std::size_t first) {
    Samples channel;
    for (std::size_t i = first; i < values.size(); i += 3) channel.push_back(values[i]);
    return channel;
}

std::string Packed(const Samples& values, int bits) {
    std::string bytes;
    for (std::size_t i = 0; i < values.size(); i += 2) {
        const std::uint32_t a = values[i], b = values[i + 1];
        for (const std::uint32_t byte : {a >> 4, (a & 15) << 4 | b >> 8, b & 255})
            if (bits == 12) bytes += static_cast<char>(byte);
        for (const std::uint32_t byte : {a & 255, a >> 8, b & 255, b >> 8})
            if (bits == 16) bytes += static_cast<char>(byte);
    }
    return bytes;
}

std::filesystem::path ImageFile(const Depth& depth, bool colour) {
    Samples values = Values(depth, colour);
    if (depth.stored == 8) {
        Picture picture(4, 3);
        for (std::size_t i = 0; i < 12; ++i)
            picture.pixels[i] = colour ? values[3 * i] << 16 | values[3 * i + 1] << 8 : values[i] * 0x010101;
        return ScratchFile(L"depth.bmp", BmpBytes(picture, 24));
    }
    for (std::uint32_t& value : values) value <<= depth.stored - depth.valid;
    TiffFile file{.width = 4, .height = 3, .bits = static_cast<std::uint16_t>(depth.stored)};
    file.channels = colour ? 3 : 1;
    file.photometric = colour ? 2 : 1;
    file.pixels = Packed(values, depth.stored);
    return ScratchFile(L"depth.tif", Bytes(file));
}

std::wstring Fixed(double value) {
    wchar_t text[64];
    std::swprintf(text, std::size(text), L"%.3f", value);
    return text;
}

struct Figures {
    std::wstring min, max, mean, std;
};

Figures FiguresOf(const Samples& values) {
    double sum = 0, squares = 0;
    for (const std::uint32_t value : values) sum += value;
    const double n = static_cast<double>(values.size()), mean = sum / n;
    for (const std::uint32_t value : values) squares += (value - mean) * (value - mean);
    return {std::to_wstring(std::ranges::min(values)), std::to_wstring(std::ranges::max(values)), Fixed(mean),
            Fixed(std::sqrt(squares / n))};
}

/// An open image with all of its views.
struct Views {
    Window viewer, histogram, row, column, statistics, info;
    Views(Program& program, const std::filesystem::path& file)
        : viewer(program.Open(file)),
          histogram(OpenView(program, viewer, kViewHistogram)),
          row(OpenView(program, viewer, kViewHProfile)),
          column(OpenView(program, viewer, kViewVProfile)),
          statistics(OpenView(program, viewer, kViewStatistics)),
          info(OpenView(program, viewer, kViewImageInfo)) {}
};

void CheckHistogram(const Window& view, const Depth& depth, const std::wstring& name) {
    CHECK(view.Text() == L"Histogram View - " + name + depth.title + L" [1]");
    for (std::size_t i = 0; i < 4; ++i) CHECK(view.ItemText(kHistLabels[i]) == depth.quarters[i]);
    CHECK(view.ItemText(kHistLevelDivision) == depth.division);
    CHECK(view.ItemText(kHistLevel) == std::to_wstring(depth.centre));
    CHECK(view.ItemText(kHistOn) == L"OFF");
    CHECK(view.ItemText(kHistBinning) == L" 256 Level Binning");
}

void CheckProfile(const Window& view, const Depth& depth, const std::wstring& name, bool row) {
    CHECK(view.Text() == (row ? L"H-Profile View - " : L"V-Profile View - ") + name + depth.title + L" [1]");
    for (std::size_t i = 0; i < 4; ++i) CHECK(view.ItemText(kLevelLabels[i]) == depth.levels[i]);
    CHECK(view.ItemText(kDivision) == (row ? L"H: 1 Pixels/div" : L"V: 1 Pixels/div"));
    CHECK(view.ItemText(kFirstPosition) == L"0");
    CHECK(view.ItemText(kLastPosition) == (row ? L"3" : L"2"));
    CHECK(view.ItemText(kLine) == L"1");
    CHECK(view.ItemText(kLevel) == std::to_wstring(depth.centre));
    CHECK(view.ItemText(kCursor) == L"CURSOR OFF");
    CHECK(view.ItemText(kLevelOn) == L"OFF");
}

/// Whether a row of a plot is a line of the grid, which is dotted, or the level cursor over one.
bool IsGridRow(const Picture& plot, int y) {
    int grey = 0, cursor = 0;
    for (int x = 1; x < plot.width - 1; ++x) {
        grey += plot.At(x, y) == Rgb(128, 128, 128);
        cursor += plot.At(x, y) == kLevelPen;
    }
    return grey > plot.width / 4 || cursor == plot.width - 2;
}

/// The column's samples are 0, so its grid lies open but for the level cursor in the middle.
void WaitForGridOfLevels(Program& program, const Window& column, const Depth& depth) {
    const auto full_range = static_cast<double>(depth.most + 1);
    WaitFor("the grid of levels", [&] {
        const Picture plot = program.See(column.Item(kPlot));
        for (std::uint32_t level = depth.grid; level < depth.most; level += depth.grid) {
            const int y = plot.height - 1 - static_cast<int>(level * (plot.height / full_range));
            if (!IsGridRow(plot, y) || IsGridRow(plot, y - 4)) return false;
        }
        return true;
    });
}

void CheckStatistics(const Window& view, const std::wstring& format, bool colour) {
    CHECK(view.Text() == L" [1 ]  Statistics View ");
    CHECK(view.ItemText(kStatFormat) == L"Format = " + format);
    CHECK(view.ItemText(kStatColour) == (colour ? L"Color = RGB" : L"Color = B/W"));
    CHECK(view.ItemText(kStatImageSize) == L"Image size = 4 x 3");
    CHECK(view.ItemText(kStatDisplaySize) == L"Display Size = 1000%");
    CHECK(view.ItemText(kStatRegionSize) == L"Region = 4 x 3");
    for (const int box : {kStatMax, kStatMin, kStatMean, kStatStd}) CHECK(view.ItemText(box) == L"N/A");
}

void CheckInfo(const Window& view, const Depth& depth, const std::wstring& name, const std::wstring& format) {
    CHECK(view.Text() == L" [1 ]  Image info. ");
    CHECK(view.ItemText(1246) == name);
    CHECK(view.ItemText(kInfoFormat) == L"File Format:  " + format + depth.note);
    CHECK(view.ItemText(kInfoSize) == L"Image Size (HxV): 4 x 3");
    CHECK(view.ItemText(kInfoPixels) == L"Total Number of Pixels:  12");
    CHECK(view.ItemText(kInfoRegionSize).empty());
    CHECK(view.ItemText(kInfoRegionPixels).empty());
    CHECK(view.ItemText(kInfoDisplaySize) == L"Display Size: 1000%");
}

/// What histogram and statistics say of the samples of the channel that is selected.
void WaitForFigures(const Views& views, const Depth& depth, const Samples& values) {
    const Figures figures = FiguresOf(values);
    WaitForText(views.statistics, kStatMin, figures.min);
    WaitForText(views.statistics, kStatMax, figures.max);
    WaitForText(views.statistics, kStatMean, figures.mean);
    WaitForText(views.statistics, kStatStd, figures.std);
    WaitForText(views.histogram, kHistMin, L"Min.= " + figures.min);
    WaitForText(views.histogram, kHistMax, L"Max.= " + figures.max);
    WaitForText(views.histogram, kHistMean, L"Mean = " + figures.mean);
    WaitForText(views.histogram, kHistStd, L"Std.  = " + figures.std);
    WaitForText(views.histogram, kHistFrequency,
                L"Freq. = " + std::to_wstring(std::ranges::count(values, depth.centre)) + L" (at " +
                    std::to_wstring(depth.centre) + L")");
}

void WaitForCountAxis(const Window& histogram, const std::wstring& top, const std::wstring& division) {
    WaitForText(histogram, kHistFullScale, top);
    WaitForText(histogram, kHistCountDivision, division);
}

/// The pixel in the middle of an edge, as the statistics view tells it.
void WaitForReadout(const Views& views, const std::array<std::wstring, 4>& lines) {
    PointAt(views.viewer.ClientPoint(25, 5));
    constexpr int kLines[] = {kStatLocation, kStatTop, kStatValue, kStatBottom};
    for (std::size_t i = 0; i < lines.size(); ++i) WaitForText(views.statistics, kLines[i], lines[i]);
}

void CheckCommon(const Views& views, const Depth& depth, bool colour) {
    const std::wstring name = depth.stored == 8 ? L"depth.bmp" : L"depth.tif";
    const std::wstring format = (colour ? L"RGB" : L"Mono") + std::to_wstring(depth.stored);
    CheckHistogram(views.histogram, depth, name);
    CheckProfile(views.row, depth, name, true);
    CheckProfile(views.column, depth, name, false);
    CheckStatistics(views.statistics, format, colour);
    CheckInfo(views.info, depth, name, format);
    views.statistics.Command(kStatRegion);
    WaitForText(views.info, kInfoRegionSize, L"Reigion (HxV) :4 x 3");
    WaitForText(views.info, kInfoRegionPixels, L"Reigion (Total) : 12");
    WaitForCountAxis(views.histogram, L"6", L"Y: 1 Pixels/div");
}

}  // namespace

TEST_CASE("all views of a grey image say what is true for its depth") {
    Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
    for (const Depth& depth : kDepths) {
        CAPTURE(depth.stored);
        CAPTURE(depth.valid);
        const Views views(program, ImageFile(depth, false));
        CheckCommon(views, depth, false);
        WaitForGridOfLevels(program, views.column, depth);
        WaitForFigures(views, depth, Values(depth, false));
        WaitForReadout(views, {L"Location = (2, 0)", L"", L"Value = " + std::to_wstring(depth.most), L""});
        for (const auto& [view, button] :
             {std::pair{views.histogram, kHistChannel}, std::pair{views.row, kProfileChannel},
              std::pair{views.column, kProfileChannel}, std::pair{views.statistics, kStatChannel}})
            CHECK_FALSE(view.Item(button).Visible());
        program.Close(views.viewer);
    }
    program.Exit();
}

TEST_CASE("all views of a colour image say what is true for its depth and the selected channel") {
    Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
    for (const Depth& depth : kDepths) {
        CAPTURE(depth.stored);
        CAPTURE(depth.valid);
        const Samples values = Values(depth, true);
        const Views views(program, ImageFile(depth, true));
        CheckCommon(views, depth, true);
        const auto wait_for_channel = [&](const wchar_t* caption, const Samples& samples) {
            WaitForText(views.histogram, kHistChannel, caption);
            WaitForText(views.row, kProfileChannel, caption);
            WaitForText(views.column, kProfileChannel, caption);
            WaitForText(views.statistics, kStatChannel, caption);
            WaitForFigures(views, depth, samples);
        };
        wait_for_channel(L"R", Channel(values, 0));
        WaitForReadout(views, {L"Location = (2, 0)", L"Value R = " + std::to_wstring(depth.most),
                               L"Value G = " + std::to_wstring(depth.centre), L"Value B = 0"});
        views.histogram.Command(kHistChannel);
        wait_for_channel(L"G", Channel(values, 1));
        views.row.Command(kProfileChannel);
        wait_for_channel(L"B", Channel(values, 2));
        views.statistics.Command(kStatChannel);
        wait_for_channel(L"RGB", values);
        WaitForCountAxis(views.histogram, L"12", L"Y: 2 Pixels/div");
        program.Close(views.viewer);
    }
    program.Exit();
}
