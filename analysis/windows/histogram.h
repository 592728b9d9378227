// The histogram of a viewer's image or region.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/histogram_plot.h"
#include "analysis/histogram_texts.h"
#include "analysis/windows/plot_dialog.h"

namespace pixora {

/// Shows how often each value occurs in the region that shows, or in the whole image.
class CHistogram final : public PlotDialog {
public:
    explicit CHistogram(ViewContext context);
    ~CHistogram() override;

private:
    void Begin() override;
    void Update() override;
    [[nodiscard]] std::wstring Title() const override;
    void Changed() override;
    [[nodiscard]] bool OnOwnButton(int id) override;
    [[nodiscard]] std::optional<std::uint32_t> LevelAtPoint(POINT client) const override;
    [[nodiscard]] RECT MenuArea() const override { return PlotFrame().Place(); }
    void Export() override;

    [[nodiscard]] HistogramLook CurrentLook() const;

    void FollowBits();
    void FollowLines();
    void FollowPlot();
    void PlaceLabels() const;

    /// What the frequency line was composed from.
    struct Frequency {
        std::uint64_t count = 0;
        std::uint32_t level = 0;
        int channel = 0;
        friend bool operator==(const Frequency&, const Frequency&) = default;
    };

    HistogramPainter painter_;
    std::optional<unsigned> measured_;  ///< number of the measurement that is drawn
    std::optional<HistogramLook> drawn_;
    std::optional<std::uint32_t> bits_;  ///< that the labels of the levels were made for
    std::optional<SampleStatistics> statistics_;
    std::optional<Frequency> frequency_;
    std::optional<Divisions> axis_;
};

}  // namespace pixora
