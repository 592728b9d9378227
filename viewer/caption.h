// The caption of a viewer.
#pragma once

#include <string>
#include <string_view>

#include "image/image_buffer.h"

namespace pixora {

/// The caption of `image`'s viewer: its number, its display size, its name and, for a TIFF, its bits; for
/// example L"[3 ]  (50%) File Name : sample.tif   (Upper 12bit / 16bit)".
/// @param caption_style  the setting CAP_STYLE: "FULL" shows the full path, any other text the file name.
[[nodiscard]] std::wstring ViewerCaption(const ImageBuffer& image, std::wstring_view caption_style,
                                         std::wstring_view ratio_text);

}  // namespace pixora
