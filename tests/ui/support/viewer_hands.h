// A viewer, its context menu and its views under a person's hands.
#pragma once

#include <windows.h>

#include <string_view>

#include "tests/ui/support/input.h"
#include "tests/ui/support/menu.h"
#include "tests/ui/support/picture.h"
#include "tests/ui/support/program.h"

namespace pixora::ui {

/// Controls of the statistics view.
inline constexpr int kStatRegion = 1056, kStatCorner = 1057, kStatMove = 1058, kStatCoordinates = 1062,
                     kStatRegionSize = 1225, kStatMax = 1173, kStatMin = 1174, kStatMean = 1176,
                     kStatStd = 1175, kStatLocation = 1237, kStatValue = 1240;
/// Controls of the dialog "Region Coordinates".
inline constexpr int kCoordLeft = 1173, kCoordTop = 1175, kCoordRight = 1176, kCoordBottom = 1177,
                     kCoordEdit = 1056, kCoordEnter = 1174;
/// The box "Line Number =" of a profile view.
inline constexpr int kProfileLine = 1277;
/// The box "Level =" of a histogram view, and the button that takes it.
inline constexpr int kHistLevel = 1179, kHistEnter = 1180;
/// Commands of a viewer's context menu.
inline constexpr int kViewStatistics = 32923, kViewHProfile = 32917, kViewVProfile = 32918,
                     kViewHistogram = 32919, kViewImageInfo = 32921, kViewSaveRegion = 32810;

/// Puts the mouse on a point of the screen and waits until the system keeps it there.
void PointAt(POINT screen);
/// Clicks at a point of a viewer's client area.
void ClickImage(const Window& viewer, int x, int y, Button button = Button::left);

/// Opens the context menu at a point of a viewer's client area.
[[nodiscard]] OpenMenu OpenContextMenu(Program& program, const Window& viewer, int x = 5, int y = 5);
/// Opens a view by its item of the context menu, or by its command.
[[nodiscard]] Window OpenView(Program& program, const Window& viewer, std::wstring_view item);
[[nodiscard]] Window OpenView(Program& program, const Window& viewer, int command);

/// Waits until a control shows a text.
void WaitForText(const Window& window, int control, const std::wstring& text);

/// The four edges of a region.
struct Edges {
    int left = 0, top = 0, right = 0, bottom = 0;
    friend bool operator==(const Edges&, const Edges&) = default;
};
/// Waits until the coordinates dialog shows a region.
void WaitForEdges(const Window& coordinates, const Edges& edges);

/// Clicks on a window's caption, which brings it before the others.
void Raise(const Window& window);
/// Presses a button of the statistics view and waits for its new caption.
void PressButton(const Window& statistics, int button, const std::wstring& caption);
/// Opens the coordinates dialog by the statistics view's button; the region must show.
[[nodiscard]] Window OpenCoordinates(Program& program, const Window& statistics);
/// Types a region into the coordinates dialog without the keyboard and enters it.
void EnterEdges(const Window& coordinates, const Edges& edges);

/// Waits until a window's client area shows exactly this.
void WaitToSee(Program& program, const Window& window, const Picture& expected);

// What the overlays of a viewer leave on its picture. Right and bottom lie just outside.
void DrawAcross(Picture& picture, int y, int from, int to, std::uint32_t colour);
void DrawDown(Picture& picture, int x, int from, int to, std::uint32_t colour);
/// A frame along the inside of the edges.
void DrawFrame(Picture& picture, const RECT& frame, std::uint32_t colour);
/// Everything but the inside of `hole`, tinted.
void TintOutside(Picture& picture, const RECT& hole, std::uint32_t colour);
/// Each pixel as a square of `zoom` pixels.
[[nodiscard]] Picture Enlarged(const Picture& picture, int zoom);

}  // namespace pixora::ui
