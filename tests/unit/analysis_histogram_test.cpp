// The histogram's axes, bins and texts.
#include <doctest/doctest.h>

#include "analysis/histogram_bins.h"
#include "analysis/histogram_scale.h"
#include "analysis/histogram_texts.h"

using namespace pixora;

namespace {

HistogramScale Scale(std::uint32_t bits, int width = 513, int height = 260) {
    return {width, height, bits};
}

ImageBuffer Image(std::uint32_t bits_per_sample) {
    ImageBuffer image;
    image.bits_per_sample = bits_per_sample;
    return image;
}

ImageBuffer RawImage(std::uint32_t valid_bits) {
    ImageBuffer image = Image(16);
    image.raw_data = 1;
    image.valid_bits = valid_bits;
    return image;
}

using Bins = std::vector<std::uint32_t>;

}  // namespace

TEST_CASE("the usable width depends on the depth") {
    CHECK(UsableWidth(Scale(8)) == 512);
    CHECK(UsableWidth(Scale(10)) == 511);
    CHECK(UsableWidth(Scale(12)) == 511);
    CHECK(UsableWidth(Scale(14)) == 511);
    CHECK(UsableWidth(Scale(16)) == 513);
    CHECK(UsableWidth(Scale(9)) == 512);
    CHECK(BinStep(Scale(8)) == 2.0);
    CHECK(BinStep(Scale(12)) == 511.0 / 4096);
}

TEST_CASE("a bin begins one pixel right of its place, cut to a whole pixel") {
    CHECK(ColumnOfBin(0, 2.0) == 1);
    CHECK(ColumnOfBin(255, 2.0) == 511);
    CHECK(ColumnOfBin(256, 2.0) == 513);
    CHECK(ColumnOfBin(3, 0.5) == 2);
    CHECK(ColumnOfBin(65536, 513.0 / 65536) == 514);
}

TEST_CASE("the level cursor at the left edge stands one pixel inside the plot") {
    CHECK(ColumnOfCursor(0, 2.0) == 1);
    CHECK(ColumnOfCursor(1, 2.0) == 2);
    CHECK(ColumnOfCursor(128, 2.0) == 256);
    CHECK(ColumnOfCursor(100, 0.009) == 1);  // also where the place is less than a pixel
    CHECK(ColumnOfCursor(65535, 513.0 / 65536) == 512);
}

TEST_CASE("seven vertical lines divide the usable width by eight") {
    CHECK(GridColumn(Scale(8), 1) == 64);
    CHECK(GridColumn(Scale(8), 7) == 448);
    CHECK(GridColumn(Scale(12), 1) == 63);
    CHECK(GridColumn(Scale(12), 4) == 255);
    CHECK(GridColumn(Scale(16), 7) == 448);
}

TEST_CASE("the labels stand centred under the quarter marks") {
    CHECK(QuarterLabelLeft(Scale(8), 1, 40) == 108);
    CHECK(QuarterLabelLeft(Scale(8), 2, 40) == 236);
    CHECK(QuarterLabelLeft(Scale(8), 4, 40) == 492);
    CHECK(FullScaleLabelTop(14) == -6);
}

TEST_CASE("a click in the plot sets the level under it") {
    CHECK(LevelAtClick(100, 100, 613, Image(8)) == 0);
    CHECK(LevelAtClick(356, 100, 613, Image(8)) == 127);
    CHECK(LevelAtClick(357, 100, 613, Image(8)) == 128);
    CHECK(LevelAtClick(612, 100, 613, Image(8)) == 255);
    CHECK(LevelAtClick(613, 100, 613, Image(8)) == 255);
    CHECK(LevelAtClick(356, 100, 612, Image(12)) == 2048);
    CHECK(LevelAtClick(356, 100, 612, Image(16)) == 32768);
}

TEST_CASE("a click on the left of the plot sets 0, on its right the largest level") {
    for (const int x : {99, 98, 0, -5}) CHECK(LevelAtClick(x, 100, 613, Image(16)) == 0);
    CHECK(LevelAtClick(614, 100, 613, Image(8)) == 255);
    CHECK(LevelAtClick(5000, 100, 613, Image(12)) == 4095);
    CHECK(LevelAtClick(614, 100, 613, Image(16)) == 65535);
}

TEST_CASE("with valid bits a click begins with 16 bits and is divided then") {
    CHECK(LevelAtClick(356, 100, 612, RawImage(8)) == 128);
    CHECK(LevelAtClick(356, 100, 612, RawImage(10)) == 512);
    CHECK(LevelAtClick(356, 100, 612, RawImage(12)) == 2048);
    CHECK(LevelAtClick(356, 100, 612, RawImage(14)) == 8192);
    CHECK(LevelAtClick(356, 100, 612, RawImage(16)) == 32768);
    CHECK(LevelAtClick(700, 100, 612, RawImage(12)) == 4095);
    CHECK(LevelAtClick(700, 100, 612, RawImage(8)) == 255);
}

TEST_CASE("binning takes the bins together to 256") {
    Bins counts(1024, 0);
    counts[0] = 1;
    counts[3] = 20;
    counts[4] = 300;
    counts[1023] = 7;
    DrawnBins bins;
    GroupBins(counts, true, bins);
    CHECK(bins.group == 4);
    REQUIRE(bins.counts.size() == 256);
    CHECK(bins.counts[0] == 21);
    CHECK(bins.counts[1] == 300);
    CHECK(bins.counts[255] == 7);
}

TEST_CASE("without binning, and with 256 bins anyway, the counts are drawn as they are") {
    DrawnBins bins;
    GroupBins(Bins(4096, 5), false, bins);
    CHECK(bins.group == 1);
    CHECK(bins.counts == Bins(4096, 5));
    GroupBins(Bins(256, 6), true, bins);
    CHECK(bins.group == 1);
    CHECK(bins.counts == Bins(256, 6));
}

TEST_CASE("nothing measured yet has no bins") {
    DrawnBins bins;
    GroupBins({}, true, bins);
    CHECK(bins.counts.empty());
}

TEST_CASE("binning is on for any setting but OFF") {
    CHECK(BinningOf(L"ON"));
    CHECK(BinningOf(L""));
    CHECK(BinningOf(L"off"));
    CHECK_FALSE(BinningOf(L"OFF"));
}

TEST_CASE("the count at a level is that of the selected channel, or of all three together") {
    Measurement measurement;
    measurement.colour = true;
    for (std::size_t place = 0; place < 3; ++place) measurement.counts[place] = Bins(256, 0);
    measurement.counts[0][9] = 1;
    measurement.counts[1][9] = 20;
    measurement.counts[2][9] = 4'000'000'000;
    CHECK(CountAt(measurement, 1, 9) == 4'000'000'000);
    CHECK(CountAt(measurement, 2, 9) == 20);
    CHECK(CountAt(measurement, 3, 9) == 1);
    CHECK(CountAt(measurement, 4, 9) == 4'000'000'021);
    CHECK(CountAt(measurement, 4, 8) == 0);
    CHECK(CountAt(measurement, 4, 256) == 0);
    measurement.colour = false;
    CHECK(CountAt(measurement, 0, 9) == 1);
    CHECK(CountAt({}, 0, 9) == 0);
}

TEST_CASE("the full scale is labelled in ones, thousands or millions") {
    CHECK(FullScaleLabel(0) == L"0");
    CHECK(FullScaleLabel(8) == L"8");
    CHECK(FullScaleLabel(1000) == L"1000");
    CHECK(FullScaleLabel(1001) == L"1.00k");
    CHECK(FullScaleLabel(1400) == L"1.40k");
    CHECK(FullScaleLabel(10000) == L"10.00k");
    CHECK(FullScaleLabel(12000) == L"12.0k");
    CHECK(FullScaleLabel(38528) == L"38.5k");
    CHECK(FullScaleLabel(1000000) == L"1000.0k");
    CHECK(FullScaleLabel(1200000) == L"1.20M");
    CHECK(FullScaleLabel(12000000) == L"12.00M");
}

TEST_CASE("the division of the counts is told in whole units") {
    CHECK(CountDivisionText(1) == L"Y: 1 Pixels/div");
    CHECK(CountDivisionText(500) == L"Y: 500 Pixels/div");
    CHECK(CountDivisionText(1000) == L"Y: 1k Pixels/div");
    CHECK(CountDivisionText(500000) == L"Y: 500k Pixels/div");
    CHECK(CountDivisionText(1000000) == L"Y: 1M Pixels/div");
}

TEST_CASE("the quarters are labelled by the depth") {
    using Labels = std::array<std::wstring, 4>;
    CHECK(LevelLabels(8) == Labels{L"64", L"128", L"192", L"256"});
    CHECK(LevelLabels(10) == Labels{L"256", L"512", L"768", L"1024"});
    CHECK(LevelLabels(12) == Labels{L"1024", L"2048", L"3072", L"4096"});
    CHECK(LevelLabels(14) == Labels{L"4096", L"8192", L"12288", L"16384"});
    CHECK(LevelLabels(16) == Labels{L"16384", L"32768", L"49152", L"65536"});
    CHECK(LevelLabels(7) == Labels{L"64", L"128", L"192", L"256"});
}

TEST_CASE("14 and 16 bits say 512 levels per division") {
    CHECK(LevelDivisionText(8) == L"X: 32 DN/div");
    CHECK(LevelDivisionText(10) == L"X: 128 DN/div");
    CHECK(LevelDivisionText(12) == L"X: 512 DN/div");
    CHECK(LevelDivisionText(14) == L"X: 512 DN/div");
    CHECK(LevelDivisionText(16) == L"X: 512 DN/div");
    CHECK(LevelDivisionText(0) == L"X: 32 DN/div");
}

TEST_CASE("the lines about the samples have three decimals") {
    const HistogramLines lines = HistogramLinesOf({.min = 3, .max = 65535, .mean = 1234.5675, .std = 0});
    CHECK(lines.min == L"Min.= 3");
    CHECK(lines.max == L"Max.= 65535");
    CHECK(lines.mean == L"Mean = 1234.568");
    CHECK(lines.std == L"Std.  = 0.000");
}

TEST_CASE("the frequency is told with its level") {
    CHECK(FrequencyText(0, 128) == L"Freq. = 0 (at 128)");
    CHECK(FrequencyText(1234567, 65535) == L"Freq. = 1,234,567 (at 65535)");
    CHECK(FrequencyText(1000000001, 0) == L"Freq. = --- (at 0)");
}
