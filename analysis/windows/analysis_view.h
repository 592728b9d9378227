// What the analysis views have in common.
#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>

#include "base/flags.h"
#include "platform/dialog.h"
#include "settings/settings.h"
#include "viewer/view_placement.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// What a view gets from its viewer. The pointers stay valid as long as any window of the program.
struct ViewContext {
    std::shared_ptr<ViewerState> state;
    SharedFlags* flags = nullptr;
    Settings* settings = nullptr;
    std::filesystem::path settings_path;
    ViewPlace place;  ///< what decides where the window appears
};

/// A modeless window that shows something of one viewer's image. It hides with the main window, closes with
/// its viewer, keeps its open flag, and asks Update() to look at the viewer's state every tick. Escape and
/// Enter neither close it nor press anything.
class AnalysisView : public Dialog {
public:
    /// Creates the window, owned by its viewer's, and shows it. @return false when that failed.
    [[nodiscard]] bool Open(HWND viewer);

protected:
    /// @param kind  of window, for hiding. @param flag  the view's own among each set of ViewFlags.
    AnalysisView(int template_id, WindowKind kind, bool ViewFlags::*flag, ViewContext context);

    /// Once, before the window shows.
    virtual void Begin() {}
    /// Every tick, also while the window is hidden. A view compares what it shows with its viewer's state, so
    /// that it does not matter whether somebody has raised its redraw flag, which is just cleared.
    virtual void Update() = 0;
    /// The window goes away; its controls still exist.
    virtual void End() {}

    [[nodiscard]] ViewerState& State() const { return *context_.state; }
    [[nodiscard]] const ViewContext& Context() const { return context_; }

    void OnClose() override;

private:
    void OnInit() final;
    void OnTick() final;
    void OnDestroy() final;

    ViewContext context_;
    WindowKind kind_;
    bool ViewFlags::*flag_;
};

}  // namespace pixora
