// The pixels of a BMP file, block by block.
#pragma once

#include <functional>

#include "base/file.h"
#include "image/bmp_reader.h"
#include "image/stored_pixels.h"

namespace pixora {

/// Reads the pixels of an accepted file in the order in which it holds them, and calls `take` for one or more
/// whole rows of them, or a part of one; it says whether to go on. A file that ends early just ends the
/// reading.
void ForEachStored(File& source, const BmpHeader& header,
                   const std::function<bool(const StoredPixels&)>& take);

}  // namespace pixora
