// The state of editing a viewer's region and profile lines, and the requests that editing raises.
#pragma once

#include <cstdint>

namespace pixora {

/// One flag for each analysis view of a viewer.
struct ViewFlags {
    bool statistics = false, h_profile = false, v_profile = false, histogram = false, image_info = false;
    friend bool operator==(const ViewFlags&, const ViewFlags&) = default;
};
inline constexpr ViewFlags kAllViews{true, true, true, true, true};

/// Part of a viewer's state. The region, the lines and the corner and anchor codes are beside it there.
struct EditState {
    /// What a left click edits. Corner and move mode exclude each other; both leave the profile lines alone,
    /// and so does the coordinates mode, in which the dialog edits the region. Set and cleared by the rules
    /// in edit_modes.h alone; the coordinates mode also ends with its dialog.
    bool corner = false, move = false, coordinates = false;
    /// The coordinates dialog exists. Set and cleared by the dialog.
    bool coordinates_open = false;

    std::uint16_t clicked_row = 0, clicked_column = 0;  ///< the last click in corner or move mode
    /// A left click has been handled. Set by the click; cleared by the viewer's tick, which then shows the
    /// lines where they are now.
    bool clicked = false;

    /// The view exists. Set by the viewer when it creates the view, cleared by the view when it closes.
    ViewFlags view_open;
    /// Asks a view to show the viewer's state anew. Set by whoever changed something that it shows; cleared
    /// by the view.
    ViewFlags redraw;
    /// As above, for the canvas; cleared by the viewer's tick.
    bool redraw_canvas = false;
    /// The coordinates dialog has given the region new coordinates. Set by the dialog alone (a click must not
    /// end the mode it was made in); the statistics view reads and clears its own, the others follow the
    /// region itself.
    ViewFlags region_changed;
    /// A mode was ended by somebody else: asks the statistics view to show its button as off. Cleared by the
    /// view.
    bool corner_off = false, move_off = false;
    /// The canvas already has the rectangle of the region that changed. Set by the coordinates dialog, whose
    /// rectangle the viewer's next look at the region must not replace; cleared by that look.
    bool rectangle_given = false;
};

}  // namespace pixora
