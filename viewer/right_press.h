// Telling a long press of the right button from a click.
#pragma once

namespace pixora {

/// Follows the right button from the moment it goes down in a viewer until it is released. A press that is
/// held while the region is edited opens a menu, once; what follows its release is then no click.
class RightPress {
public:
    /// The button went down in the viewer's client area.
    void Begin();
    /// A press that began in the viewer has not been seen to end: only then does it matter what is held.
    [[nodiscard]] bool Pressed() const { return pressed_; }
    /// One tick of the viewer.
    /// @param held     the button is down now, wherever the cursor is.
    /// @param editing  an edit mode is on.
    /// @return true when the menu is to open now.
    [[nodiscard]] bool Tick(bool held, bool editing);
    /// The release asks for a context menu. @return false when it belongs to a press that has opened its
    /// menu already.
    [[nodiscard]] bool EndsAsClick();

private:
    /// Ticks that a press may last without opening the menu.
    static constexpr int kShortTicks = 6;

    bool pressed_ = false;
    bool menu_opened_ = false;
    int ticks_ = 0;
};

}  // namespace pixora
