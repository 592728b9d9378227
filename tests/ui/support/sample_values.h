// The samples of an image file at their full depth, read for the tests alone.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pixora::ui {

struct SampleValues {
    int width = 0, height = 0, channels = 0, bits = 0;
    std::vector<std::uint32_t> values;  ///< red, green, blue or grey; rows from top to bottom
};

/// Reads a BMP as three channels of 8 bits, a TIFF of 8, 12 or 16 bits as it is stored in its one strip.
[[nodiscard]] SampleValues ReadValues(const std::filesystem::path& path);

/// A part of an image; all four edges lie inside it.
struct Part {
    int left = 0, top = 0, right = 0, bottom = 0;
};

/// What saving `part` of `source` must write.
/// @param depth  the bits that count, from the upper end of the stored ones.
/// @param grey   one channel is written of a source whose three channels are equal.
/// @param shift  how many lower bits of that depth the file has no room for.
[[nodiscard]] std::vector<std::uint32_t> PartOf(const SampleValues& source, const Part& part, int depth,
                                                bool grey, int shift);

}  // namespace pixora::ui
