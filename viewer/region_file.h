// Saving a viewer's region: what is saved, under which name, and what the user is told.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/message.h"
#include "image/region_save.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// The name that is proposed for the file of a region: the source's name without its extension, the region's
/// edges as they are stored, and "tif" for a TIFF source or else "bmp"; L"a_10.20_30.40.bmp".
[[nodiscard]] std::wstring RegionFileName(const ImageBuffer& image, const Region& region);

/// The extension of that name, without its point.
[[nodiscard]] std::wstring RegionFileExtension(const ImageBuffer& image);
/// That name in the folder where the dialog starts.
/// @param folder  as it is stored, with or without a separator at its end; one that is not usable counts as
///                none.
[[nodiscard]] std::wstring ProposedRegionPath(const ImageBuffer& image, const Region& region,
                                              std::wstring_view folder);
/// The kinds of file that the dialog offers.
inline constexpr std::wstring_view kRegionFilter =
    L"All Files(*.*)|*.*|BMP Files(*.bmp)|*.bmp|TIFF Files(*.tif;*.tiff)|*.tif;*.tiff||";

/// The samples of a region, taken out of their image.
struct CutRegion {
    std::uint32_t width = 0, height = 0;
    bool colour = false;
    std::uint32_t bits = 8;
    std::vector<std::uint16_t> samples;  ///< one a pixel for grey, three (blue green red) for colour

    /// As SaveRegion() takes them; valid as long as this object.
    [[nodiscard]] RegionPixels Pixels() const { return {width, height, colour, bits, samples}; }
};

/// Cuts a region out of an image's samples, rows top to bottom. What lies outside the image is left out, so
/// that nothing may be left.
/// @param bits  the depth that measurements work with.
[[nodiscard]] CutRegion CutOutRegion(const SampleBuffer& source, bool colour, std::uint32_t bits,
                                     const Region& region);

/// Saves a region of the viewer's image as the kind of file that the path's extension chooses.
/// @return false, with the file at `path` as it was, when SaveRegion() refuses or the memory cannot be had.
[[nodiscard]] bool SaveRegionOf(const ViewerState& state, const Region& region,
                                const std::filesystem::path& path) noexcept;

/// What the user is told of a region that was saved, and of one that was not.
inline constexpr std::wstring_view kRegionSaved = L"Image file has been saved.";
[[nodiscard]] Message RegionNotSaved(const std::filesystem::path& path);

/// The folder part of a chosen path, up to and including its last backslash; empty without one.
[[nodiscard]] std::wstring SaveFolderOf(const std::filesystem::path& path);

}  // namespace pixora
