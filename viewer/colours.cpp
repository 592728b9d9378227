#include "viewer/colours.h"

#include <array>
#include <cstddef>

namespace pixora {
namespace {

// One colour for each of the indices 0, 1 and 2, and one for every other.
using Palette = std::array<Rgb, 4>;

// Deliberate: the three greens differ, and the green tint is a light cyan.
constexpr Palette kLine = {{{0, 200, 0}, {200, 0, 0}, {200, 200, 200}, {200, 0, 0}}};
constexpr Palette kFrame = {{{53, 158, 66}, {200, 0, 0}, {240, 240, 240}, {53, 158, 66}}};
constexpr Palette kTint = {{{153, 255, 255}, {200, 0, 0}, {240, 240, 240}, {153, 255, 255}}};
constexpr Palette kMark = {{{0, 200, 0}, {200, 0, 0}, {200, 200, 200}, {250, 250, 250}}};

constexpr Rgb Pick(const Palette& palette, ColorIndex index) {
    const int number = static_cast<int>(index);
    return number >= 0 && number < 3 ? palette[static_cast<std::size_t>(number)] : palette.back();
}

}  // namespace

ColorIndex ColorIndexOf(std::wstring_view setting, ColorIndex current) {
    if (setting == L"GREEN") return ColorIndex::green;
    if (setting == L"RED") return ColorIndex::red;
    if (setting == L"GRAY") return ColorIndex::gray;
    return current;
}

ColorIndex MarkColorIndexOf(std::wstring_view setting, ColorIndex current) {
    return setting == L"WHITE" ? ColorIndex::white : ColorIndexOf(setting, current);
}

BorderStyle BorderStyleOf(std::wstring_view setting) {
    return setting == L"LINE" ? BorderStyle::line : BorderStyle::area;
}

Rgb LineColour(ColorIndex index) {
    return Pick(kLine, index);
}

Rgb FrameColour(ColorIndex index) {
    return Pick(kFrame, index);
}

Rgb TintColour(ColorIndex index) {
    return Pick(kTint, index);
}

Rgb MarkColour(ColorIndex index) {
    return Pick(kMark, index);
}

}  // namespace pixora
