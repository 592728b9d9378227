// Titles of the analysis views.
#pragma once

#include <string>
#include <string_view>

#include "image/image_buffer.h"

namespace pixora {

/// `view` and the image it belongs to, for example L"Histogram View - a.tif - Upper 12bit [3]"; `view` alone
/// when the image is in no slot.
/// @param view           L"Histogram View", L"H-Profile View" or L"V-Profile View".
/// @param caption_style  the setting CAP_STYLE: "FULL" shows the full path, any other text the file name.
[[nodiscard]] std::wstring ViewTitle(std::wstring_view view, const ImageBuffer& image,
                                     std::wstring_view caption_style);

}  // namespace pixora
