// The histogram of a viewer's image or region.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/histogram_plot.h"
#include "analysis/histogram_texts.h"
#include "analysis/level_cursor.h"
#include "analysis/windows/analysis_view.h"
#include "analysis/windows/plot_view.h"

namespace pixora {

/// Shows how often each value occurs in the region that shows, or in the whole image.
class CHistogram final : public AnalysisView {
public:
    explicit CHistogram(ViewContext context);
    ~CHistogram() override;

private:
    void Begin() override;
    void Update(bool asked) override;
    Handled OnCommand(const Command& command) override;
    Handled Filter(MSG& message) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    [[nodiscard]] bool IsColour() const { return State().image.colour != 0; }
    [[nodiscard]] HistogramLook CurrentLook() const;

    void FollowTitle();
    void FollowChannel();
    void FollowBits();
    void FollowLevel();
    void FollowLines();
    void FollowPlot();
    void ShowLevelCursor();
    void PlaceLabels() const;
    void PlaceLabel(int control, int left, int top) const;

    [[nodiscard]] bool OnLevelButton(int id);
    [[nodiscard]] bool ShowMenu(HWND control, LPARAM position);
    void ClickPlot(POINT client);
    void ApplyLevel();
    void Export();
    /// Something of this view has changed.
    void Changed();

    /// What the frequency line was composed from.
    struct Frequency {
        std::uint64_t count = 0;
        std::uint32_t level = 0;
        int channel = 0;
        friend bool operator==(const Frequency&, const Frequency&) = default;
    };

    LevelCursor level_;
    PlotKeys keys_;
    HistogramPainter painter_;
    PlotView plot_;
    std::optional<unsigned> measured_;  ///< number of the measurement that is drawn
    std::optional<HistogramLook> drawn_;
    std::optional<std::uint32_t> bits_;          ///< that the labels of the levels were made for
    std::optional<std::wstring> caption_style_;  ///< that the title was composed with
    std::optional<int> channel_;                 ///< on the channel button
    std::optional<std::uint32_t> level_shown_;   ///< last put into the "Level =" box
    std::optional<SampleStatistics> statistics_;
    std::optional<Frequency> frequency_;
    std::optional<Divisions> axis_;
};

}  // namespace pixora
