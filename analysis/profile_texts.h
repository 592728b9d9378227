// What a profile view says.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/line_profile.h"
#include "analysis/profile_line.h"
#include "image/image_buffer.h"

namespace pixora {

/// The title, for example L"H-Profile View - a.tif - Upper 12bit [3]".
/// @param caption_style  the setting CAP_STYLE: "FULL" shows the full path, any other text the file name.
[[nodiscard]] std::wstring ProfileTitle(ProfileKind kind, const ImageBuffer& image,
                                        std::wstring_view caption_style);

/// The texts around the plot.
struct ProfileLabels {
    std::wstring division;               ///< L"H: 20 Pixels/div"
    std::array<std::wstring, 4> levels;  ///< of the axis, from the top down
    std::wstring first, last;            ///< position at the left and at the right end
    friend bool operator==(const ProfileLabels&, const ProfileLabels&) = default;
};
/// @param positions  how many the plot shows. The labels of its ends are those of the scope, so that they
///                   name the region's edges as the coordinates dialog does.
[[nodiscard]] ProfileLabels LabelsOf(const ProfileScope& scope, int positions, std::uint32_t bits);

/// What the box of the line number shows.
[[nodiscard]] std::wstring LineText(std::uint16_t line);

/// The caption of the button that shows and hides the line cursor: what its next press does.
[[nodiscard]] std::wstring_view LineCursorCaption(bool shown);

}  // namespace pixora
