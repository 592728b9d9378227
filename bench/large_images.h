// Large image files for the benchmarks, made once per run in a folder that goes with the process.
#pragma once

#include <cstdint>
#include <filesystem>

namespace pixora::bench {

enum class Format { bmp24, tiff16_mono, tiff16_rgb };

struct Size {
    std::uint32_t width, height;
    [[nodiscard]] std::uint64_t Pixels() const { return std::uint64_t{width} * height; }
};
inline constexpr Size k12Megapixels{4000, 3000};
inline constexpr Size k50Megapixels{8192, 6144};

/// The folder of this run: below $PIXORA_BENCH_DIR, or else below the system's folder for temporary files.
const std::filesystem::path& WorkFolder();

/// A file of noisy samples, so that nothing can be skipped or compressed away; made at the first call. 24-bit
/// files are grey, because the search for a coloured pixel then goes to their end.
const std::filesystem::path& ImageFile(Format format, Size size);

}  // namespace pixora::bench
