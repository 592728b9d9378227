// The plot of a line profile.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "analysis/line_profile.h"
#include "analysis/plot.h"
#include "analysis/profile_scale.h"

namespace pixora {

/// What a profile plot shows besides its samples.
struct ProfileLook {
    ProfileKind kind = ProfileKind::horizontal;
    ProfileScale scale;
    bool colour = false;  ///< of the image
    int channel = 0;      ///< the selector
    bool level_shown = false;
    std::uint32_t level = 0;
};

/// The tint behind the plot; one for each orientation, so that two windows side by side are told apart.
[[nodiscard]] PlotColour ProfileTint(ProfileKind kind);

/// The line through `values`. Where several positions share a column of pixels, their samples are drawn as
/// one stroke, which paints the same pixels; so there are only a few lines for each column.
[[nodiscard]] std::vector<PlotLine> TraceOf(std::span<const std::uint16_t> values, const ProfileScale& scale,
                                            PlotColour colour);

/// The whole plot. Without positions it holds the background, the frame, the grid of levels and the cursor.
[[nodiscard]] Plot PlotProfile(const LineProfile& profile, const ProfileLook& look);

}  // namespace pixora
