// The frame control that shows a plot.
#pragma once

#include <windows.h>

#include "analysis/plot.h"
#include "platform/gdi.h"

namespace pixora {

/// Paints a plot into an owner-drawn static control (SS_OWNERDRAW), by way of a bitmap in memory, so that
/// nothing flickers. The dialog passes the control's WM_DRAWITEM on. Such a control lets the mouse through to
/// its dialog.
class PlotView {
public:
    void Attach(HWND control) { control_ = control; }
    /// The size that plots for the control must have.
    [[nodiscard]] SIZE Size() const;
    /// Where the control lies in its dialog's client area.
    [[nodiscard]] RECT Place() const;
    /// Shows another plot. The control is painted again only when it differs from the one that shows.
    void Show(const Plot& plot);
    /// Handles WM_DRAWITEM. @return false when it is for another control.
    [[nodiscard]] bool Draw(LPARAM draw_item);

private:
    void PaintPicture(HDC like);

    HWND control_ = nullptr;
    Plot plot_;
    UniqueBitmap picture_;  ///< the plot that shows; empty until it is painted
};

}  // namespace pixora
