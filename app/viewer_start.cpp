#include "app/viewer_start.h"

namespace pixora {

ScreenPoint PlaceViewer(ScreenRect work_area, int slot, int caption_height) {
    const int offset = slot * caption_height;
    return {work_area.left + offset, work_area.top + offset};
}

}  // namespace pixora
