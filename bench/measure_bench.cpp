// Measuring 12 megapixels beside reading them once, and exporting a histogram beside the plainest loop that
// writes such lines.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "analysis/csv.h"
#include "analysis/measurement.h"
#include "base/file.h"
#include "bench/large_images.h"

namespace pixora::bench {
namespace {

constexpr int kWidth = 4096, kHeight = 3000;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;

enum class Scene {
    flat,   ///< one level
    ramp,   ///< from left to right, with the noise of a camera
    noise,  ///< every level alike
};

std::vector<std::uint16_t> MakeSamples(Scene scene, int bits, bool colour) {
    std::vector<std::uint16_t> samples(kPixels * 3);
    std::minstd_rand random(1);
    const auto levels = std::uint32_t{1} << bits;
    const auto level = [&](std::size_t x) -> std::uint32_t {
        const auto draw = static_cast<std::uint32_t>(random() >> 8);
        if (scene == Scene::flat) return levels / 3;
        if (scene == Scene::noise) return draw % levels;
        return static_cast<std::uint32_t>(x * (levels - levels / 16) / kWidth) + draw % (levels / 16);
    };
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] =
            i % 3 != 0 && !colour ? samples[i - 1] : static_cast<std::uint16_t>(level(i / 3 % kWidth));
    return samples;
}

void Measuring(benchmark::State& state, Scene scene, bool colour) {
    const auto bits = static_cast<int>(state.range(0));
    const std::vector<std::uint16_t> samples = MakeSamples(scene, bits, colour);
    const SampleImage image{kWidth, kHeight, colour, static_cast<std::uint32_t>(bits), samples};
    Measurement measurement;
    for (auto _ : state) {
        Measure(image, WholeImage(kWidth, kHeight), measurement);
        benchmark::DoNotOptimize(measurement.statistics[0].mean);
    }
}
BENCHMARK_CAPTURE(Measuring, mono_flat, Scene::flat, false)
    ->Arg(8)
    ->Arg(12)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measuring, mono_ramp, Scene::ramp, false)
    ->Arg(8)
    ->Arg(12)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measuring, mono_noise, Scene::noise, false)
    ->Arg(8)
    ->Arg(12)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measuring, colour_flat, Scene::flat, true)
    ->Arg(8)
    ->Arg(12)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measuring, colour_ramp, Scene::ramp, true)
    ->Arg(8)
    ->Arg(12)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measuring, colour_noise, Scene::noise, true)
    ->Arg(8)
    ->Arg(12)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);

// What no measurement can do without: every sample is taken into a register once.
void ReadingSamples(benchmark::State& state) {
    const std::vector<std::uint16_t> samples = MakeSamples(Scene::ramp, 12, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(std::accumulate(samples.begin(), samples.end(), std::uint64_t{0}));
}
BENCHMARK(ReadingSamples)->Unit(benchmark::kMillisecond);

constexpr std::size_t kLines = 65536;

std::vector<std::uint32_t> MakeCounts() {
    std::vector<std::uint32_t> counts(kLines);
    std::minstd_rand random(1);
    for (std::uint32_t& count : counts) count = static_cast<std::uint32_t>(random() % 1000);
    return counts;
}

void ExportingHistogram(benchmark::State& state) {
    const HistogramCounts counts{MakeCounts(), {}, {}};
    const std::filesystem::path path = WorkFolder() / "histogram.csv";
    for (auto _ : state)
        if (!WriteWholeFile(path, [&](File& file) { return WriteHistogramCsv(file, counts, false, 0, 16); }))
            state.SkipWithError("not written");
}
BENCHMARK(ExportingHistogram)->Unit(benchmark::kMillisecond);

void ExportingPlainly(benchmark::State& state) {
    const std::vector<std::uint32_t> counts = MakeCounts();
    const std::filesystem::path path = WorkFolder() / "plain.csv";
    for (auto _ : state) {
        std::string text(kLines * 18, '\0');
        char* at = text.data();
        for (std::size_t level = 0; level < kLines; ++level) {
            at = std::to_chars(at, at + 8, level).ptr;
            *at++ = ',';
            at = std::to_chars(at, at + 8, counts[level]).ptr;
            *at++ = '\r';
            *at++ = '\n';
        }
        text.resize(static_cast<std::size_t>(at - text.data()));
        std::optional<File> file = File::Create(path);
        if (!file || !file->Write(std::as_bytes(std::span(text))) || !file->Close())
            state.SkipWithError("not written");
    }
}
BENCHMARK(ExportingPlainly)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace pixora::bench
