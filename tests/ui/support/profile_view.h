// The line profile views, and what their plots must look like.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/ui/support/viewer_hands.h"

namespace pixora::ui {

/// Controls of both profile views.
inline constexpr int kPlot = 1284, kDivision = 1287, kFirstPosition = 1292, kLastPosition = 1293;
inline constexpr int kLevelLabels[] = {1288, 1289, 1290, 1291};
inline constexpr int kLine = 1277, kCursor = 1273, kLineCentre = 1275, kLineUp = 1276, kLineDown = 1274;
inline constexpr int kLevel = 1281, kLevelEnter = 1283, kLevelOn = 1282, kLevelCentre = 1279, kLevelUp = 1280,
                     kLevelDown = 1278;
inline constexpr int kProfileChannel = 1056;

inline constexpr std::uint32_t kRowTint = 0xEBFFFF, kColumnTint = 0xFFFAEB, kMonoPen = 0x0000C8,
                               kRedPen = 0xFF0000, kGreenPen = 0x00A000, kBluePen = 0x0000FF,
                               kLevelPen = 0xFF0000, kLevelPenOverRed = 0x000000;

/// The plot of an 8-bit image at the size that the view gives it, drawn by the tests themselves.
class PlotPicture {
public:
    /// Tint, frame and grid. @param positions  along the line. @param unit  positions of one division.
    PlotPicture(const Window& view, std::uint32_t tint, int positions, int unit);

    /// A line at one level over all positions.
    PlotPicture& Flat(int level, std::uint32_t pen);
    PlotPicture& LevelCursor(int level);
    PlotPicture& LevelCursor(int level, std::uint32_t pen);

    /// Empty when `shown` is this plot, whatever pixels of the dotted grid lines are the gaps; else the
    /// difference in words.
    [[nodiscard]] std::string DifferenceFrom(const Picture& shown) const;
    /// Where the sample `value` at position `index` lies.
    [[nodiscard]] POINT Place(int index, int value) const;

private:
    [[nodiscard]] int Row(int level) const;
    [[nodiscard]] int Column(int index) const;

    Picture picture_;
    std::uint32_t tint_;
    int positions_;
};

/// Waits until the plot shows exactly this.
void WaitForPlot(Program& program, const Window& view, const PlotPicture& expected);
/// Waits until the plot has the pen at each sample's place.
void WaitForSamples(Program& program, const Window& view, const PlotPicture& empty,
                    const std::vector<int>& samples, std::uint32_t pen);

/// Presses a button without the mouse.
void Push(const Window& view, int button);

}  // namespace pixora::ui
