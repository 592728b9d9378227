#include "settings/option_placement.h"

namespace pixora {

ScreenPoint PlaceOptionDialog(OptionDialog kind, ScreenRect main_window, ScreenSize dialog,
                              ScreenRect work_area, std::int32_t caption_height) {
    const std::int32_t lower = static_cast<std::int32_t>(kind) * caption_height;
    main_window.top += lower;
    main_window.bottom += lower;
    return PlaceBeside(main_window, dialog, work_area);
}

}  // namespace pixora
