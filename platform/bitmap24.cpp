#include "platform/bitmap24.h"

#include <utility>

namespace pixora {

std::optional<Bitmap24> MakeBitmap24(LONG width, LONG height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    UniqueBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap || !bits) return std::nullopt;
    const std::size_t stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    const std::span rows(static_cast<std::byte*>(bits), stride * static_cast<std::size_t>(height));
    return Bitmap24{std::move(bitmap), rows};
}

}  // namespace pixora
