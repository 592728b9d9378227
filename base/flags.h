// Every flag that windows share: who sets it, who clears it, who reads it. Nothing is pushed between windows:
// whoever wants something sets a flag, and the window it is meant for finds it at its next 100 ms tick.
//
// The flags that the main window shares with other windows are members of SharedFlags below. Those that one
// viewer shares with its canvas, its views and its coordinates dialog are members of what they belong to, and
// only their list is here.
//
// viewer/viewer_state.h, ViewerState:
//   layout_requested    set by a change of the ratio and by one of the screen's DPI; read and cleared by the
//                       viewer's tick, once the window is not minimised
//   wheel_pending       set by a step of the wheel; cleared by the layout that follows, at 1 % at once; read
//                       by the next step, which is ignored meanwhile
//   region_on           set and cleared by REGION of the statistics view; read by the canvas, the save
//                       command, clicks, and all views
//   binning             set and cleared by the histogram view (at its opening by HIS_BINNING); read by it
//   closing             set by the viewer when it closes; read by its views and its coordinates dialog, which
//                       close then; never cleared
//   readout.samples_ready, readout.pixel_ready, readout.none
//                       set by the viewer when it has read its samples, or could not; read by the statistics
//                       view; never cleared
// viewer/edit_state.h, EditState:
//   corner, move        set and cleared by the buttons of the statistics view, and cleared by REGION, by new
//                       coordinates, by the viewer's quit menu and by the end of the statistics view; read by
//                       clicks, the quit menu and the statistics view
//   coordinates         set and cleared by H-V of the statistics view, and cleared by its REGION, CORNER and
//                       MOVE, by the viewer's quit menu and by the end of that view or of the dialog; read by
//                       the viewer, which opens the dialog, by the dialog, which closes without it, by clicks
//                       and by the statistics view
//   coordinates_open    set and cleared by the coordinates dialog; the viewer looks at its dialog
//   clicked             set by a left click in the image; read and cleared by the viewer's tick
//   view_open           one for each view: set and cleared by the view, and set by the viewer as it opens
//                       one; read by the viewer's menu, its measuring and its clicks
//   redraw              one for each view: set by clicks in the image and by a right click that picks a mark,
//                       by the mode buttons and the channel button of the statistics view and when it takes
//                       up new coordinates, by the end of the coordinates mode, by ENTER of the coordinates
//                       dialog, by Undo, by the viewer's context menu, by its tick when it brings the lines
//                       back, by the channel button of the histogram and profile views, by every change in
//                       the histogram view and by the end of a profile view whose line shows; read and
//                       cleared by the view
//   redraw_canvas       set by the same, but not by clicks that move lines, by the end of the coordinates
//                       mode alone, by the channel button of the histogram and profile views and by changes
//                       in the histogram view; also by everything that hides the mark, by the viewer's tick
//                       when a region that shows has changed, and by the profile views as they open and as
//                       they show, hide or move their line; read and cleared by the viewer's tick
//   region_changed      one for each view: set by ENTER of the coordinates dialog alone; the statistics view
//                       reads and clears its own and ends the modes then; the others follow the region itself
//   corner_off, move_off
//                       set when somebody else than its button has ended a mode; cleared by the statistics
//                       view, which compares its buttons with the modes
//   rectangle_given     set by ENTER of the coordinates dialog; read and cleared by the viewer's next look at
//                       the region
#pragma once

#include <array>
#include <cstddef>

namespace pixora {

/// The kinds of window that hide while the main window is minimised.
enum class WindowKind : std::size_t {
    viewer,
    histogram,
    profile,
    statistics,
    image_info,
    coordinates,
    viewer_option,
    region_style,
    main_option,
};
inline constexpr std::size_t kWindowKinds = 9;

/// One flag for each of the eight image slots.
using SlotFlags = std::array<bool, 8>;

/// The flags of the whole program, owned by the main window.
struct SharedFlags {
    /// Asks every window of a kind to hide. Set and cleared by the main window (minimised, restored); read by
    /// each such window, which hides or shows itself when the flag differs from what it did last.
    std::array<bool, kWindowKinds> hide{};

    /// The slot has a viewer. Set and cleared by the viewer, cleared by the main window before it creates
    /// one; read by the main window (menu, Close All Files).
    SlotFlags viewer_open{};
    /// Asks the slot's viewer to close. Set by the main window (Close All Files, Exit), and by the viewer
    /// itself when it cannot close at once; read by the viewer, and by its profile views and its coordinates
    /// dialog, which then show no further box; cleared by the viewer at its start and its end,
    /// and by the main window before it creates one, so that no request outlives its viewer.
    SlotFlags close_viewer{};
    /// A viewer has been created in the slot. Cleared and set by the main window around a viewer's creation;
    /// every size change of the main window except minimising sets all eight. Decides nothing.
    SlotFlags created{};
    /// Asks the slot's viewer to take over changed settings. Set for all slots by "Line and Region Style",
    /// and by "Viewer Option" when the caption style changed; read and cleared by the viewer, at its start
    /// and end too; cleared by the main window before it creates a viewer.
    SlotFlags redraw_viewer{};

    /// The profile lines may follow clicks; else they are fixed. Set at start; nothing clears it; read by the
    /// viewers' clicks and by the profile views.
    bool play = true;

    /// How many viewers are open. Raised and lowered by the viewers; shown in the main window's title.
    int open_viewers = 0;
    /// Asks the main window to show the stored display size again. Set by the main window and by a viewer
    /// that stored a new default size; cleared by the main window.
    bool refresh_main = false;

    /// The option dialog of that kind is open. Set by the dialog at its start and cleared by it when it is
    /// destroyed; read by the main window, which opens one of each at most.
    bool viewer_option_open = false, region_style_open = false, main_option_open = false;
    /// Asks the main option dialog to show MAIN_POS of the settings again. Set by the main window (Restore
    /// Defaults); read and cleared by the dialog.
    bool reload_main_option = false;
    /// Asks the main option dialog to close. Set by the main window (Exit); read and cleared by the dialog.
    /// The other two need none: Exit destroys whatever is still open.
    bool close_main_option = false;

    [[nodiscard]] bool Hidden(WindowKind kind) const { return hide[static_cast<std::size_t>(kind)]; }
};

}  // namespace pixora
