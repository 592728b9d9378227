#include "analysis/profile_texts.h"

#include <doctest/doctest.h>

#include <new>

#include "analysis/profile_hold.h"
#include "tests/unit/support/allocations.h"

using namespace pixora;

namespace {

constexpr auto kHorizontal = ProfileKind::horizontal, kVertical = ProfileKind::vertical;

ImageBuffer Image() {
    ImageBuffer image;
    image.slot = 2;
    image.file_name = L"a.tif";
    image.source_path = L"C:\\pictures\\a.tif";
    return image;
}

}  // namespace

TEST_CASE("the title names the orientation, the file and the viewer") {
    CHECK(ProfileTitle(kHorizontal, Image(), L"SIMPLE") == L"H-Profile View - a.tif [3]");
    CHECK(ProfileTitle(kVertical, Image(), L"FULL") == L"V-Profile View - C:\\pictures\\a.tif [3]");
}

TEST_CASE("the title tells the valid bits of a 16-bit source") {
    ImageBuffer image = Image();
    image.raw_data = 1;
    image.valid_bits = 12;
    CHECK(ProfileTitle(kHorizontal, image, L"SIMPLE") == L"H-Profile View - a.tif - Upper 12bit [3]");
    image.valid_bits = 16;
    CHECK(ProfileTitle(kVertical, image, L"SIMPLE") == L"V-Profile View - a.tif - 16bit [3]");
}

TEST_CASE("the labels tell the positions of the whole image") {
    const ProfileLabels labels = LabelsOf({.kind = kHorizontal, .width = 640, .height = 480}, 640, 12);
    CHECK(labels.division == L"H: 100 Pixels/div");
    CHECK(labels.levels == std::array<std::wstring, 4>{L"4095", L"3072", L"2048", L"1024"});
    CHECK(labels.first == L"0");
    CHECK(labels.last == L"639");
}

TEST_CASE("the labels tell the positions of a region that shows") {
    const ProfileScope scope{
        .kind = kVertical, .width = 640, .height = 480, .region_shown = true, .region = {10, 20, 30, 40}};
    const ProfileLabels labels = LabelsOf(scope, 21, 16);
    CHECK(labels.division == L"V: 5 Pixels/div");
    CHECK(labels.levels == std::array<std::wstring, 4>{L"65535", L"49152", L"32768", L"16384"});
    CHECK(labels.first == L"20");
    CHECK(labels.last == L"40");
}

TEST_CASE("the labels of a single position and of none") {
    ProfileScope scope{
        .kind = kHorizontal, .width = 640, .height = 480, .region_shown = true, .region = {7, 0, 7, 9}};
    ProfileLabels labels = LabelsOf(scope, 1, 8);
    CHECK(labels.division == L"H: 1 Pixels/div");
    CHECK(labels.first == L"7");
    CHECK(labels.last == L"7");
    scope.region = {-1, 0, -1, 9};
    labels = LabelsOf(scope, 0, 8);
    CHECK(labels.division == L"H: 1 Pixels/div");
    CHECK(labels.first == L"-1");
    CHECK(labels.last == L"-1");
}

TEST_CASE("the button of the line cursor says what its next press does") {
    CHECK(LineCursorCaption(true) == L"CURSOR OFF");
    CHECK(LineCursorCaption(false) == L"CURSOR ON");
}

TEST_CASE("the line number is written without separators") {
    CHECK(LineText(0) == L"0");
    CHECK(LineText(65535) == L"65535");
}

TEST_CASE("the samples follow the viewer") {
    HeldProfile held;
    LineProfile line{.first = 0, .count = 1, .values = {{{5}, {}, {}}}};
    CHECK_FALSE(held.Follow({}, 0, false, true));
    CHECK(held.Follow(line, 1, false, true));
    CHECK(held.Profile() == line);
    CHECK_FALSE(held.Follow(line, 1, false, true));
    line.values[0] = {6};
    CHECK(held.Follow(line, 2, false, false));
    CHECK(held.Profile() == line);
}

TEST_CASE("a fixed line keeps the samples that were taken last") {
    HeldProfile held;
    const LineProfile first{.first = 0, .count = 1, .values = {{{5}, {}, {}}}};
    const LineProfile second{.first = 3, .count = 1, .values = {{{6}, {}, {}}}};
    CHECK(held.Follow(first, 1, true, false));  // there is nothing to keep yet
    CHECK_FALSE(held.Follow(second, 2, true, false));
    CHECK(held.Profile() == first);
    CHECK(held.Follow(second, 2, false, false));
    CHECK(held.Profile() == second);
}

TEST_CASE("a line cursor that shows lifts the hold of a fixed line") {
    HeldProfile held;
    const LineProfile first{.first = 0, .count = 1, .values = {{{5}, {}, {}}}};
    const LineProfile second{.first = 3, .count = 1, .values = {{{6}, {}, {}}}};
    CHECK(held.Follow(first, 1, true, true));
    CHECK(held.Follow(second, 2, true, true));
    CHECK(held.Profile() == second);
}

TEST_CASE("samples that there is no memory for are asked for once and leave those before them whole") {
    HeldProfile held;
    const LineProfile first{.first = 0, .count = 1, .values = {{{5}, {6}, {7}}}};
    const LineProfile second{.first = 3, .count = 2, .values = {{{1, 2}, {3, 4}, {5, 6}}}};
    REQUIRE(held.Follow(first, 1, false, true));
    bool failed = false;
    {
        const test::ShortMemory memory(1);
        try {
            static_cast<void>(held.Follow(second, 2, false, true));
        } catch (const std::bad_alloc&) {
            failed = true;
        }
    }
    CHECK(failed);
    CHECK(held.Profile() == first);
    CHECK_FALSE(held.Follow(second, 2, false, true));
    CHECK(held.Follow(second, 3, false, true));
    CHECK(held.Profile() == second);
}
