// Pictures of the program's resources.
#pragma once

#include <windows.h>

#include "platform/gdi.h"

namespace pixora {

/// A bitmap of the resources, drawn at `size` onto the face colour of dialogs. The colour of its top-left
/// pixel stands for transparent when `transparent` is set.
/// @return an empty owner when it is missing.
[[nodiscard]] UniqueBitmap LoadPicture(int id, SIZE size, bool transparent = false);

/// Fills a picture control (SS_BITMAP) with a bitmap of the resources in the control's size. The bitmap that
/// is returned must live as long as the control. A missing one leaves the control empty.
[[nodiscard]] UniqueBitmap ShowPicture(HWND control, int id, bool transparent = false);

/// Gives a window the program's icon, large and small.
void SetWindowIcons(HWND window, int id);

}  // namespace pixora
