// Changing the display ratio of a viewer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/message.h"
#include "viewer/display_size.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// A ratio as a whole percentage, halves rounded up.
[[nodiscard]] std::int32_t RoundedPercent(double ratio);

/// How far a window has to move back so that the image pixel under `client` keeps its place on the screen
/// when the ratio changes.
/// @param client  in client pixels, at the old ratio.
[[nodiscard]] PixelPoint AnchorOffset(PixelPoint client, double old_ratio, double new_ratio);

/// Sets a new ratio and asks for a layout.
/// @param anchor  the client point (of the menu, of the cursor) whose image pixel stays in place.
/// @return nothing when that was done; else the message of the limit check, with the state unchanged.
[[nodiscard]] std::optional<Message> SetDisplayRatio(ViewerState& state, std::wstring_view ratio_text,
                                                     PixelPoint anchor);

/// Takes over what the dialog for typed sizes left, which has checked it; no point is kept in place.
/// @param ratio_text  nothing when no size was applied; a layout follows all the same.
void SetTypedSize(ViewerState& state, const std::optional<std::wstring>& ratio_text);

/// The size named by the settings file. No limit is checked on this way.
/// @param stored  the value of IMG_SIZE.
/// @return nothing when it was set; else the message about a value that is no ratio, with the state
/// unchanged.
[[nodiscard]] std::optional<Message> SetDefinedSize(ViewerState& state, std::wstring_view stored,
                                                    PixelPoint anchor);

/// The current ratio as a default for new viewers: its percentage turned back into three decimals.
/// @return nothing when so little of it is left that it is no ratio any more.
[[nodiscard]] std::optional<std::wstring> DefaultSizeOf(std::wstring_view ratio_text);

/// The screen as it was when the program started; all viewers share it.
struct MonitorFacts {
    PixelSize work_area;
    std::int32_t caption_height = 0;
};

/// Makes the image as large as the work area allows and asks for a layout.
/// @return where the window's top-left corner goes: the frame's left edge, or its caption, lies outside the
///         work area, so that the image itself fills it.
[[nodiscard]] std::optional<PixelPoint> FitToMonitor(ViewerState& state, const MonitorFacts& monitor);

/// What a turn of the mouse wheel led to.
struct WheelResult {
    std::optional<Message> refusal;  ///< of the limit check
    std::wstring tip;                ///< what to show at the cursor; empty when nothing is to be shown
};

/// Zooms by one step, unless the last step has not been laid out yet.
/// @param delta   above 0 when the wheel turns forward.
/// @param cursor  in client pixels; the image pixel under it stays in place.
[[nodiscard]] WheelResult ZoomByWheel(ViewerState& state, int delta, PixelPoint cursor);

}  // namespace pixora
