// The texts of the image information view.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "image/image_buffer.h"
#include "image/region.h"

namespace pixora {

/// The view's title: L" [3 ]  Image info. " for the viewer of slot 2.
/// @param slot  nothing for a viewer without a number.
[[nodiscard]] std::wstring ImageInfoTitle(std::optional<int> slot);

/// How many bits of each sample are valid, for the kinds of file that can say so: L" (Upper 12 bits Valid)"
/// for a 16-bit TIFF, nothing for any other image.
[[nodiscard]] std::wstring ValidBitNote(const ImageBuffer& image);

/// The pixel format and the note, called the file's format for a viewer that has a number.
[[nodiscard]] std::wstring FormatLine(const ImageBuffer& image, bool numbered);

/// L" (5)" for a record that counts 5 of something, nothing for one that counts nothing, as all imports do.
[[nodiscard]] std::wstring CountNote(const ImageBuffer& image);

/// What holds for as long as the viewer shows its image.
struct ImageInfoLines {
    std::wstring folder, name;  ///< shortened to what the window has room for
    std::wstring format, size, pixels;
    friend bool operator==(const ImageInfoLines&, const ImageInfoLines&) = default;
};
/// For a viewer that has a number.
[[nodiscard]] ImageInfoLines LinesOf(const ImageBuffer& image);

/// Both are empty while the region is hidden. Deliberate: the spelling is the product's.
struct RegionInfoLines {
    std::wstring size, pixels;
    friend bool operator==(const RegionInfoLines&, const RegionInfoLines&) = default;
};
[[nodiscard]] RegionInfoLines RegionInfo(const Region& region, bool region_on);

/// @param percent  the display size in percent, as L"50%".
[[nodiscard]] std::wstring DisplaySizeInfo(std::wstring_view percent);

}  // namespace pixora
