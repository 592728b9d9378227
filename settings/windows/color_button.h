// The push button with a face colour of its own.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <optional>
#include <string_view>

namespace pixora {

/// Draws one owner-drawn push button (BS_OWNERDRAW) of a dialog, which passes its WM_DRAWITEM to Draw(). The
/// button's window text is its caption. Changes repaint the button. As with every button, the edge sinks
/// while the button is pressed, the caption turns grey while it is disabled, and a dotted line tells the
/// keyboard.
class CColorButton {
public:
    /// The face of a button that shows no state.
    static constexpr COLORREF kPlainFace = RGB(225, 225, 225);

    void Attach(HWND button) { button_ = button; }
    void SetBackColor(COLORREF colour);
    void SetTextColor(COLORREF colour);
    /// Whether an edge is drawn around the button.
    void SetRaised(bool raised);
    void SetCaption(std::wstring_view caption);
    void Enable(bool enabled) { EnableWindow(button_, enabled); }

    /// @return false when the message is for another control.
    bool Draw(const DRAWITEMSTRUCT& item) const;

private:
    void Repaint() const;

    HWND button_ = nullptr;
    COLORREF back_ = kPlainFace;
    std::optional<COLORREF> text_;  ///< black, or grey while the button is disabled, when none was set
    bool raised_ = true;
};

/// Lets the button that a WM_DRAWITEM is for draw itself. @return false when it is for none of them.
bool DrawColorButton(LPARAM draw_item, std::initializer_list<const CColorButton*> buttons);

}  // namespace pixora
