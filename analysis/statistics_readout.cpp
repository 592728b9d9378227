#include "analysis/statistics_readout.h"

#include <algorithm>
#include <string_view>

#include "base/number_text.h"

namespace pixora {
namespace {

// One pixel before the first and one behind the last still count as inside.
bool InsideWithMargin(int position, int extent) {
    return position >= -1 && position <= extent;
}

int Nearest(int position, int extent) {
    return std::max(std::min(position, extent - 1), 0);
}

std::wstring Pair(const PixelUnderMouse& pixel, std::wstring_view separator) {
    return L"Location = (" + FormatWhole(pixel.x) + std::wstring(separator) + FormatWhole(pixel.y) + L")";
}

ReadoutLines WithoutValue(std::wstring location) {
    return {std::move(location), L"", L"Value = N/A", L""};
}

}  // namespace

PixelUnderMouse FindPixelUnderMouse(int mouse_x, int mouse_y, double ratio, int width, int height) {
    const int x = Truncate(mouse_x / ratio), y = Truncate(mouse_y / ratio);
    return {Nearest(x, width), Nearest(y, height), InsideWithMargin(x, width) && InsideWithMargin(y, height)};
}

ReadoutLines LinesOf(const ReadoutFacts& facts) {
    const PixelUnderMouse pixel =
        FindPixelUnderMouse(facts.mouse_x, facts.mouse_y, facts.ratio, facts.width, facts.height);
    if (!pixel.inside) return WithoutValue(facts.none ? L"Location = N/A" : L"Location = Out of image");
    // Deliberate: no blank after the comma as long as there is no value to show.
    if (!facts.active) return WithoutValue(Pair(pixel, L","));
    if (facts.none) return WithoutValue(L"Format = N/A");
    const std::wstring location = Pair(pixel, L", ");
    if (!facts.colour) return {location, L"", L"Value = " + FormatWhole(facts.rgb[0]), L""};
    return {location, L"Value R = " + FormatWhole(facts.rgb[0]), L"Value G = " + FormatWhole(facts.rgb[1]),
            L"Value B = " + FormatWhole(facts.rgb[2])};
}

}  // namespace pixora
