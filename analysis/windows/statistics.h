// The "Statistics View" window.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/statistics_buttons.h"
#include "analysis/statistics_readout.h"
#include "analysis/statistics_texts.h"
#include "analysis/windows/analysis_view.h"
#include "settings/windows/color_button.h"

namespace pixora {

/// Shows what a viewer's image and region are, the statistics of the region and the pixel under the mouse,
/// and switches the viewer's region and its edit modes.
class CStatistics final : public AnalysisView {
public:
    explicit CStatistics(ViewContext context);
    ~CStatistics() override;

private:
    void Begin() override;
    void Update() override;
    void End() override;
    Handled OnCommand(const Command& command) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    void ShowImage();
    void FollowDisplaySize();
    void FollowReadout();
    void FollowRegion();
    void FollowModes();
    void FollowChannel();
    [[nodiscard]] ReadoutFacts CurrentReadout() const;
    [[nodiscard]] RegionFacts CurrentRegion() const;
    [[nodiscard]] bool IsColour() const { return State().image.colour != 0; }

    CColorButton region_, corner_, move_, coordinates_, channel_;
    // What the window shows and what that came from; a control is set only when its own text changes.
    std::wstring ratio_text_;
    double ratio_ = 1;
    std::optional<ReadoutFacts> readout_;
    ReadoutLines readout_lines_;
    std::optional<RegionFacts> region_facts_;
    RegionLines region_lines_;
    std::optional<RegionModes> modes_;
    std::optional<ButtonLook> channel_look_;
};

}  // namespace pixora
