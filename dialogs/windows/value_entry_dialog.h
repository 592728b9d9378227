// The "Display Size Value" dialog.
#pragma once

#include <optional>
#include <string>

#include "dialogs/value_entry.h"
#include "platform/dialog.h"

namespace pixora {

/// Asks for a display size in percent; closes only with an accepted one, with OK on an unchanged text, or by
/// its close button.
class CValueEntry final : public Dialog {
public:
    /// @param shown   the viewer's display size as its size list shows it, for example L"50%".
    /// @param anchor  the point of the screen where the user asked for the dialog.
    /// @param limit   refuses sizes that the image cannot be shown at.
    CValueEntry(const std::wstring& shown, POINT anchor, DisplaySizeLimit limit);

    /// The new ratio text, after RunModal(); nothing when none was applied.
    [[nodiscard]] const std::optional<std::wstring>& NewRatio() const { return new_ratio_; }

private:
    void OnInit() override;
    Handled OnCommand(const Command& command) override;
    Handled Filter(MSG& message) override;
    void Take(ValueEntryResult result);
    void ShowEntry();

    ValueEntry entry_;
    EntryKeyFilter keys_;
    POINT anchor_;  ///< AnchorX and AnchorY, in pixels of the screen
    DisplaySizeLimit limit_;
    std::optional<std::wstring> new_ratio_;
};

}  // namespace pixora
