// The level cursor, its keys, and the small rules that the views share.
#include <doctest/doctest.h>

#include "analysis/channel.h"
#include "analysis/division.h"
#include "analysis/level_cursor.h"
#include "analysis/thousands.h"
#include "analysis/view_title.h"

using namespace pixora;

namespace {

constexpr std::uint32_t kDown = 0x100, kUp = 0x101, kChar = 0x102, kClick = 0x201;
constexpr std::uint64_t kEnter = 13, kEscape = 27, kLeft = 37, kUpArrow = 38, kRight = 39, kDownArrow = 40;

ImageBuffer Image(std::uint8_t slot, bool raw, std::uint32_t valid_bits) {
    ImageBuffer image;
    image.slot = slot;
    image.file_name = L"a.tif";
    image.source_path = L"C:\\pics\\a.tif";
    image.raw_data = raw ? 1 : 0;
    image.valid_bits = valid_bits;
    return image;
}

}  // namespace

TEST_CASE("the level cursor begins in the middle of its depth") {
    CHECK(LevelCursor(8, L"ON").Level() == 128);
    CHECK(LevelCursor(10, L"ON").Level() == 512);
    CHECK(LevelCursor(12, L"ON").Level() == 2048);
    CHECK(LevelCursor(14, L"ON").Level() == 8192);
    CHECK(LevelCursor(16, L"ON").Level() == 32768);
    CHECK(LevelCursor(9, L"ON").Level() == 128);
    CHECK(LevelCursor(0, L"ON").Level() == 128);
}

TEST_CASE("the largest level is that of the depth") {
    CHECK(MaxLevel(8) == 255);
    CHECK(MaxLevel(10) == 1023);
    CHECK(MaxLevel(12) == 4095);
    CHECK(MaxLevel(14) == 16383);
    CHECK(MaxLevel(16) == 65535);
    CHECK(MaxLevel(11) == 255);
}

TEST_CASE("the setting shows the level cursor only when it says ON") {
    CHECK(LevelCursor(8, L"ON").Shown());
    CHECK_FALSE(LevelCursor(8, L"OFF").Shown());
    CHECK_FALSE(LevelCursor(8, L"on").Shown());
    CHECK_FALSE(LevelCursor(8, L"").Shown());
}

TEST_CASE("the button of the level cursor says what its next press does") {
    LevelCursor cursor(8, L"ON");
    CHECK(cursor.ButtonCaption() == L"OFF");
    cursor.Toggle();
    CHECK_FALSE(cursor.Shown());
    CHECK(cursor.ButtonCaption() == L"ON");
}

TEST_CASE("the level stays within its range") {
    LevelCursor cursor(8, L"ON");
    cursor.Set(1);
    cursor.Down();
    CHECK(cursor.Level() == 0);
    cursor.Down();
    CHECK(cursor.Level() == 0);
    cursor.Up();
    CHECK(cursor.Level() == 1);
    cursor.Set(254);
    cursor.Up();
    CHECK(cursor.Level() == 255);
    cursor.Up();
    CHECK(cursor.Level() == 255);
    cursor.Set(70000);
    CHECK(cursor.Level() == 255);
    CHECK(cursor.Text() == L"255");
}

TEST_CASE("another depth centres the level, the same one leaves it") {
    LevelCursor cursor(12, L"ON");
    cursor.Set(7);
    cursor.FollowBits(12);
    CHECK(cursor.Level() == 7);
    cursor.FollowBits(16);
    CHECK(cursor.Level() == 32768);
}

TEST_CASE("a typed level is a whole number up to the depth's maximum") {
    CHECK(CheckLevelEntry(L"0", 8).level == 0);
    CHECK(CheckLevelEntry(L"255", 8).level == 255);
    CHECK(CheckLevelEntry(L"0017", 8).level == 17);
    CHECK(CheckLevelEntry(L"65535", 16).level == 65535);
    for (const wchar_t* text : {L"256", L"-1", L"+1", L"", L" 5", L"1.5", L"abc", L"99999999999999"}) {
        CAPTURE(text);
        CHECK_FALSE(CheckLevelEntry(text, 8).level);
    }
}

TEST_CASE("a level out of range is refused with its range") {
    const InputErrorTexts texts = ComposeInputError(CheckLevelEntry(L"4096", 12).refusal);
    CHECK(texts.caption == L"Pixora (Error)");
    CHECK(texts.Line1 == L"Error: Input value (4096)");
    CHECK(texts.Line2 == L"Item: Level cursor position");
    CHECK(texts.Line3 == L"The value must be between \"0\" and \"4095\".");
}

TEST_CASE("a level that is no number is refused without a range") {
    const InputErrorTexts texts = ComposeInputError(CheckLevelEntry(L"-3", 8).refusal);
    CHECK(texts.Line1 == L"Error: Input value (-3)");
    CHECK(texts.Line3.empty());
}

TEST_CASE("of the two messages of a keystroke only the key-down acts") {
    PlotKeys keys;
    CHECK(keys.Test(kDown, kRight).act == PlotKey::right);
    CHECK(keys.Test(kUp, kRight).act == PlotKey::none);
    CHECK(keys.Test(kDown, kLeft).act == PlotKey::left);
    CHECK(keys.Test(kUp, kLeft).act == PlotKey::none);
    CHECK(keys.Test(kDown, kUpArrow).act == PlotKey::up);
    CHECK(keys.Test(kDown, kDownArrow).act == PlotKey::down);
    CHECK(keys.Test(kDown, kEscape).act == PlotKey::escape);
}

TEST_CASE("a key that was pressed elsewhere does nothing when it is released here") {
    PlotKeys keys;
    CHECK(keys.Test(kUp, kEnter).act == PlotKey::none);
    CHECK(keys.Test(kUp, kRight).act == PlotKey::none);
}

TEST_CASE("a held arrow key goes on acting, a held Enter acts once") {
    PlotKeys keys;
    CHECK(keys.Test(kDown, kRight).act == PlotKey::right);
    CHECK(keys.Test(kDown, kRight).act == PlotKey::right);
    CHECK(keys.Test(kDown, kEnter).act == PlotKey::enter);
    CHECK(keys.Test(kDown, kEnter).act == PlotKey::none);
    CHECK(keys.Test(kUp, kEnter).act == PlotKey::none);
    CHECK(keys.Test(kDown, kEnter).act == PlotKey::enter);
}

TEST_CASE("Enter acts again after a box that got its key-up") {
    PlotKeys keys;
    CHECK(keys.Test(kDown, kEnter).act == PlotKey::enter);
    keys.Forget();
    CHECK(keys.Test(kDown, kEnter).act == PlotKey::enter);
}

TEST_CASE("messages of the plot's keys are kept from the dialog, all others are not") {
    PlotKeys keys;
    for (const std::uint64_t key : {kEnter, kEscape, kLeft, kUpArrow, kRight, kDownArrow}) {
        CHECK(keys.Test(kDown, key).swallow);
        CHECK(keys.Test(kUp, key).swallow);
        CHECK_FALSE(keys.Test(kChar, key).swallow);
        CHECK_FALSE(keys.Test(kClick, key).swallow);
        CHECK(keys.Test(kChar, key).act == PlotKey::none);
    }
    CHECK_FALSE(keys.Test(kDown, 'A').swallow);
    CHECK_FALSE(keys.Test(kDown, 9).swallow);
}

TEST_CASE("a press of the channel button goes through the channels of a colour image") {
    CHECK(NextChannel(1, true) == 2);
    CHECK(NextChannel(2, true) == 3);
    CHECK(NextChannel(3, true) == 4);
    CHECK(NextChannel(4, true) == 1);
    CHECK(NextChannel(0, true) == 1);
    CHECK(NextChannel(9, true) == 1);
    CHECK(NextChannel(0, false) == 0);
}

TEST_CASE("the channel button names the channel, and nothing for a grey image") {
    CHECK(ChannelCaption(1, true) == L"R");
    CHECK(ChannelCaption(2, true) == L"G");
    CHECK(ChannelCaption(3, true) == L"B");
    CHECK(ChannelCaption(4, true) == L"RGB");
    CHECK(ChannelCaption(0, false) == L" ");
}

TEST_CASE("every range of the division table begins and ends where it should") {
    struct Row {
        std::int64_t first, last;
        std::uint32_t unit;
    };
    constexpr Row kTable[] = {
        {0, 9, 1},
        {10, 19, 2},
        {20, 49, 5},
        {50, 99, 10},
        {100, 199, 20},
        {200, 499, 50},
        {500, 999, 100},
        {1'000, 1'999, 200},
        {2'000, 4'999, 500},
        {5'000, 9'999, 1'000},
        {10'000, 19'999, 2'000},
        {20'000, 49'999, 5'000},
        {50'000, 99'999, 10'000},
        {100'000, 199'999, 20'000},
        {200'000, 499'999, 50'000},
        {500'000, 999'999, 100'000},
        {1'000'000, 1'999'999, 200'000},
        {2'000'000, 4'999'999, 500'000},
        {5'000'000, 9'999'999, 1'000'000},
        {10'000'001, 4'294'967'295, 1'000'000},
        {-5, -1, 1'000'000},
    };
    for (const Row& row : kTable) {
        CAPTURE(row.first);
        CHECK(UnitPerDivision(row.first) == row.unit);
        CHECK(UnitPerDivision(row.last) == row.unit);
    }
}

TEST_CASE("exactly ten million gets one unit per division") {
    CHECK(UnitPerDivision(10'000'000) == 1);
    // The number of divisions is kept in 16 bits.
    CHECK(DivideAxis(10'000'000) == Divisions{1, 38528, 38528});
}

TEST_CASE("an axis ends at the first division that holds the largest value") {
    CHECK(DivideAxis(0) == Divisions{1, 0, 0});
    CHECK(DivideAxis(1) == Divisions{1, 1, 1});
    CHECK(DivideAxis(10) == Divisions{2, 5, 10});
    CHECK(DivideAxis(11) == Divisions{2, 6, 12});
    CHECK(DivideAxis(1234) == Divisions{200, 7, 1400});
    CHECK(DivideAxis(4'294'967'295) == Divisions{1'000'000, 4295, 4'295'000'000 - 4'294'967'296});
}

TEST_CASE("thousands are separated by commas, up to a billion") {
    CHECK(ThousandsText(0) == L"0");
    CHECK(ThousandsText(999) == L"999");
    CHECK(ThousandsText(1'000) == L"1,000");
    CHECK(ThousandsText(12'345) == L"12,345");
    CHECK(ThousandsText(123'456) == L"123,456");
    CHECK(ThousandsText(1'234'567) == L"1,234,567");
    CHECK(ThousandsText(1'000'000'000) == L"1,000,000,000");
    CHECK(ThousandsText(1'000'000'001) == L"---");
    CHECK(ThousandsText(12'884'901'885) == L"---");
}

TEST_CASE("a view's title names its image, its valid bits and its viewer") {
    const auto title = [](const ImageBuffer& image, std::wstring_view style) {
        return ViewTitle(L"Histogram View", image, style);
    };
    CHECK(title(Image(0, false, 8), L"SIMPLE") == L"Histogram View - a.tif [1]");
    CHECK(title(Image(2, true, 12), L"SIMPLE") == L"Histogram View - a.tif - Upper 12bit [3]");
    CHECK(title(Image(7, true, 16), L"FULL") == L"Histogram View - C:\\pics\\a.tif - 16bit [8]");
    CHECK(title(Image(0, true, 14), L"full") == L"Histogram View - a.tif - Upper 14bit [1]");
    CHECK(title(Image(0, true, 10), L"") == L"Histogram View - a.tif - Upper 10bit [1]");
    CHECK(title(Image(0, true, 8), L"") == L"Histogram View - a.tif - Upper 8bit [1]");
    CHECK(title(Image(0, true, 9), L"") == L"Histogram View - a.tif [1]");
}

TEST_CASE("a view of an image in no slot has its own name for a title") {
    CHECK(ViewTitle(L"Histogram View", Image(8, true, 12), L"FULL") == L"Histogram View");
}
