#include "app/viewer_start.h"

#include "dialogs/text_width.h"

namespace pixora {

namespace {

constexpr int kFileNameWidth = 38;

}  // namespace

ScreenPoint PlaceViewer(ScreenRect work_area, int slot, int caption_height) {
    const int offset = slot * caption_height;
    return {work_area.left + offset, work_area.top + offset};
}

Message ViewerFailedMessage(const ImageBuffer& image) {
    return {L" : Error", L"File: " + ShortenText(image.file_name, kFileNameWidth),
            L"Failed to Open Image File", L""};
}

}  // namespace pixora
