#include "analysis/windows/image_info.h"

#include <windowsx.h>

#include <utility>

#include "analysis/image_info_texts.h"
#include "platform/clipboard.h"
#include "platform/menu.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "viewer/display_size.h"

namespace pixora {

CImageInfo::CImageInfo(ViewContext context)
    : AnalysisView(IDD_IMAGE_INFO, WindowKind::image_info, &ViewFlags::image_info, std::move(context)) {}

CImageInfo::~CImageInfo() {
    Destroy();  // while the handlers of this class can still be called
}

void CImageInfo::Begin() {
    const ImageBuffer& image = State().image;
    SetCaption(ImageInfoTitle(image.slot));
    const ImageInfoLines lines = LinesOf(image);
    SetText(IDC_INFO_FOLDER, lines.folder);
    SetText(IDC_INFO_NAME, lines.name);
    SetText(IDC_INFO_FORMAT, lines.format);
    SetText(IDC_INFO_SIZE, lines.size);
    SetText(IDC_INFO_PIXELS, lines.pixels);
    Update();
}

void CImageInfo::Update() {
    FollowRegion();
    FollowDisplaySize();
}

void CImageInfo::FollowRegion() {
    const ShownRegion now{State().region, State().region_on};
    if (region_ == now) return;
    region_ = now;
    const RegionInfoLines lines = RegionInfo(now.region, now.on);
    SetText(IDC_INFO_REGION_SIZE, lines.size);
    SetText(IDC_INFO_REGION_PIXELS, lines.pixels);
}

void CImageInfo::FollowDisplaySize() {
    if (State().ratio_text == ratio_text_) return;
    ratio_text_ = State().ratio_text;
    SetText(IDC_INFO_DISPLAY_SIZE, DisplaySizeInfo(PercentSignText(ratio_text_)));
}

std::optional<LRESULT> CImageInfo::OnMessage(UINT message, WPARAM, LPARAM l) {
    if (message != WM_CONTEXTMENU || !IsOnName(l)) return std::nullopt;
    ShowNameMenu(l);
    return 0;
}

// The keyboard, which names no point, means the name as well.
bool CImageInfo::IsOnName(LPARAM position) const {
    const RECT name = ScreenRectangle(Item(IDC_INFO_NAME));
    return position == -1 || PtInRect(&name, {GET_X_LPARAM(position), GET_Y_LPARAM(position)});
}

void CImageInfo::ShowNameMenu(LPARAM position) {
    if (InModal()) return;
    const UniqueMenu menu = LoadMenuResource(IDR_INFO_MENU);
    const POINT at = MenuPosition(Item(IDC_INFO_NAME), position);
    const int command = TrackPopup(Window(), GetSubMenu(menu.get(), 0), at);
    // A clipboard that another program keeps open is left alone without a word.
    if (command == IDM_INFO_COPY_PATH) PutTextOnClipboard(Window(), State().image.source_path);
}

}  // namespace pixora
