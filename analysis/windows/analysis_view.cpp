#include "analysis/windows/analysis_view.h"

#include <utility>

#include "platform/picture.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

AnalysisView::AnalysisView(int template_id, WindowKind kind, bool ViewFlags::*flag, ViewContext context)
    : Dialog(template_id), context_(std::move(context)), kind_(kind), flag_(flag) {}

bool AnalysisView::Open(HWND viewer) {
    if (!CreateModeless(viewer)) return false;
    ShowWindow(Window(), SW_SHOW);
    return true;
}

void AnalysisView::OnInit() {
    State().edit.view_open.*flag_ = true;
    SetWindowIcons(Window(), IDI_PIXORA);
    const SIZE size = SizeOf(ScreenRectangle(Window()));
    const PixelPoint corner = PlaceView(context_.place, {size.cx, size.cy});
    MoveWindowTo(Window(), {corner.x, corner.y});
    Begin();
    StartTicking();
}

void AnalysisView::OnTick() {
    if (State().closing) {
        if (!InModal()) Destroy();
        return;
    }
    ShowUnless(context_.flags->Hidden(kind_));
    State().edit.redraw.*flag_ = false;
    Update();
}

void AnalysisView::OnClose() {
    if (!InModal()) Destroy();
}

void AnalysisView::OnDestroy() {
    End();
    State().edit.view_open.*flag_ = false;
}

}  // namespace pixora
