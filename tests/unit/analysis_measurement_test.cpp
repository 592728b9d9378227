#include "analysis/measurement.h"

#include <doctest/doctest.h>

#include <cmath>
#include <cstdint>
#include <vector>

using namespace pixora;

namespace {

/// A grey image: each sample stands three times.
std::vector<std::uint16_t> Grey(const std::vector<std::uint16_t>& values) {
    std::vector<std::uint16_t> samples;
    for (const std::uint16_t value : values) samples.insert(samples.end(), 3, value);
    return samples;
}

Measurement MeasureAll(const SampleImage& image) {
    Measurement result;
    Measure(image, WholeImage(image.width, image.height), result);
    return result;
}

}  // namespace

TEST_CASE("the depth sets the number of bins") {
    CHECK(BinCount(8) == 256);
    CHECK(BinCount(10) == 1024);
    CHECK(BinCount(12) == 4096);
    CHECK(BinCount(14) == 16384);
    CHECK(BinCount(16) == 65536);
    CHECK(BinCount(0) == 256);
    CHECK(BinCount(11) == 256);
    CHECK(BinCount(32) == 256);
}

TEST_CASE("the channel selector picks the slot of the statistics") {
    CHECK(StatisticsSlot(0) == 0);
    CHECK(StatisticsSlot(1) == 2);
    CHECK(StatisticsSlot(2) == 1);
    CHECK(StatisticsSlot(3) == 0);
    CHECK(StatisticsSlot(4) == 3);
}

TEST_CASE("the standard deviation is that of the population") {
    const std::vector<std::uint16_t> samples = Grey({0, 2});
    const Measurement result = MeasureAll({.width = 2, .height = 1, .samples = samples});
    CHECK(result.statistics[0] == SampleStatistics{.min = 0, .max = 2, .mean = 1.0, .std = 1.0});
    CHECK(result.pixels == 2);
}

TEST_CASE("equal samples deviate by exactly nothing") {
    const std::vector<std::uint16_t> samples(3 * 7 * 5, 40001);
    const Measurement result = MeasureAll({.width = 7, .height = 5, .bits = 16, .samples = samples});
    CHECK(result.statistics[0] == SampleStatistics{40001, 40001, 40001.0, 0.0});
    CHECK(result.counts[0][40001] == 35);
}

TEST_CASE("a grey image has one histogram and one slot") {
    const std::vector<std::uint16_t> samples = Grey({3, 3, 255, 0, 3});
    const Measurement result = MeasureAll({.width = 5, .height = 1, .samples = samples});
    REQUIRE(result.counts[0].size() == 256);
    CHECK(result.counts[0][0] == 1);
    CHECK(result.counts[0][3] == 3);
    CHECK(result.counts[0][255] == 1);
    CHECK(result.counts[1].empty());
    CHECK(result.counts[2].empty());
    CHECK(result.statistics[0].min == 0);
    CHECK(result.statistics[0].max == 255);
    CHECK(result.statistics[0].mean == doctest::Approx(52.8));
    CHECK(result.statistics[1] == SampleStatistics{});
    CHECK(result.statistics[2] == SampleStatistics{});
    CHECK(result.statistics[3] == SampleStatistics{});
}

TEST_CASE(
    "a colour image has a histogram and a slot for each channel, and a slot for all of them as one set") {
    const std::vector<std::uint16_t> samples{10, 20, 30, 12, 24, 1023};
    const Measurement result =
        MeasureAll({.width = 2, .height = 1, .colour = true, .bits = 10, .samples = samples});
    CHECK(result.colour);
    for (const auto& counts : result.counts) CHECK(counts.size() == 1024);
    CHECK(result.counts[0][10] == 1);
    CHECK(result.counts[0][12] == 1);
    CHECK(result.counts[1][24] == 1);
    CHECK(result.counts[2][1023] == 1);
    CHECK(result.statistics[0] == SampleStatistics{10, 12, 11.0, 1.0});
    CHECK(result.statistics[1] == SampleStatistics{20, 24, 22.0, 2.0});
    CHECK(result.statistics[2] == SampleStatistics{30, 1023, 526.5, 496.5});
    CHECK(result.statistics[3].min == 10);
    CHECK(result.statistics[3].max == 1023);
    CHECK(result.statistics[3].mean == doctest::Approx(1119.0 / 6));
    // Not the mean of the three deviations, but that of six samples.
    CHECK(result.statistics[3].std == doctest::Approx(374.1558276084088).epsilon(1e-14));
}

TEST_CASE("a region counts its own pixels, both edges included") {
    std::vector<std::uint16_t> values;
    for (std::uint16_t value = 0; value < 20; ++value) values.push_back(value);  // 5 x 4
    const std::vector<std::uint16_t> samples = Grey(values);
    const SampleImage image{.width = 5, .height = 4, .samples = samples};
    Measurement result;
    Measure(image, {1, 1, 3, 2}, result);  // 6 7 8 / 11 12 13
    CHECK(result.pixels == 6);
    CHECK(result.statistics[0].min == 6);
    CHECK(result.statistics[0].max == 13);
    CHECK(result.statistics[0].mean == 9.5);
    for (std::size_t value = 0; value < 20; ++value)
        CHECK(result.counts[0][value] ==
              ((value >= 6 && value <= 8) || (value >= 11 && value <= 13) ? 1 : 0));
}

TEST_CASE("the part of a region outside the image does not count") {
    const std::vector<std::uint16_t> samples = Grey({1, 2, 3, 4});
    const SampleImage image{.width = 2, .height = 2, .samples = samples};
    Measurement result;
    Measure(image, {-5, 1, 0, 99}, result);
    CHECK(result.pixels == 1);
    CHECK(result.statistics[0] == SampleStatistics{3, 3, 3.0, 0.0});
}

TEST_CASE("a region without a pixel in the image gives zeros") {
    const std::vector<std::uint16_t> samples = Grey({9, 9, 9, 9});
    const SampleImage image{.width = 2, .height = 2, .samples = samples};
    for (const Region region :
         {Region{2, 0, 5, 1}, Region{1, 0, 0, 1}, Region{0, 1, 1, 0}, Region{-3, 0, -1, 1}}) {
        Measurement result;
        Measure(image, WholeImage(2, 2), result);  // what was there before must not stay
        Measure(image, region, result);
        CHECK(result.pixels == 0);
        CHECK(result.statistics[0] == SampleStatistics{});
        REQUIRE(result.counts[0].size() == 256);
        CHECK(result.counts[0][9] == 0);
    }
}

TEST_CASE("an image without samples gives zeros") {
    const Measurement result = MeasureAll({.width = 4, .height = 4, .colour = true, .bits = 12});
    CHECK(result.pixels == 0);
    CHECK(result.counts[2].size() == 4096);
    CHECK(result.statistics[3] == SampleStatistics{});
}

TEST_CASE("samples beyond the last bin count in the last bin") {
    const std::vector<std::uint16_t> samples{300, 255, 65535, 256, 0, 254};
    const Measurement colour = MeasureAll({.width = 2, .height = 1, .colour = true, .samples = samples});
    CHECK(colour.counts[0][255] == 2);
    CHECK(colour.counts[1][255] == 1);
    CHECK(colour.counts[2][255] == 1);
    CHECK(colour.statistics[0] == SampleStatistics{255, 255, 255.0, 0.0});
    const Measurement grey = MeasureAll({.width = 2, .height = 1, .bits = 8, .samples = samples});
    CHECK(grey.counts[0][255] == 2);
}

TEST_CASE("the largest deviation is exact") {
    std::vector<std::uint16_t> samples;
    for (int pixel = 0; pixel < 1000; ++pixel) samples.insert(samples.end(), 3, pixel % 2 == 0 ? 0 : 65535);
    const Measurement result =
        MeasureAll({.width = 100, .height = 10, .colour = true, .bits = 16, .samples = samples});
    for (const SampleStatistics& slot : result.statistics)
        CHECK(slot == SampleStatistics{0, 65535, 32767.5, 32767.5});
}

TEST_CASE("the deviation agrees with the textbook formula on values far from zero") {
    std::vector<std::uint16_t> values;
    double sum = 0;
    for (int i = 0; i < 3001; ++i) {
        values.push_back(static_cast<std::uint16_t>(60000 + (i * i * 7) % 13));
        sum += values.back();
    }
    const double mean = sum / 3001;
    double squares = 0;
    for (const std::uint16_t value : values) squares += (value - mean) * (value - mean);
    const std::vector<std::uint16_t> samples = Grey(values);
    const Measurement result = MeasureAll({.width = 3001, .height = 1, .bits = 16, .samples = samples});
    CHECK(result.statistics[0].mean == doctest::Approx(mean).epsilon(1e-14));
    CHECK(result.statistics[0].std == doctest::Approx(std::sqrt(squares / 3001)).epsilon(1e-12));
}

TEST_CASE("measuring again takes no new memory") {
    const std::vector<std::uint16_t> samples = Grey({1, 2, 3, 4});
    const SampleImage image{.width = 2, .height = 2, .bits = 12, .samples = samples};
    Measurement result;
    Measure(image, WholeImage(2, 2), result);
    const auto* counts = result.counts[0].data();
    const auto* tables = result.tables.data();
    Measure(image, {0, 0, 0, 1}, result);
    CHECK(result.counts[0].data() == counts);
    CHECK(result.tables.data() == tables);
    CHECK(result.counts[0][3] == 1);
    CHECK(result.counts[0][2] == 0);
}
