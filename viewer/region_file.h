// What is saved of a viewer's region, and under which name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "image/region_save.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// The name that is proposed for the file of a region: the source's name without its extension, the region's
/// edges as they are stored, and "tif" for a TIFF source or else "bmp"; L"a_10.20_30.40.bmp".
[[nodiscard]] std::wstring RegionFileName(const ImageBuffer& image, const Region& region);

/// The samples of a region, taken out of their image.
struct CutRegion {
    std::uint32_t width = 0, height = 0;
    bool colour = false;
    std::uint32_t bits = 8;
    std::vector<std::uint16_t> samples;  ///< one a pixel for grey, three (blue green red) for colour

    /// As SaveRegion() takes them; valid as long as this object.
    [[nodiscard]] RegionPixels Pixels() const { return {width, height, colour, bits, samples}; }
};

/// Cuts the viewer's region out of its samples, rows top to bottom. What lies outside the image is left out,
/// so that nothing may be left.
[[nodiscard]] CutRegion CutOutRegion(const ViewerState& state);

}  // namespace pixora
