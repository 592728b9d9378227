// A left click in a viewer.
#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/message.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// What was held when the left button went down, and where the cursor is while that is handled.
struct Click {
    PixelPoint cursor;  ///< in client pixels
    bool shift = false, ctrl = false;
};

/// The client point that a click acts on: one pixel below the cursor, and nowhere negative.
[[nodiscard]] PixelPoint ClickPoint(PixelPoint cursor);

/// The row or column of the image that lies at a client coordinate; 65535 when it would be larger.
[[nodiscard]] std::uint16_t LineAt(std::int32_t coordinate, double ratio);

/// Applies a left click: it moves the profile lines, or in corner or move mode the region.
/// @param play  the profile lines may follow clicks.
/// @return what to tell the user when the lines may not; they are left alone then.
[[nodiscard]] std::optional<Warning> ClickViewer(ViewerState& state, const Click& click, bool play);

}  // namespace pixora
