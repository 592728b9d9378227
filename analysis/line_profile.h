// The samples along one row or one column of an image.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/measurement.h"
#include "image/region.h"

namespace pixora {

enum class ProfileKind { horizontal, vertical };

/// One line of samples.
struct LineProfile {
    int first = 0;  ///< the column (horizontal) or row (vertical) of the first position
    int count = 0;  ///< positions; 0 when the line or its extent lies outside the image
    /// `count` values each, by the sample's place in its pixel (0 blue, 1 green, 2 red; grey 0 alone).
    std::array<std::vector<std::uint16_t>, 3> values;
    friend bool operator==(const LineProfile&, const LineProfile&) = default;
};

/// Reads row or column `line` of the image, from edge to edge of `extent` as far as that lies in the image.
/// Reuses the memory of `result`.
/// @param extent  the region that shows, or WholeImage().
void ReadLine(const SampleImage& image, ProfileKind kind, int line, const Region& extent,
              LineProfile& result);

}  // namespace pixora
