#include "analysis/profile_line.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

constexpr auto kHorizontal = ProfileKind::horizontal, kVertical = ProfileKind::vertical;

ProfileScope Image(ProfileKind kind, int width, int height) {
    return {.kind = kind, .width = width, .height = height};
}

ProfileScope Shown(ProfileKind kind, const Region& region) {
    return {.kind = kind, .width = 100, .height = 80, .region_shown = true, .region = region};
}

}  // namespace

TEST_CASE("the lines are rows or columns of the image, the positions the other ones") {
    CHECK(LinesOf(Image(kHorizontal, 100, 80)) == LineRange{0, 79});
    CHECK(LinesOf(Image(kVertical, 100, 80)) == LineRange{0, 99});
    CHECK(PositionsOf(Image(kHorizontal, 100, 80)) == LineRange{0, 99});
    CHECK(PositionsOf(Image(kVertical, 100, 80)) == LineRange{0, 79});
}

TEST_CASE("a region that shows limits lines and positions, one that does not limits nothing") {
    ProfileScope scope = Shown(kHorizontal, {10, 20, 30, 40});
    CHECK(LinesOf(scope) == LineRange{20, 40});
    CHECK(PositionsOf(scope) == LineRange{10, 30});
    scope.kind = kVertical;
    CHECK(LinesOf(scope) == LineRange{10, 30});
    CHECK(PositionsOf(scope) == LineRange{20, 40});
    scope.region_shown = false;
    CHECK(LinesOf(scope) == LineRange{0, 99});
}

TEST_CASE("the middle of an even number of lines is the one before the half") {
    CHECK(CentredLine(Image(kVertical, 100, 7)) == 49);
    CHECK(CentredLine(Image(kVertical, 101, 7)) == 50);
    CHECK(CentredLine(Image(kHorizontal, 7, 100)) == 49);
    CHECK(CentredLine(Image(kHorizontal, 7, 101)) == 50);
    CHECK(CentredLine(Image(kHorizontal, 7, 1)) == 0);
    CHECK(CentredLine(Image(kHorizontal, 7, 2)) == 0);
    CHECK(CentredLine(Image(kVertical, 65535, 7)) == 32767);
    CHECK(CentredLine(Image(kVertical, 0, 0)) == 0);
}

TEST_CASE("the middle of a region is half the sum of its edges, truncated") {
    CHECK(CentredLine(Shown(kHorizontal, {10, 20, 31, 41})) == 30);
    CHECK(CentredLine(Shown(kVertical, {10, 20, 31, 41})) == 20);
    CHECK(CentredLine(Shown(kVertical, {-1, 0, 0, 9})) == 0);
    CHECK(CentredLine(Shown(kVertical, {-9, 0, -3, 9})) == 0);
}

TEST_CASE("UP moves a row up the screen and a column to the right") {
    CHECK(LineUp(Image(kHorizontal, 100, 80), 40) == 39);
    CHECK(LineDown(Image(kHorizontal, 100, 80), 40) == 41);
    CHECK(LineUp(Image(kVertical, 100, 80), 40) == 41);
    CHECK(LineDown(Image(kVertical, 100, 80), 40) == 39);
}

TEST_CASE("the steps end at the edges of the image") {
    CHECK(LineUp(Image(kHorizontal, 100, 80), 0) == 0);
    CHECK(LineDown(Image(kHorizontal, 100, 80), 79) == 79);
    CHECK(LineUp(Image(kVertical, 100, 80), 99) == 99);
    CHECK(LineDown(Image(kVertical, 100, 80), 0) == 0);
}

TEST_CASE("the steps end at the edges of a region that shows") {
    const Region region{10, 20, 30, 40};
    CHECK(LineUp(Shown(kHorizontal, region), 20) == 20);
    CHECK(LineDown(Shown(kHorizontal, region), 40) == 40);
    CHECK(LineUp(Shown(kVertical, region), 30) == 30);
    CHECK(LineDown(Shown(kVertical, region), 10) == 10);
}

TEST_CASE("a line outside the region comes one line nearer to it") {
    const Region region{10, 20, 30, 40};
    CHECK(LineDown(Shown(kHorizontal, region), 5) == 6);
    CHECK(LineUp(Shown(kHorizontal, region), 70) == 69);
    CHECK(LineUp(Shown(kVertical, region), 2) == 3);
    CHECK(LineDown(Shown(kVertical, region), 90) == 89);
}

TEST_CASE("a step away from the region ends at the edge that it would pass") {
    const Region region{10, 20, 30, 40};
    CHECK(LineUp(Shown(kHorizontal, region), 5) == 20);
    CHECK(LineDown(Shown(kHorizontal, region), 70) == 40);
    CHECK(LineUp(Shown(kVertical, region), 90) == 30);
    CHECK(LineDown(Shown(kVertical, region), 2) == 10);
}

TEST_CASE("a region outside the image or with crossed edges keeps the line a line") {
    CHECK(LineUp(Shown(kHorizontal, {0, -20, 9, -10}), 5) == 4);
    CHECK(LineUp(Shown(kHorizontal, {0, -20, 9, -10}), 0) == 0);    // not -1, which the region allows
    CHECK(LineDown(Shown(kHorizontal, {0, -20, 9, -10}), 5) == 0);  // not -10
    CHECK(LineDown(Shown(kHorizontal, {0, 50, 9, 30}), 40) == 30);  // crossed: the bottom lies above
    CHECK(LineUp(Shown(kHorizontal, {0, 50, 9, 30}), 40) == 50);    // and the top below
    CHECK(LineUp(Shown(kVertical, {70'000, 0, 80'000, 9}), 5) == 6);
    CHECK(LineUp(Shown(kVertical, {70'000, 0, 80'000, 9}), 65535) == 65535);
    CHECK(LineDown(Shown(kVertical, {70'000, 0, 80'000, 9}), 5) == 65535);  // not 70000
}

TEST_CASE("a typed line number must be a whole number within the lines") {
    const ProfileScope image = Image(kHorizontal, 100, 80);
    CHECK(CheckLineEntry(L"0", image).line == 0);
    CHECK(CheckLineEntry(L"79", image).line == 79);
    CHECK(CheckLineEntry(L"007", image).line == 7);
    for (const wchar_t* typed : {L"80", L"99999999999", L"", L"-1", L"+1", L"1.5", L" 1", L"abc"})
        CHECK_FALSE(CheckLineEntry(typed, image).line);
    const ProfileScope region = Shown(kVertical, {10, 20, 30, 40});
    CHECK(CheckLineEntry(L"10", region).line == 10);
    CHECK(CheckLineEntry(L"30", region).line == 30);
    CHECK_FALSE(CheckLineEntry(L"9", region).line);
    CHECK_FALSE(CheckLineEntry(L"31", region).line);
    CHECK_FALSE(CheckLineEntry(L"20", Shown(kVertical, {30, 0, 10, 9})).line);
}

TEST_CASE("a refused line number is told with its range") {
    const InputErrorTexts range =
        ComposeInputError(CheckLineEntry(L"41", Shown(kHorizontal, {10, 20, 30, 40})).refusal);
    CHECK(range == InputErrorTexts{L"Pixora (Error)", L"Error: Input value (41)",
                                   L"Item: Profile line number",
                                   L"The value must be between \"20\" and \"40\"."});
    const InputErrorTexts words = ComposeInputError(CheckLineEntry(L"x", Image(kVertical, 100, 80)).refusal);
    CHECK(words ==
          InputErrorTexts{L"Pixora (Error)", L"Error: Input value (x)", L"Item: Profile line number", L""});
}
