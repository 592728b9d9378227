#include "analysis/sample_sums.h"

#include <algorithm>
#include <cmath>

#include "analysis/sample_sums_x86.h"

namespace pixora {

void SampleSums::Add(std::uint16_t value, std::uint64_t times) {
    if (times == 0) return;
    count += times;
    values += value * times;
    squares += std::uint64_t{value} * value * times;
    min = std::min(min, value);
    max = std::max(max, value);
}

void SampleSums::Add(const SampleSums& others) {
    count += others.count;
    values += others.values;
    squares += others.squares;
    min = std::min(min, others.min);
    max = std::max(max, others.max);
}

// Only the last few operations round, so that nothing is lost on large images and every machine gives the
// same figures.
SampleStatistics StatisticsOf(const SampleSums& sums) {
    if (sums.count == 0) return {};
    const auto n = static_cast<double>(sums.count);
    const std::uint64_t centre = (sums.values + sums.count / 2) / sums.count;  // the nearest whole number
    // The sum of the squared distances from the centre fits 64 bits, because the deviation is at most half of
    // the range; so what its parts lose beyond 64 bits cancels out.
    const std::uint64_t distances = sums.squares - 2 * centre * sums.values + centre * centre * sums.count;
    // Less than half a level, so that little is taken away from what the squares give.
    const double off_centre =
        static_cast<double>(static_cast<std::int64_t>(sums.values - centre * sums.count)) / n;
    const double variance = static_cast<double>(distances) / n - off_centre * off_centre;
    return {sums.min, sums.max, static_cast<double>(sums.values) / n, std::sqrt(std::max(variance, 0.0))};
}

void AddSamples(std::span<const std::uint16_t> samples, SampleSums& sums) {
    for (const std::uint16_t sample : samples.subspan(x86::AddSamples(samples, sums))) sums.Add(sample, 1);
}

void AddTriples(std::span<const std::uint16_t> triples, std::array<SampleSums, 3>& sums) {
    for (std::size_t i = x86::AddTriples(triples, sums); i + 3 <= triples.size(); i += 3)
        for (std::size_t place = 0; place < 3; ++place) sums[place].Add(triples[i + place], 1);
}

}  // namespace pixora
