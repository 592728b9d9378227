#include "analysis/profile_hold.h"

namespace pixora {

bool HeldProfile::Follow(const LineProfile& newest, unsigned read, bool fixed, bool line_cursor_shown) {
    if (read == read_) return false;
    const bool held = fixed && !line_cursor_shown && read_ != 0;
    if (held) return false;
    profile_ = newest;
    read_ = read;
    return true;
}

}  // namespace pixora
