// The pixel under the mouse.
#pragma once

#include <array>
#include <cstdint>

#include "viewer/geometry.h"

namespace pixora {

/// What a viewer's tick found under the mouse.
struct PixelReadout {
    /// Of the cursor, in display pixels from the canvas's top-left corner; anywhere, also outside.
    PixelPoint mouse;
    /// Red, green and blue; a grey image has its sample three times. Zero outside the image.
    std::array<std::uint16_t, 3> rgb{};
    /// The samples can be read. Both are set once the sample buffer is filled, and only together do they
    /// allow a readout.
    bool samples_ready = false, pixel_ready = false;
    /// The samples could not be read, so that there is nothing to show.
    bool none = false;

    [[nodiscard]] bool Active() const { return samples_ready && pixel_ready; }
    friend bool operator==(const PixelReadout&, const PixelReadout&) = default;
};

}  // namespace pixora
