// Every flag that the main window shares with other windows. Nothing is pushed between windows: whoever wants
// something sets a flag, and the window it is meant for finds it at its next 100 ms tick and clears it. What
// a viewer shares with its own views is in viewer/viewer_state.h.
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
    /// Asks the slot's viewer to close. Set by the main window (Close All Files, Exit); read and cleared by
    /// the viewer; cleared by the main window before it creates a viewer, so that no request outlives its
    /// viewer.
    SlotFlags close_viewer{};
    /// A viewer has been created in the slot. Cleared and set by the main window around a viewer's creation;
    /// every size change of the main window except minimising sets all eight. Decides nothing.
    SlotFlags created{};
    /// Asks the slot's viewer to take over changed settings. Set for all slots by "Line and Region Style",
    /// and by "Viewer Option" when the caption style changed; read and cleared by the viewer; cleared by the
    /// main window before it creates a viewer.
    SlotFlags redraw_viewer{};

    /// The profile lines may follow clicks; else they are fixed. Set at start; nothing clears it.
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
