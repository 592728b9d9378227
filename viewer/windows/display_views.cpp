#include <algorithm>
#include <utility>

#include "analysis/windows/histogram.h"
#include "analysis/windows/image_info.h"
#include "analysis/windows/profile.h"
#include "analysis/windows/statistics.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "viewer/menu_rules.h"
#include "viewer/windows/display.h"
#include "viewer/windows/geometry_win.h"

namespace pixora {
namespace {

std::unique_ptr<AnalysisView> MakeView(int command, ViewContext context) {
    switch (command) {
        case IDM_VIEW_STATISTICS:
            return std::make_unique<CStatistics>(std::move(context));
        case IDM_VIEW_IMAGE_INFO:
            return std::make_unique<CImageInfo>(std::move(context));
        case IDM_VIEW_H_PROFILE:
            return std::make_unique<CProfileDlg>(ProfileKind::horizontal, std::move(context));
        case IDM_VIEW_V_PROFILE:
            return std::make_unique<CProfileDlg>(ProfileKind::vertical, std::move(context));
        case IDM_VIEW_HISTOGRAM:
            return std::make_unique<CHistogram>(std::move(context));
        default:
            return nullptr;
    }
}

}  // namespace

ViewContext CDisplay::ContextOfView(int number) const {
    const ViewPlace place{FromWin(ScreenRectangle(Window())), FromWin(WorkAreaOf(Window())), number,
                          CaptionHeight(Window())};
    return {state_, context_.flags, context_.settings, context_.settings_path, place};
}

Handled CDisplay::OnViewCommand(int id) {
    for (std::size_t number = 0; number < kViews; ++number) {
        if (kMenuCommands[number].id != id) continue;
        if (IsOffered(kMenuCommands[number], *state_)) OpenView(number);
        return Handled::yes;
    }
    if (id != IDM_VIEW_SAVE_REGION) return Handled::no;
    SaveRegionImage();
    return Handled::yes;
}

void CDisplay::OpenView(std::size_t number) {
    std::unique_ptr<AnalysisView>& view = views_[number];
    if (view && !IsFree(*view)) return;  // its window is gone, its last handler still runs
    view = MakeView(kMenuCommands[number].id, ContextOfView(static_cast<int>(number)));
    // Measured before the view shows: it must neither show nor export anything that is not there yet.
    bool& open = state_->edit.view_open.*kMenuCommands[number].view;
    open = true;
    measurements_.Follow(*state_, ClientPoint(CursorPosition()));
    if (view && view->Open(Window())) return;
    view.reset();
    open = false;
}

bool CDisplay::IsFree(const Dialog& dialog) {
    return !dialog.Window() && !dialog.InModal();
}

void CDisplay::FreeClosedWindows() {
    for (std::unique_ptr<AnalysisView>& view : views_)
        if (view && IsFree(*view)) view.reset();
    if (coordinates_ && IsFree(*coordinates_)) coordinates_.reset();
}

bool CDisplay::AnyViewModal() const {
    const auto modal = [](const auto& view) { return view && view->InModal(); };
    return modal(coordinates_) || std::ranges::any_of(views_, modal);
}

bool CDisplay::Alone() const {
    const auto none = [](const auto& view) { return !view; };
    return none(coordinates_) && std::ranges::all_of(views_, none);
}

}  // namespace pixora
