// Opening an image, beside the least that the two copies can cost: reading the source once and writing as
// many bytes as the copies have, with nothing computed.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "app/import.h"
#include "base/file.h"
#include "bench/large_images.h"
#include "image/bmp_layout.h"

namespace pixora::bench {
namespace {

namespace fs = std::filesystem;

void RemoveCopies(benchmark::State& state, const fs::path& folder) {
    state.PauseTiming();
    DeleteTemporaryCopies(folder);
    state.ResumeTiming();
}

void Import(benchmark::State& state, Format format, Size size) {
    const ImportRequest request{.source = ImageFile(format, size),
                                .data_folder = WorkFolder(),
                                .display_size = L"0.500",
                                .valid_bits = L"16",
                                .auto_bit = L"ON",
                                .before_long_import = {}};
    for (auto _ : state) {
        const ImportResult result = ImportImage(request);
        if (!result.image) state.SkipWithError("the image was refused");
        RemoveCopies(state, request.data_folder);
    }
    state.counters["megapixels"] = static_cast<double>(size.Pixels()) / 1e6;
}

bool WriteBytes(const fs::path& path, std::uint64_t count, std::span<const std::byte> block) {
    std::optional<File> file = File::Create(path);
    for (; file && count > 0; count -= std::min<std::uint64_t>(count, block.size()))
        if (!file->Write(block.first(static_cast<std::size_t>(std::min<std::uint64_t>(count, block.size())))))
            return false;
    return file && file->Close();
}

void ReadAndWriteOnly(benchmark::State& state, Format format, Size size) {
    const fs::path& source = ImageFile(format, size);
    const std::uint64_t data_bytes =
        format == Format::bmp24 ? 0 : size.Pixels() * (format == Format::tiff16_rgb ? 6 : 2);
    std::vector<std::byte> block(kBlockBytes);
    for (auto _ : state) {
        std::optional<File> file = File::OpenForReading(source);
        while (file && file->Read(block) == block.size()) benchmark::DoNotOptimize(block.data());
        const bool written =
            WriteBytes(DisplayCopyPath(WorkFolder(), 0), Bmp24Stride(size.width) * size.height, block) &&
            (data_bytes == 0 || WriteBytes(DataCopyPath(WorkFolder(), 0, ".bin"), data_bytes, block));
        if (!written) state.SkipWithError("the copies could not be written");
        RemoveCopies(state, WorkFolder());
    }
    state.counters["megapixels"] = static_cast<double>(size.Pixels()) / 1e6;
}

// The processor's own limit: copying bytes from one place in memory to another.
void CopyMemory(benchmark::State& state) {
    const std::vector<std::byte> from(std::size_t{64} << 20, std::byte{7});
    std::vector<std::byte> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * from.size()));
}
BENCHMARK(CopyMemory)->Unit(benchmark::kMillisecond);

#define PIXORA_BENCH_IMPORT(format, size)                                                               \
    BENCHMARK_CAPTURE(Import, format##_##size, Format::format, k##size)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(ReadAndWriteOnly, format##_##size, Format::format, k##size)                       \
        ->Unit(benchmark::kMillisecond)

PIXORA_BENCH_IMPORT(tiff16_mono, 12Megapixels);
PIXORA_BENCH_IMPORT(tiff16_rgb, 12Megapixels);
PIXORA_BENCH_IMPORT(bmp24, 12Megapixels);
PIXORA_BENCH_IMPORT(tiff16_mono, 50Megapixels);
PIXORA_BENCH_IMPORT(tiff16_rgb, 50Megapixels);
PIXORA_BENCH_IMPORT(bmp24, 50Megapixels);

}  // namespace
}  // namespace pixora::bench
