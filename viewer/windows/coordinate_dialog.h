// The "Region Coordinates" dialog.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "base/flags.h"
#include "platform/dialog.h"
#include "settings/windows/color_button.h"
#include "viewer/coordinates.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// Shows the corners of a viewer's region and lets the user type them. It closes when the coordinates mode
/// ends, the region is hidden or the viewer goes away, and ends the mode when it is closed.
class CCoordinate final : public Dialog {
public:
    /// @param flags  of the program; they outlive the dialog.
    CCoordinate(std::shared_ptr<ViewerState> state, const SharedFlags& flags);
    ~CCoordinate() override;

    /// Creates the dialog beside its viewer's window and shows it. @return false when that failed.
    [[nodiscard]] bool Open(HWND viewer);

private:
    void OnInit() override;
    void OnTick() override;
    void OnClose() override;
    void OnDestroy() override { CoordinatesClosed(*state_); }
    Handled OnCommand(const Command& command) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    void Place(HWND viewer) const;
    void ShowEntries() const;
    [[nodiscard]] CoordinateTexts ReadEntries() const;
    void SetEditing(bool editing);
    void BeginEdit();
    void Enter();

    std::shared_ptr<ViewerState> state_;
    const SharedFlags& flags_;
    CoordinateEntry entry_;
    CColorButton edit_, enter_;
};

}  // namespace pixora
