// Where the mouse is on an image, and what the statistics view says about it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace pixora {

/// The pixel of an image that a point of the display belongs to. Next to the image's edges the edge's own
/// pixel counts, and further out, too, `x` and `y` are those of the nearest pixel.
struct PixelUnderMouse {
    int x = 0, y = 0;
    bool inside = false;
    friend bool operator==(const PixelUnderMouse&, const PixelUnderMouse&) = default;
};

/// @param mouse_x, mouse_y  in display pixels from the image's top-left corner. @param ratio  above 0.
[[nodiscard]] PixelUnderMouse FindPixelUnderMouse(int mouse_x, int mouse_y, double ratio, int width,
                                                  int height);

/// What the location line and the value lines depend on.
struct ReadoutFacts {
    int mouse_x = 0, mouse_y = 0;  ///< in display pixels from the image's top-left corner
    double ratio = 1;
    int width = 0, height = 0;           ///< of the image
    bool colour = false;                 ///< of the image
    bool active = false;                 ///< the samples can be read
    bool none = false;                   ///< the samples could not be read
    std::array<std::uint16_t, 3> rgb{};  ///< of the pixel; a grey image has its sample in all three
    friend bool operator==(const ReadoutFacts&, const ReadoutFacts&) = default;
};

struct ReadoutLines {
    std::wstring location, top, middle, bottom;
    friend bool operator==(const ReadoutLines&, const ReadoutLines&) = default;
};
[[nodiscard]] ReadoutLines LinesOf(const ReadoutFacts& facts);

}  // namespace pixora
