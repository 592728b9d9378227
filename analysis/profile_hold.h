// The samples that a profile view draws.
#pragma once

#include "analysis/line_profile.h"

namespace pixora {

/// The view's own copy of its viewer's profile. It follows the viewer, except while the line is fixed and the
/// line cursor is hidden: then what was taken last stays. A line cursor that shows lifts the hold, because
/// its buttons move the line and the plot must be that of the line in the viewer.
class HeldProfile {
public:
    /// @param read   the number of `newest`, which differs from the last one when there is something new;
    ///               0 before the viewer has read anything.
    /// @param fixed  the line does not follow clicks.
    /// @return whether the copy is another one now.
    bool Follow(const LineProfile& newest, unsigned read, bool fixed, bool line_cursor_shown);

    [[nodiscard]] const LineProfile& Profile() const { return profile_; }

private:
    LineProfile profile_;
    unsigned read_ = 0;
};

}  // namespace pixora
