// The horizontal and the vertical line profile.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/profile_hold.h"
#include "analysis/profile_line.h"
#include "analysis/profile_plot.h"
#include "analysis/profile_texts.h"
#include "analysis/windows/plot_dialog.h"

namespace pixora {

/// Plots the samples along the viewer's row or column. While its line cursor is on, the line shows in the
/// viewer and the window's buttons move it.
class CProfileDlg final : public PlotDialog {
public:
    CProfileDlg(ProfileKind kind, ViewContext context);
    ~CProfileDlg() override;

private:
    void Begin() override;
    void Update() override;
    void End() override;
    [[nodiscard]] std::wstring Title() const override;
    void Changed() override { Update(); }
    [[nodiscard]] bool OnOwnButton(int id) override;
    [[nodiscard]] std::optional<std::uint32_t> LevelAtPoint(POINT client) const override;
    void ApplyEntries() override;
    [[nodiscard]] bool IsForBox(const MSG& message) const override;
    void Export() override;

    // What the viewer's state says of this view's line.
    [[nodiscard]] std::uint16_t& Line() const;
    [[nodiscard]] bool& LineShown() const;
    [[nodiscard]] const LineProfile& Newest() const;
    [[nodiscard]] unsigned NewestRead() const;
    [[nodiscard]] ProfileScope Scope() const;

    /// Everything that decides how the plot and its labels look, besides the samples.
    struct Drawn {
        Region region;
        bool region_on = false, level_shown = false;
        int channel = 0, width = 0, height = 0;
        std::uint32_t level = 0;
        friend bool operator==(const Drawn&, const Drawn&) = default;
    };
    [[nodiscard]] Drawn CurrentlyDrawn() const;
    [[nodiscard]] ProfileScale Scale() const;
    void FollowLine();
    void ShowLine();
    void FollowPlot();
    void PlaceLevelLabels() const;
    void ShowLabels();
    void ShowLineCursor();

    void ToggleLine();
    void MoveLine(std::uint16_t line);
    void ApplyLine();
    /// No further boxes then.

    ProfileKind kind_;
    HeldProfile held_;
    ProfileLabels labels_;
    std::optional<Drawn> drawn_;
    std::optional<std::uint16_t> line_;  ///< last put into the "Line Number =" box
};

}  // namespace pixora
