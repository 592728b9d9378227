// The viewer: the window that shows one imported image.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "analysis/windows/analysis_view.h"
#include "base/flags.h"
#include "image/image_buffer.h"
#include "platform/dialog.h"
#include "settings/settings.h"
#include "viewer/layout.h"
#include "viewer/measure_tick.h"
#include "viewer/menu_rules.h"
#include "viewer/right_press.h"
#include "viewer/viewer_state.h"
#include "viewer/windows/coordinate_dialog.h"
#include "viewer/windows/image_canvas.h"
#include "viewer/windows/zoom_tip.h"
#include "viewer/zoom.h"

namespace pixora {

/// What a viewer gets from the main window besides its image. The pointers stay valid as long as any viewer.
struct ViewerContext {
    SharedFlags* flags = nullptr;
    Settings* settings = nullptr;
    std::filesystem::path settings_path;
    POINT position{};  ///< where the window's top-left corner goes, in screen coordinates
    MonitorFacts monitor;
};

/// The primary monitor as it is now; measured once, when the program starts.
[[nodiscard]] MonitorFacts MeasureMonitor();

/// One viewer. It raises the count of open viewers and its slot's viewer-open flag while its window exists,
/// and deletes the image's temporary copies when it closes.
class CDisplay : public Dialog {
public:
    CDisplay(ImageBuffer image, ViewerContext context);
    ~CDisplay() override;

    /// Reads the samples and creates the window, hidden until its second tick.
    /// @return false when either failed; there is then no window, and the temporary copies are left alone.
    [[nodiscard]] bool Open();
    /// True once an opened window has been destroyed; the object may then be freed.
    [[nodiscard]] bool Gone() const noexcept { return gone_; }

private:
    void OnInit() override;
    void OnTick() override;
    void OnTimer(UINT_PTR timer) override;
    Handled OnCommand(const Command& command) override;
    void OnClose() override;
    void OnDestroy() override;
    void OnGone() override { gone_ = true; }
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    // display.cpp: the window, its ticks and its end
    std::optional<LRESULT> OnMouse(UINT message, WPARAM w, LPARAM l);
    void FollowVisibility();
    void FollowSettings();
    void FollowLayoutRequest();
    void LayOut();
    void ShowCaption();
    [[nodiscard]] PixelPoint MousePoint(LPARAM l) const;
    void BeginDrag(PixelPoint cursor);
    void Drag(bool button_held);
    void Close();
    /// Destroys the window of a closing viewer once its last view is gone.
    void EndClosing();
    /// @return what to tell of each copy that could not be deleted.
    [[nodiscard]] std::vector<std::wstring> DeleteTemporaryCopies() const;
    /// Gives the slot and its flags up, once.
    void LeaveSlot();
    /// No box, file dialog or menu of this viewer, of its dialog or of one of its views runs.
    [[nodiscard]] bool MayClose() const;
    [[nodiscard]] bool& SlotFlag(SlotFlags SharedFlags::*flags) const;

    // display_zoom.cpp: the context menu and the display size
    [[nodiscard]] bool ShowContextMenu(LPARAM position);
    [[nodiscard]] POINT MenuPoint(LPARAM position) const;
    [[nodiscard]] PixelPoint ClientPoint(POINT screen) const;
    [[nodiscard]] PixelRect ClientOnScreen() const;
    Handled OnSizeCommand(int id);
    void AskForSize();
    void FitToMonitor();
    void SetDefinedSize();
    void SaveDefaultSize();
    void OnWheel(WPARAM w, LPARAM l);
    void Report(const std::optional<Message>& refusal);

    // display_views.cpp: the analysis views
    Handled OnViewCommand(int id);
    void OpenView(std::size_t number);
    [[nodiscard]] ViewContext ContextOfView(int number) const;
    [[nodiscard]] static bool IsFree(const Dialog& dialog);
    void FreeClosedWindows();
    [[nodiscard]] bool AnyViewModal() const;
    /// No view and no coordinates dialog is left.
    [[nodiscard]] bool Alone() const;

    // display_save.cpp
    void SaveRegionImage();

    // display_edit.cpp: the region and the profile lines
    static constexpr UINT kQuitMenuMessage = WM_APP;  ///< to itself: show the quit menu
    void OnLeftButton();
    [[nodiscard]] bool PickMarkInstead();
    void FollowEditing();
    void FollowCoordinates();
    void ShowQuitMenu();
    Handled OnQuitCommand(int id);

    ViewerContext context_;
    std::shared_ptr<ViewerState> state_;
    CImageCanvas canvas_;
    Visibility visibility_;
    MeasureTick measurements_;
    WindowDrag drag_;
    ZoomTip zoom_tip_;
    RightPress right_press_;
    std::unique_ptr<CCoordinate> coordinates_;
    std::array<std::unique_ptr<AnalysisView>, kViews> views_;  ///< in the order of kMenuCommands
    POINT menu_point_{};    ///< of the screen; where the context menu was last opened
    bool counted_ = false;  ///< this viewer is in the count of open viewers
    bool closing_ = false;
    bool gone_ = false;
};

}  // namespace pixora
