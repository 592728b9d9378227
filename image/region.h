// A rectangle of image pixels.
#pragma once

#include <algorithm>
#include <cstdint>

namespace pixora {

/// Rectangle in image pixels, all four edges inside it; a single pixel has left == right and top == bottom.
/// Editing may leave a region partly or wholly outside its image, or with its edges crossed: texts and
/// overlays show it as it is, whoever reads pixels takes ClippedTo() of it.
struct Region {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    friend bool operator==(const Region&, const Region&) = default;
};

/// The region of a whole image.
[[nodiscard]] constexpr Region WholeImage(int width, int height) {
    return {0, 0, width - 1, height - 1};
}

/// True when no pixel lies in the region.
[[nodiscard]] constexpr bool IsEmpty(const Region& region) {
    return region.left > region.right || region.top > region.bottom;
}

/// The part of `region` that lies in an image of the given size; it may be empty.
[[nodiscard]] constexpr Region ClippedTo(const Region& region, int width, int height) {
    return {std::max(region.left, 0), std::max(region.top, 0), std::min(region.right, width - 1),
            std::min(region.bottom, height - 1)};
}

}  // namespace pixora
