// The statistics view.
#include <doctest/doctest.h>

#include <algorithm>
#include <array>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int k50 = 32786, k200 = 32793, k1000 = 32796;
constexpr int kFormat = 1245, kColour = 1246, kImageSize = 1226, kDisplaySize = 1227, kRegionSize = 1225;
constexpr int kRegion = 1056, kCorner = 1057, kMove = 1058, kCoordinates = 1062, kChannel = 1006;
constexpr int kMax = 1173, kMin = 1174, kMean = 1176, kStd = 1175;
constexpr int kLocation = 1237, kTop = 1239, kMiddle = 1240, kBottom = 1241;
// Faces of the buttons.
constexpr std::uint32_t kPlain = 0xE1E1E1, kDisabled = 0xCCCCCC, kGreenFace = 0xBBF7CA, kModeOn = 0xFFD3A8;

/// A colour image that tells its places: red is 10 + x, green 100 + y, blue 200 - x - y.
std::filesystem::path PlacesFile() {
    Picture picture(40, 30);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) picture.At(x, y) = Rgb(10 + x, 100 + y, 200 - x - y);
    return ScratchFile(L"places.bmp", BmpBytes(picture, 24));
}

std::string Words(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value & 0xFF);
        bytes += static_cast<char>(value >> 8);
    }
    return bytes;
}

/// 2 x 2 pixels: red 0 2 0 2, green 100 100 300 300, blue 65535 0 65535 0.
std::filesystem::path ColourFile() {
    const TiffFile file{.width = 2,
                        .height = 2,
                        .bits = 16,
                        .channels = 3,
                        .photometric = 2,
                        .pixels = Words({0, 100, 65535, 2, 100, 0, 0, 300, 65535, 2, 300, 0})};
    return ScratchFile(L"colour.tif", Bytes(file));
}

/// 2 x 2 pixels whose upper twelve bits are 1 2 3 4095.
std::filesystem::path GreyFile() {
    const TiffFile file{.width = 2, .height = 2, .bits = 16, .pixels = Words({16, 32, 48, 65520})};
    return ScratchFile(L"grey.tif", Bytes(file));
}

const SettingValues kSixteenBits = {{L"AUTO_BIT", L"OFF"}, {L"VALID_BITS", L"16"}, {L"IMG_SIZE", L"10.00"}};
const SettingValues kTwelveBits = {{L"AUTO_BIT", L"OFF"}, {L"VALID_BITS", L"12"}, {L"IMG_SIZE", L"10.00"}};

void WaitForStatistics(const Window& view, const wchar_t* max, const wchar_t* min, const wchar_t* mean,
                       const wchar_t* std) {
    WaitForText(view, kMax, max);
    WaitForText(view, kMin, min);
    WaitForText(view, kMean, mean);
    WaitForText(view, kStd, std);
}

void CheckBoxes(const Window& view, bool enabled) {
    for (const int box : {kMax, kMin, kMean, kStd, kRegionSize}) {
        CAPTURE(box);
        CHECK(view.Item(box).Enabled() == enabled);
    }
}

void WaitForSize(const Window& viewer, LONG width, LONG height) {
    WaitFor("the display size", [&] {
        const RECT client = viewer.Client();
        return client.right - client.left == width && client.bottom - client.top == height;
    });
}

bool HasColour(const Picture& picture, std::uint32_t colour) {
    return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
}

/// Moves the mouse to a point of a viewer and waits for the lines about it.
void Look(const Window& viewer, const Window& view, POINT at, const std::array<std::wstring, 4>& lines) {
    CAPTURE(at.x);
    CAPTURE(at.y);
    PointAt(viewer.ClientPoint(at.x, at.y));
    constexpr int kLines[] = {kLocation, kTop, kMiddle, kBottom};
    for (std::size_t i = 0; i < lines.size(); ++i) WaitForText(view, kLines[i], lines[i]);
}

std::array<std::wstring, 4> Inside(int x, int y) {
    return {L"Location = (" + std::to_wstring(x) + L", " + std::to_wstring(y) + L")",
            L"Value R = " + std::to_wstring(10 + x), L"Value G = " + std::to_wstring(100 + y),
            L"Value B = " + std::to_wstring(200 - x - y)};
}

const std::array<std::wstring, 4> kOutside = {L"Location = Out of image", L"", L"Value = N/A", L""};

}  // namespace

TEST_CASE("the statistics view tells the facts of every kind of image") {
    struct Facts {
        const wchar_t *name, *format;
        bool colour;
    };
    constexpr Facts kImages[] = {
        {L"bmp8-grey.bmp", L"Mono8", false},    {L"bmp8-palette.bmp", L"RGB8", true},
        {L"bmp24-grey.bmp", L"Mono8", false},   {L"bmp32-colour.bmp", L"RGB8", true},
        {L"tiff8-mono.tif", L"Mono8", false},   {L"tiff8-rgb-big-endian.tif", L"RGB8", true},
        {L"tiff12-mono.tif", L"Mono12", false}, {L"tiff12-rgb.tif", L"RGB12", true},
    };
    Program program;
    int number = 0;
    for (const Facts& facts : kImages) {
        CAPTURE(std::wstring(facts.name));
        const Window viewer = program.Open(Sample(facts.name), ++number);
        const Window view = OpenStatistics(program, viewer, number);
        const Picture picture = ReadImage(Sample(facts.name));
        const std::wstring size = std::to_wstring(picture.width) + L" x " + std::to_wstring(picture.height);
        CHECK(view.ItemText(kFormat) == std::wstring(L"Format = ") + facts.format);
        CHECK(view.ItemText(kImageSize) == L"Image size = " + size);
        CHECK(view.ItemText(kRegionSize) == L"Region = " + size);
        CHECK(view.ItemText(kDisplaySize) == L"Display Size = 100%");
        CHECK(view.ItemText(kColour) == (facts.colour ? L"Color = RGB" : L"Color = B/W"));
        CHECK(view.Item(kChannel).Visible() == facts.colour);
        CHECK(view.ItemText(kChannel) == (facts.colour ? L"R" : L" "));
        for (const int box : {kMax, kMin, kMean, kStd}) CHECK(view.ItemText(box) == L"N/A");
        CheckBoxes(view, false);
    }
    program.Exit();
}

TEST_CASE("the pixel under the mouse is told at every display size") {
    Program program;
    const Window viewer = program.Open(PlacesFile());
    const Window view = OpenStatistics(program, viewer);
    MoveTo(viewer, {300, 300});
    Look(viewer, view, {12, 7}, Inside(12, 7));
    Look(viewer, view, {39, 29}, Inside(39, 29));
    Look(viewer, view, {40, 30}, Inside(39, 29));
    Look(viewer, view, {41, 5}, kOutside);
    Look(viewer, view, {-1, -1}, Inside(0, 0));
    Look(viewer, view, {-2, 5}, kOutside);
    Look(viewer, view, {5, 30}, Inside(5, 29));
    Look(viewer, view, {5, 31}, kOutside);
    Look(viewer, view, {40, -1}, Inside(39, 0));
    Look(viewer, view, {5, -2}, kOutside);

    viewer.Command(k200);
    WaitForSize(viewer, 80, 60);
    WaitForText(view, kDisplaySize, L"Display Size = 200%");
    MoveTo(viewer, {300, 300});
    Look(viewer, view, {25, 15}, Inside(12, 7));
    Look(viewer, view, {81, 61}, Inside(39, 29));
    Look(viewer, view, {82, 10}, kOutside);
    Look(viewer, view, {-3, 1}, Inside(0, 0));
    Look(viewer, view, {-4, 1}, kOutside);

    viewer.Command(k50);
    WaitForSize(viewer, 20, 15);
    WaitForText(view, kDisplaySize, L"Display Size = 50%");
    MoveTo(viewer, {300, 300});
    Look(viewer, view, {6, 3}, Inside(12, 6));
    Look(viewer, view, {20, 15}, Inside(39, 29));
    Look(viewer, view, {21, 3}, kOutside);
    Look(viewer, view, {0, 0}, Inside(0, 0));
    Look(viewer, view, {-1, 3}, kOutside);

    viewer.Command(k1000);
    WaitForSize(viewer, 400, 300);
    WaitForText(view, kDisplaySize, L"Display Size = 1000%");
    MoveTo(viewer, {300, 300});
    Look(viewer, view, {129, 70}, Inside(12, 7));
    Look(viewer, view, {-19, -19}, Inside(0, 0));
    program.Exit();
}

TEST_CASE("the buttons show which mode of the region is on") {
    Program program;
    const Window viewer = program.Open(PlacesFile());
    Window view = OpenStatistics(program, viewer);
    const auto wait = [&](int button, const std::wstring& caption, std::uint32_t face, bool enabled = true) {
        WaitForButton(program, view, button, caption, face, enabled);
    };
    wait(kRegion, L"REGION ON", kPlain);
    wait(kCorner, L"CORNER", kDisabled, false);
    wait(kMove, L"MOVE", kDisabled, false);
    wait(kCoordinates, L"H-V ON", kDisabled, false);
    for (const int button : {kCorner, kMove, kCoordinates}) {
        CAPTURE(button);
        CHECK(HasColour(program.See(view.Item(button)), 0x838383));  // its caption
    }

    PressButton(view, kRegion);
    wait(kRegion, L"REGION OFF", kGreenFace);
    wait(kCorner, L"CORNER", kPlain);
    wait(kMove, L"MOVE", kPlain);
    wait(kCoordinates, L"H-V ON", kPlain);
    CheckBoxes(view, true);

    PressButton(view, kCorner);
    wait(kCorner, L"CORNER", kModeOn);
    wait(kMove, L"MOVE", kPlain);
    PressButton(view, kMove);
    wait(kCorner, L"CORNER", kPlain);
    wait(kMove, L"MOVE", kModeOn);
    PressButton(view, kMove);
    wait(kMove, L"MOVE", kPlain);
    PressButton(view, kCorner);
    wait(kCorner, L"CORNER", kModeOn);
    PressButton(view, kCorner);
    wait(kCorner, L"CORNER", kPlain);

    PressButton(view, kCoordinates);
    wait(kCoordinates, L"H-V OFF", kPlain);
    const Window dialog = WaitForTitled(program, L" [1 ]  Region Coordinates");
    CloseWindow(dialog);
    wait(kCoordinates, L"H-V ON", kPlain);
    PressButton(view, kCoordinates);
    wait(kCoordinates, L"H-V OFF", kPlain);
    const Window again = WaitForTitled(program, L" [1 ]  Region Coordinates");
    MoveTo(again, {800, 500});   // off the buttons
    PressButton(view, kCorner);  // closes the coordinates first
    wait(kCorner, L"CORNER", kModeOn);
    wait(kCoordinates, L"H-V ON", kPlain);
    WaitFor("the coordinates to close", [&] { return !again.Exists(); });

    CloseWindow(view);  // ends the mode, keeps the region
    view = OpenStatistics(program, viewer);
    wait(kRegion, L"REGION OFF", kGreenFace);
    wait(kCorner, L"CORNER", kPlain);
    wait(kCoordinates, L"H-V ON", kPlain);

    PressButton(view, kRegion);
    wait(kRegion, L"REGION ON", kPlain);
    wait(kCorner, L"CORNER", kDisabled, false);
    wait(kMove, L"MOVE", kDisabled, false);
    wait(kCoordinates, L"H-V ON", kDisabled, false);
    CheckBoxes(view, false);
    program.Exit();
}

TEST_CASE("the statistics of a colour image follow the channel and the region") {
    Program program({.settings = kSixteenBits});
    const Window viewer = program.Open(ColourFile());
    Window view = OpenStatistics(program, viewer);
    CHECK(view.ItemText(kFormat) == L"Format = RGB16");
    PressButton(view, kRegion);
    WaitForText(view, kRegionSize, L"Region = 2 x 2");
    WaitForStatistics(view, L"2", L"0", L"1.000", L"1.000");
    WaitForButton(program, view, kChannel, L"R", 0xFBCFCF);
    PressButton(view, kChannel);
    WaitForButton(program, view, kChannel, L"G", 0xBBF7CA);
    WaitForStatistics(view, L"300", L"100", L"200.000", L"100.000");
    PressButton(view, kChannel);
    WaitForButton(program, view, kChannel, L"B", 0x9BD0FB);
    WaitForStatistics(view, L"65535", L"0", L"32767.500", L"32767.500");
    PressButton(view, kChannel);
    WaitForButton(program, view, kChannel, L"RGB", kPlain);
    WaitForStatistics(view, L"65535", L"0", L"10989.500", L"24393.720");

    CloseWindow(view);  // the channel is the viewer's
    view = OpenStatistics(program, viewer);
    WaitForButton(program, view, kChannel, L"RGB", kPlain);
    WaitForStatistics(view, L"65535", L"0", L"10989.500", L"24393.720");
    PressButton(view, kChannel);
    WaitForButton(program, view, kChannel, L"R", 0xFBCFCF);
    const Window profile = OpenView(program, viewer, kViewHProfile);
    MoveTo(profile, {900, 100});  // off this view
    constexpr int kProfileChannel = 1056;
    WaitForText(profile, kProfileChannel, L"R");
    // The second of two fast clicks.
    view.Post(WM_COMMAND, MAKEWPARAM(kChannel, BN_DOUBLECLICKED),
              reinterpret_cast<LPARAM>(view.Item(kChannel).Handle()));
    WaitForText(profile, kProfileChannel, L"G");
    PressButton(profile, kProfileChannel);
    WaitForButton(program, view, kChannel, L"B", 0x9BD0FB);
    WaitForStatistics(view, L"65535", L"0", L"32767.500", L"32767.500");
    CloseWindow(profile);

    PressButton(view, kCorner);
    WaitForButton(program, view, kCorner, L"CORNER", kModeOn);
    PressButton(view, kCoordinates);
    const Window dialog = WaitForTitled(program, L" [1 ]  Region Coordinates");
    constexpr int kLeft = 1173, kEdit = 1056, kEnter = 1174;
    PressButton(dialog, kEdit);
    WaitFor("the entries to be open",
            [&] { return (dialog.Item(kLeft).Style() & ES_READONLY) == 0 && dialog.Item(kEnter).Enabled(); });
    dialog.Item(kLeft).SetText(L"1");
    PressButton(dialog, kEnter);
    WaitForText(view, kRegionSize, L"Region = 1 x 2");
    WaitForStatistics(view, L"0", L"0", L"0.000", L"0.000");
    WaitForButton(program, view, kCorner, L"CORNER", kPlain);  // new coordinates end the mode

    PressButton(view, kRegion);
    WaitForStatistics(view, L"N/A", L"N/A", L"N/A", L"N/A");
    CHECK(view.ItemText(kRegionSize) == L"Region = 1 x 2");
    program.Exit();
}

TEST_CASE("a grey image is measured in its valid bits") {
    Program program({.settings = kTwelveBits});
    const Window viewer = program.Open(GreyFile());
    const Window view = OpenStatistics(program, viewer);
    CHECK(view.ItemText(kFormat) == L"Format = Mono16");
    CHECK_FALSE(view.Item(kChannel).Visible());
    PressButton(view, kRegion);
    WaitForStatistics(view, L"4095", L"1", L"1025.250", L"1772.321");
    Look(viewer, view, {15, 5}, {L"Location = (1, 0)", L"", L"Value = 2", L""});
    Look(viewer, view, {15, 15}, {L"Location = (1, 1)", L"", L"Value = 4095", L""});
    Look(viewer, view, {39, 15}, kOutside);
    program.Exit();
}

TEST_CASE("the keyboard reaches every button, and neither Enter nor Escape does anything") {
    Program program;
    const Window viewer = program.Open(PlacesFile());
    const Window view = OpenStatistics(program, viewer);
    Click(view.Item(kRegion));
    WaitForButton(program, view, kRegion, L"REGION OFF", kGreenFace);
    WaitForKeyboard(view.Item(kRegion));
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        PressKey(key);
        for (const int next : {kCorner, kMove, kCoordinates, kMax, kMin, kMean, kStd, kChannel, kRegion}) {
            CAPTURE(next);
            PressKey(VK_TAB);
            WaitForKeyboard(view.Item(next));
        }
        CHECK(view.ItemText(kRegion) == L"REGION OFF");
        CHECK(view.Visible());
    }
    PressKey(VK_SPACE);
    WaitForButton(program, view, kRegion, L"REGION ON", kPlain);
    program.Exit();
}
