// What a viewer's tick reads and measures for its views.
#pragma once

#include <optional>

#include "analysis/line_profile.h"
#include "analysis/measurement.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// The viewer's samples as measurements take them; valid as long as the state's samples.
[[nodiscard]] SampleImage SamplesOf(const ViewerState& state);

/// Keeps the pixel under the mouse and what the open views show up to date. Measuring a large image takes
/// many ticks' time, so that everything is computed only for a view that is open, and only when what it
/// depends on is not what it was when it was computed last. A tick with nothing new allocates nothing.
class MeasureTick {
public:
    /// One tick. @param mouse  the cursor in client pixels; the canvas begins at (0, 0).
    void Follow(ViewerState& state, PixelPoint mouse);

private:
    /// What a profile depends on besides the image.
    struct LineKey {
        int line = 0;
        Region extent;
        friend bool operator==(const LineKey&, const LineKey&) = default;
    };

    void FollowRegion(ViewerState& state);
    void FollowRow(ViewerState& state);
    void FollowColumn(ViewerState& state);

    // What the results in the state were computed for; nothing before the first time.
    std::optional<Region> measured_;
    std::optional<LineKey> row_, column_;
};

}  // namespace pixora
