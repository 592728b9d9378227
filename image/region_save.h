// Saving a selected region as an image file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

namespace pixora {

/// The pixels of a region and what is known of their image.
struct RegionPixels {
    std::uint32_t width = 0, height = 0;
    bool colour = false;
    std::uint32_t bits = 8;  ///< the depth that measurements work with: 8, 10, 12, 14 or 16
    /// height x width samples for grey, x 3 (blue green red) for colour; rows top to bottom.
    std::span<const std::uint16_t> samples{};
};

/// True when the file name's extension chooses TIFF: ".tif" or ".tiff" in any case. Anything else is BMP.
[[nodiscard]] bool ChoosesTiff(std::wstring_view path);

/// Writes the region in the form that its colour, its depth and the chosen kind of file ask for.
/// @return false, with no file written, for a grey BMP of 14 or 16 bits, any depth not listed above, an empty
/// region, samples that are not as many as its size says, a file that would have 4 GiB or more, and when the
/// file cannot be written.
[[nodiscard]] bool SaveRegion(const RegionPixels& region, const std::filesystem::path& path);

}  // namespace pixora
