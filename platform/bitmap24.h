// Bitmaps that the program fills itself.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <span>

#include "platform/gdi.h"

namespace pixora {

/// A bitmap of 24 bits a pixel and the memory of its rows, bottom row first, each filled up to a multiple of
/// four bytes.
struct Bitmap24 {
    UniqueBitmap bitmap;
    std::span<std::byte> rows;
};

/// @param width, height  at least 1 each; less than 2 GiB of rows, more of which the system does not stand.
/// @return an all-black bitmap; nothing when the memory cannot be had.
[[nodiscard]] std::optional<Bitmap24> MakeBitmap24(LONG width, LONG height);

}  // namespace pixora
