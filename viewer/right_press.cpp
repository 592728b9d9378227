#include "viewer/right_press.h"

#include <utility>

namespace pixora {

void RightPress::Begin() {
    pressed_ = true;
    menu_opened_ = false;
    ticks_ = 0;
}

bool RightPress::Tick(bool held, bool editing) {
    pressed_ = pressed_ && held;
    if (!pressed_ || !editing) {
        ticks_ = 0;
        return false;
    }
    if (menu_opened_ || ++ticks_ <= kShortTicks) return false;
    menu_opened_ = true;
    return true;
}

bool RightPress::EndsAsClick() {
    pressed_ = false;
    return !std::exchange(menu_opened_, false);
}

}  // namespace pixora
