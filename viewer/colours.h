// The colours of the lines, the region and the mark in a viewer, chosen by settings.
#pragma once

#include <cstdint>
#include <string_view>

namespace pixora {

/// A colour setting as a number; any number may occur.
enum class ColorIndex : int { green = 0, red = 1, gray = 2, white = 3 };

struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// How a region shows: everything around it tinted, or a frame on its edge.
enum class BorderStyle { area, line };

/// The index of LINE_COLOR or BDR_COLOR; any text but "GREEN", "RED" and "GRAY" gives `current`.
[[nodiscard]] ColorIndex ColorIndexOf(std::wstring_view setting, ColorIndex current);
/// The index of MARK_COLOR, which may also be "WHITE".
[[nodiscard]] ColorIndex MarkColorIndexOf(std::wstring_view setting, ColorIndex current);
/// BDR_TYPE: "LINE" is a frame, any other text a tint.
[[nodiscard]] BorderStyle BorderStyleOf(std::wstring_view setting);

/// Pen of the profile lines.
[[nodiscard]] Rgb LineColour(ColorIndex index);
/// Pen of the frame around a region.
[[nodiscard]] Rgb FrameColour(ColorIndex index);
/// Tint of everything outside a region.
[[nodiscard]] Rgb TintColour(ColorIndex index);
/// Pen of the cross mark.
[[nodiscard]] Rgb MarkColour(ColorIndex index);

}  // namespace pixora
