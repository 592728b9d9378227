// Measuring images and regions of every kind, held to counting pixel by pixel.
#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "analysis/measurement.h"

using namespace pixora;

namespace {

using Values = std::vector<std::uint16_t>;
constexpr std::uint32_t kDepths[] = {8, 10, 12, 14, 16};

/// Draws numbers, the same in every run.
class Draw {
public:
    explicit Draw(unsigned seed) : random_(seed) {}
    /// 0 to `most`.
    [[nodiscard]] int UpTo(int most) {
        return static_cast<int>(random_() % (static_cast<unsigned>(most) + 1));
    }
    [[nodiscard]] int Between(int least, int most) { return least + UpTo(most - least); }

private:
    std::mt19937 random_;
};

/// How the samples of an image are spread over the levels.
enum class Style { flat, two_levels, noise, ramp, runs, beyond, largest };
constexpr int kStyles = 7;

std::uint16_t Sample(Draw& draw, Style style, int most, std::size_t at) {
    switch (style) {
        case Style::flat:
            return static_cast<std::uint16_t>(most / 3);
        case Style::two_levels:
            return static_cast<std::uint16_t>(draw.UpTo(1) == 0 ? 0 : most);
        case Style::ramp:
            return static_cast<std::uint16_t>(at % (static_cast<std::size_t>(most) + 1));
        case Style::runs:
            return static_cast<std::uint16_t>(at / 50 * 7 % (static_cast<std::size_t>(most) + 1));
        case Style::beyond:  // more than the depth holds, as a data copy of someone else's making may
            return static_cast<std::uint16_t>(draw.UpTo(65535));
        case Style::largest:
            return static_cast<std::uint16_t>(most);
        case Style::noise:
            break;
    }
    return static_cast<std::uint16_t>(draw.UpTo(most));
}

struct TestImage {
    int width = 0, height = 0;
    bool colour = false;
    std::uint32_t bits = 8;
    Values samples;
    [[nodiscard]] SampleImage View() const {
        return {.width = width, .height = height, .colour = colour, .bits = bits, .samples = samples};
    }
};

TestImage MakeImage(Draw& draw, int width, int height, bool colour, std::uint32_t bits, Style style) {
    TestImage image{width, height, colour, bits, {}};
    const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            image.samples.push_back(channel > 0 && !colour
                                        ? image.samples.back()
                                        : Sample(draw, style, (1 << bits) - 1, 3 * pixel + channel));
    }
    return image;
}

/// The samples of one channel, or of all (-1), in the part of the region that lies in the image; each no
/// larger than the last bin.
Values SamplesIn(const TestImage& image, const Region& region, int channel) {
    Values values;
    const int last = (1 << image.bits) - 1;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const bool inside =
                x >= region.left && x <= region.right && y >= region.top && y <= region.bottom;
            for (int place = 0; inside && place < 3; ++place) {
                const auto at = static_cast<std::size_t>(3 * (y * image.width + x) + place);
                if (channel == -1 || place == channel)
                    values.push_back(
                        static_cast<std::uint16_t>(std::min(static_cast<int>(image.samples[at]), last)));
            }
        }
    }
    return values;
}

bool Near(double found, double expected) {
    return std::abs(found - expected) <= 1e-9 * std::max(1.0, std::abs(expected));
}

bool SameStatistics(const SampleStatistics& found, const Values& values) {
    if (values.empty()) return found == SampleStatistics{};
    double sum = 0, squares = 0;
    for (const std::uint16_t value : values) sum += value;
    const double n = static_cast<double>(values.size()), mean = sum / n;
    for (const std::uint16_t value : values) squares += (value - mean) * (value - mean);
    return found.min == std::ranges::min(values) && found.max == std::ranges::max(values) &&
           Near(found.mean, mean) && Near(found.std, std::sqrt(squares / n));
}

bool SameCounts(const std::vector<std::uint32_t>& found, const Values& values, std::uint32_t bits) {
    std::vector<std::uint32_t> counts(std::size_t{1} << bits, 0);
    for (const std::uint16_t value : values) ++counts[value];
    return found == counts;
}

bool SameMeasurement(const Measurement& found, const TestImage& image, const Region& region) {
    const int channels = image.colour ? 3 : 1;
    bool same = found.colour == image.colour;
    for (int place = 0; place < channels; ++place) {
        const Values values = SamplesIn(image, region, place);
        const auto slot = static_cast<std::size_t>(place);
        same = same && found.pixels == values.size() && SameStatistics(found.statistics[slot], values) &&
               SameCounts(found.counts[slot], values, image.bits);
    }
    if (image.colour) return same && SameStatistics(found.statistics[3], SamplesIn(image, region, -1));
    return same && found.counts[1].empty() && found.counts[2].empty() &&
           found.statistics[3] == SampleStatistics{};
}

}  // namespace

TEST_CASE("measuring any region of any image is counting its pixels one by one") {
    Draw draw(1);
    Measurement result;  // used again and again, as a viewer does
    for (int round = 0; round < 300; ++round) {
        const auto style = static_cast<Style>(round % kStyles);
        const TestImage image = MakeImage(draw, draw.Between(1, 70), draw.Between(1, 40), round % 2 == 0,
                                          kDepths[draw.UpTo(4)], style);
        // Anywhere: inside, over the edges, outside, turned round.
        const auto edge = [&](int length) { return draw.Between(-length, 2 * length); };
        Region region = WholeImage(image.width, image.height);
        if (round % 5 != 0)
            region = {edge(image.width), edge(image.height), edge(image.width), edge(image.height)};
        Measure(image.View(), region, result);
        CAPTURE(round);
        CHECK(SameMeasurement(result, image, region));
    }
}

TEST_CASE("large images of every kind are counted to the last pixel") {
    Draw draw(2);
    Measurement result;
    for (const std::uint32_t bits : {8u, 12u, 16u}) {
        for (const bool colour : {false, true}) {
            for (const Style style : {Style::flat, Style::two_levels, Style::noise, Style::ramp}) {
                // More pixels than two counters of 16 bits hold, and a width that no block divides.
                const TestImage image = MakeImage(draw, 401, 331, colour, bits, style);
                CAPTURE(bits);
                CAPTURE(colour);
                CAPTURE(static_cast<int>(style));
                const Region region = style == Style::noise ? Region{1, 0, 399, 330} : WholeImage(401, 331);
                Measure(image.View(), region, result);
                CHECK(SameMeasurement(result, image, region));
            }
        }
    }
}

TEST_CASE("many equal pixels among others in one image are all counted") {
    // The first and the last pixels differ; what lies between is one level, three times what 16 bits count.
    const int width = 1000, height = 200;
    for (const bool colour : {false, true}) {
        TestImage image{width, height, colour, 16, Values(3u * width * height, 40000)};
        for (std::size_t i = 0; i < 30; ++i) {
            image.samples[i] = 0;
            image.samples[image.samples.size() - 1 - i] = 65535;
        }
        Measurement result;
        Measure(image.View(), WholeImage(width, height), result);
        CHECK(result.counts[0][40000] == 199'980);
        CHECK(result.counts[0][0] == 10);
        CHECK(result.counts[0][65535] == 10);
        CHECK(result.statistics[0].min == 0);
        CHECK(result.statistics[0].max == 65535);
        CHECK(result.statistics[0].mean == (199'980.0 * 40000 + 10.0 * 65535) / 200'000);
    }
}
