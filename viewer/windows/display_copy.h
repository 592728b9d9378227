// The picture that a canvas paints from: a display copy as a bitmap in memory.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

#include "platform/gdi.h"

namespace pixora {

/// Loads a display copy into a bottom-up bitmap of 24 bits a pixel. A copy that ends early shows the rows
/// that it holds. The file is closed, and no memory but the bitmap's is kept, when this returns.
/// @return nothing when the file cannot be decoded, or its pixels take 2 GiB or more.
[[nodiscard]] std::optional<UniqueBitmap> LoadDisplayCopy(const std::filesystem::path& display_copy);

}  // namespace pixora
