#include "tests/ui/support/histogram_view.h"

#include "tests/ui/support/environment.h"
#include "tests/ui/support/image_files.h"

namespace pixora::ui {
namespace {

constexpr std::uint32_t kGrid = 0x808080;

Picture Filled(int width, int height, std::uint32_t colour) {
    Picture picture(width, height);
    for (std::uint32_t& pixel : picture.pixels) pixel = colour;
    return picture;
}

}  // namespace

bool HistogramPicture::HasGridRow(int y) const {
    int grey = 0;
    for (int x = 1; x < Width() - 1; ++x) grey += At(x, y) == kGrid;
    return grey > Width() / 4;
}

bool HistogramPicture::HasGridColumn(int x) const {
    int grey = 0;
    for (int y = 1; y < Height() - 1; ++y) grey += At(x, y) == kGrid;
    return grey > Height() / 4;
}

bool HistogramPicture::IsCursorColumn(int x) const {
    for (int y = 0; y < Height(); ++y)
        if (At(x, y) != kHistCursorPen) return false;
    return true;
}

std::filesystem::path ThreeLevelsFile() {
    Picture picture = Filled(16, 12, Rgb(0, 0, 0));
    for (int y = 6; y < 12; ++y)
        for (int x = 0; x < 16; ++x) picture.At(x, y) = y < 9 ? Rgb(64, 64, 64) : Rgb(255, 255, 255);
    return ScratchFile(L"three.levels.bmp", BmpBytes(picture, 24));
}

std::filesystem::path TwelveBitsFile() {
    // Two samples of 12 bits are three bytes.
    const TiffFile file{.width = 4,
                        .height = 4,
                        .bits = 12,
                        .pixels = std::string("\x01\x00\x11\x01\x20\x13\x01\x00\x11\x01\x20\x13"
                                              "\x01\x00\x11\x01\x20\x13\xFF\xFF\xFF\xFF\xFF\xFF",
                                              24)};
    return ScratchFile(L"twelve.tif", Bytes(file));
}

std::filesystem::path OneColourFile() {
    return ScratchFile(L"one.colour.bmp", BmpBytes(Filled(6, 4, Rgb(200, 120, 40)), 24));
}

}  // namespace pixora::ui
