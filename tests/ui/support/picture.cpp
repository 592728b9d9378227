#include "tests/ui/support/picture.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {
namespace {

std::string Hex(std::uint32_t colour) {
    std::ostringstream text;
    text << std::hex << colour;
    return text.str();
}

std::string SizeDifference(const Picture& shown, int width, int height) {
    if (shown.width == width && shown.height == height) return {};
    std::ostringstream text;
    text << "the picture is " << shown.width << " x " << shown.height << " and not " << width << " x "
         << height;
    return text.str();
}

std::string PixelDifference(int x, int y, std::uint32_t shown, std::uint32_t wanted) {
    std::ostringstream text;
    text << "at " << x << ", " << y << " stands " << Hex(shown) << " and not " << Hex(wanted);
    return text.str();
}

/// Whether a pixel of `image` between both corners, these included, has this colour.
bool Holds(const Picture& image, int left, int top, int right, int bottom, std::uint32_t colour) {
    for (int y = std::max(top, 0); y <= std::min(bottom, image.height - 1); ++y)
        for (int x = std::max(left, 0); x <= std::min(right, image.width - 1); ++x)
            if (image.At(x, y) == colour) return true;
    return false;
}

}  // namespace

std::string DifferenceEnlarged(const Picture& shown, const Picture& image, int zoom) {
    std::string difference = SizeDifference(shown, image.width * zoom, image.height * zoom);
    for (int y = 0; difference.empty() && y < image.height; ++y) {
        for (int x = 0; difference.empty() && x < image.width; ++x) {
            const int column = x * zoom + zoom / 2, row = y * zoom + zoom / 2;
            if (shown.At(column, row) != image.At(x, y))
                difference = PixelDifference(column, row, shown.At(column, row), image.At(x, y));
        }
    }
    return difference;
}

std::string DifferenceReduced(const Picture& shown, const Picture& image, double ratio) {
    const int width = static_cast<int>(image.width * ratio), height = static_cast<int>(image.height * ratio);
    std::string difference = SizeDifference(shown, width, height);
    for (int y = 0; difference.empty() && y < height; ++y) {
        for (int x = 0; difference.empty() && x < width; ++x) {
            const int left = static_cast<int>(x / ratio), top = static_cast<int>(y / ratio);
            const int right = static_cast<int>((x + 1) / ratio), bottom = static_cast<int>((y + 1) / ratio);
            if (!Holds(image, left - 1, top - 1, right, bottom, shown.At(x, y)))
                difference = PixelDifference(x, y, shown.At(x, y), image.At(left, top)) + " or a neighbour";
        }
    }
    return difference;
}

bool Uniform(const Picture& picture) {
    return std::all_of(picture.pixels.begin(), picture.pixels.end(),
                       [&](std::uint32_t pixel) { return pixel == picture.pixels.front(); });
}

Picture CaptureScreen(int left, int top, int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    WatchStep("reading the screen");
    void* bits = nullptr;
    HDC screen = GetDC(nullptr);
    HDC copy = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    Picture picture(width, height);
    if (bitmap) {
        HGDIOBJ previous = SelectObject(copy, bitmap);
        BitBlt(copy, 0, 0, width, height, screen, left, top, SRCCOPY);
        GdiFlush();
        const auto* pixels = static_cast<const std::uint32_t*>(bits);
        for (std::uint32_t& pixel : picture.pixels) pixel = *pixels++ & 0xFFFFFF;
        SelectObject(copy, previous);
        DeleteObject(bitmap);
    }
    DeleteDC(copy);
    ReleaseDC(nullptr, screen);
    if (!bitmap) throw UiError("the screen could not be read");
    return picture;
}

void SavePicture(const std::filesystem::path& path, const Picture& picture) {
    WriteBytes(path, BmpBytes(picture, 24));
}

}  // namespace pixora::ui
