#include "analysis/line_profile.h"

#include <doctest/doctest.h>

#include <vector>

using namespace pixora;

namespace {

using Values = std::vector<std::uint16_t>;

/// An image whose samples tell their place: 100 x row + 10 x column + 0 blue, 1 green, 2 red.
struct TestImage {
    std::vector<std::uint16_t> samples;
    SampleImage image;

    TestImage(int width, int height, bool colour) {
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column)
                for (int channel = 0; channel < 3; ++channel)
                    samples.push_back(
                        static_cast<std::uint16_t>(100 * row + 10 * column + (colour ? channel : 0)));
        image = {.width = width, .height = height, .colour = colour, .bits = 12, .samples = samples};
    }
};

LineProfile Read(const TestImage& test, ProfileKind kind, int line, const Region& extent) {
    LineProfile profile;
    ReadLine(test.image, kind, line, extent, profile);
    return profile;
}

constexpr auto kHorizontal = ProfileKind::horizontal, kVertical = ProfileKind::vertical;

}  // namespace

TEST_CASE("a row of a grey image is read from edge to edge, one channel") {
    const LineProfile profile = Read({4, 3, false}, kHorizontal, 2, WholeImage(4, 3));
    CHECK(profile.first == 0);
    CHECK(profile.count == 4);
    CHECK(profile.values[0] == Values{200, 210, 220, 230});
    CHECK(profile.values[1].empty());
    CHECK(profile.values[2].empty());
}

TEST_CASE("a column of a colour image is read from top to bottom, blue, green and red apart") {
    const LineProfile profile = Read({4, 3, true}, kVertical, 1, WholeImage(4, 3));
    CHECK(profile.first == 0);
    CHECK(profile.count == 3);
    CHECK(profile.values[0] == Values{10, 110, 210});
    CHECK(profile.values[1] == Values{11, 111, 211});
    CHECK(profile.values[2] == Values{12, 112, 212});
}

TEST_CASE("a region limits the positions, both edges inside") {
    const Region region{1, 1, 2, 2};
    const LineProfile row = Read({4, 4, false}, kHorizontal, 3, region);
    CHECK(row.first == 1);
    CHECK(row.values[0] == Values{310, 320});
    const LineProfile column = Read({4, 4, false}, kVertical, 0, region);
    CHECK(column.first == 1);
    CHECK(column.values[0] == Values{100, 200});
}

TEST_CASE("of a region that leaves the image, what lies inside is read") {
    const LineProfile row = Read({4, 4, false}, kHorizontal, 0, {-1, 0, 4, 3});
    CHECK(row.first == 0);
    CHECK(row.values[0] == Values{0, 10, 20, 30});
    const LineProfile column = Read({4, 4, false}, kVertical, 3, {0, 2, 3, 9});
    CHECK(column.first == 2);
    CHECK(column.values[0] == Values{230, 330});
}

TEST_CASE("a line or a region outside the image gives no positions") {
    const TestImage image(4, 3, true);
    const LineProfile none;
    for (const int row : {-1, 3, 65535}) CHECK(Read(image, kHorizontal, row, WholeImage(4, 3)) == none);
    for (const int column : {-1, 4, 65535}) CHECK(Read(image, kVertical, column, WholeImage(4, 3)) == none);
    for (const Region& region : {Region{4, 0, 9, 2}, Region{-5, 0, -1, 2}, Region{3, 0, 1, 2},
                                 Region{0, 2, 3, 1}, Region{0, 3, 3, 3}}) {
        CHECK(Read(image, kHorizontal, 1, region) == none);
        CHECK(Read(image, kVertical, 1, region) == none);
    }
}

TEST_CASE("a buffer that is shorter than the image gives no positions") {
    TestImage image(4, 3, false);
    image.image.samples = image.image.samples.first(4 * 3 * 3 - 1);
    CHECK(Read(image, kHorizontal, 0, WholeImage(4, 3)) == LineProfile{});
    CHECK(Read({0, 0, false}, kHorizontal, 0, WholeImage(0, 0)) == LineProfile{});
}

TEST_CASE("reading again into the same profile leaves nothing of the last one") {
    LineProfile profile = Read({4, 3, true}, kHorizontal, 0, WholeImage(4, 3));
    const TestImage grey(2, 2, false);
    ReadLine(grey.image, kVertical, 1, WholeImage(2, 2), profile);
    CHECK(profile == LineProfile{0, 2, {Values{10, 110}, Values{}, Values{}}});
    ReadLine(grey.image, kVertical, 2, WholeImage(2, 2), profile);
    CHECK(profile == LineProfile{});
}
