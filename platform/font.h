// Fonts made from the font of a control.
#pragma once

#include <windows.h>

#include "platform/gdi.h"

namespace pixora {

/// Gives `control` a bold copy of its font. The font that is returned must live as long as the control shows.
[[nodiscard]] UniqueFont MakeBold(HWND control);
/// Gives `control` an underlined copy of its font; as above.
[[nodiscard]] UniqueFont MakeUnderlined(HWND control);
/// How much room the control's text takes in the control's font.
[[nodiscard]] SIZE TextExtent(HWND control);

}  // namespace pixora
