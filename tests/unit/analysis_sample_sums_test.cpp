#include "analysis/sample_sums.h"

#include <doctest/doctest.h>

#include <random>
#include <vector>

using namespace pixora;

namespace {

// One sample after the other, by the definition of the sums.
SampleSums Plain(const std::vector<std::uint16_t>& samples, std::size_t first, std::size_t step) {
    SampleSums sums;
    for (std::size_t i = first; i < samples.size(); i += step) {
        ++sums.count;
        sums.values += samples[i];
        sums.squares += std::uint64_t{samples[i]} * samples[i];
        if (samples[i] < sums.min) sums.min = samples[i];
        if (samples[i] > sums.max) sums.max = samples[i];
    }
    return sums;
}

std::vector<std::uint16_t> Noise(std::size_t count, unsigned seed, unsigned least, unsigned most) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<unsigned> value(least, most);
    std::vector<std::uint16_t> samples(count);
    for (std::uint16_t& sample : samples) sample = static_cast<std::uint16_t>(value(random));
    return samples;
}

}  // namespace

TEST_CASE("sums of any number of samples are exact") {
    for (const auto& [least, most] :
         {std::pair{0u, 65535u}, {0u, 0u}, {65535u, 65535u}, {32767u, 32769u}, {0u, 255u}})
        for (std::size_t count : {0, 1, 2, 3, 15, 16, 17, 47, 48, 49, 51, 96, 1000, 3072, 1048575}) {
            CAPTURE(count);
            CAPTURE(least);
            const std::vector<std::uint16_t> samples =
                Noise(count, static_cast<unsigned>(count), least, most);
            SampleSums grey;
            AddSamples(samples, grey);
            CHECK(grey == Plain(samples, 0, 1));
            if (count % 3 != 0) continue;
            std::array<SampleSums, 3> colour;
            AddTriples(samples, colour);
            for (std::size_t place = 0; place < 3; ++place) CHECK(colour[place] == Plain(samples, place, 3));
        }
}

TEST_CASE("statistics follow from sums") {
    CHECK(StatisticsOf(SampleSums{}) == SampleStatistics{});
    SampleSums sums;
    sums.Add(0, 1);
    sums.Add(2, 1);
    CHECK(StatisticsOf(sums) == SampleStatistics{0, 2, 1.0, 1.0});
    SampleSums flat;
    flat.Add(65535, std::uint64_t{65535} * 65535 * 3);
    CHECK(StatisticsOf(flat) == SampleStatistics{65535, 65535, 65535.0, 0.0});
    // Half of the largest image black, half white: the squares pass 64 bits.
    SampleSums halves;
    halves.Add(0, std::uint64_t{1} << 32);
    halves.Add(65535, std::uint64_t{1} << 32);
    CHECK(StatisticsOf(halves) == SampleStatistics{0, 65535, 32767.5, 32767.5});
    flat.Add(halves);
    CHECK(flat.count == std::uint64_t{65535} * 65535 * 3 + (std::uint64_t{1} << 33));
    CHECK(flat.min == 0);
}
