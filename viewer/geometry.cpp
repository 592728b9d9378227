#include "viewer/geometry.h"

#include "base/number_text.h"

namespace pixora {

PixelRect DisplayRectangle(const Region& region, double ratio) {
    // The edges are widened before one is added: a region may hold any 32-bit value.
    const double right = region.right, bottom = region.bottom;
    return {Truncate(region.left * ratio), Truncate(region.top * ratio), Truncate((right + 1) * ratio),
            Truncate((bottom + 1) * ratio)};
}

}  // namespace pixora
