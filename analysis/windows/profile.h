// The horizontal and the vertical line profile.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/level_cursor.h"
#include "analysis/profile_hold.h"
#include "analysis/profile_line.h"
#include "analysis/profile_plot.h"
#include "analysis/profile_texts.h"
#include "analysis/windows/analysis_view.h"
#include "analysis/windows/plot_view.h"

namespace pixora {

/// Plots the samples along the viewer's row or column. While its line cursor is on, the line shows in the
/// viewer and the window's buttons move it.
class CProfileDlg final : public AnalysisView {
public:
    CProfileDlg(ProfileKind kind, ViewContext context);
    ~CProfileDlg() override;

private:
    void Begin() override;
    void Update(bool asked) override;
    void End() override;
    Handled OnCommand(const Command& command) override;
    Handled Filter(MSG& message) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    // What the viewer's state says of this view's line.
    [[nodiscard]] std::uint16_t& Line() const;
    [[nodiscard]] bool& LineShown() const;
    [[nodiscard]] const LineProfile& Newest() const;
    [[nodiscard]] unsigned NewestRead() const;
    [[nodiscard]] ProfileScope Scope() const;
    [[nodiscard]] bool IsColour() const { return State().image.colour != 0; }

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
    void FollowTitle();
    void FollowChannel();
    void FollowBoxes();
    void ShowLine();
    void ShowLevel();
    void FollowPlot();
    void PlaceLevelLabels() const;
    void ShowLabels();
    void ShowLineCursor();
    void ShowLevelCursor();

    [[nodiscard]] bool OnLineButton(int id);
    [[nodiscard]] bool OnLevelButton(int id);
    void ToggleLine();
    void MoveLine(std::uint16_t line);
    void ClickPlot(POINT client);
    [[nodiscard]] bool IsForBox(const MSG& message) const;
    void ApplyLine();
    void ApplyLevel();
    void ApplyBoxes();
    void Refuse(const InputError& refusal);
    /// No further boxes then.
    [[nodiscard]] bool ViewerIsToClose() const;
    /// @return false when the position is not in the client area.
    [[nodiscard]] bool ShowMenu(HWND control, LPARAM position);
    void Export();

    ProfileKind kind_;
    LevelCursor level_;
    PlotKeys keys_;
    HeldProfile held_;
    PlotView plot_;
    ProfileLabels labels_;
    std::optional<Drawn> drawn_;
    std::optional<std::wstring> caption_style_;  ///< that the title was composed with
    std::optional<int> channel_;                 ///< on the channel button
    std::optional<std::uint16_t> line_;          ///< last put into the "Line Number =" box
    std::optional<std::uint32_t> level_shown_;   ///< last put into the "Level =" box
};

}  // namespace pixora
