#include "analysis/profile_hold.h"

#include <utility>

namespace pixora {

bool HeldProfile::Follow(const LineProfile& newest, unsigned read, bool fixed, bool line_cursor_shown) {
    if (read == read_) return false;
    const bool held = fixed && !line_cursor_shown && read_ != 0;
    if (held) return false;
    read_ = read;  // before the work, so that what fails for want of memory is not tried again at every tick
    LineProfile copy = newest;
    profile_ = std::move(copy);
    return true;
}

}  // namespace pixora
