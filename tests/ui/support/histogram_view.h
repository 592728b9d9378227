// The histogram view, what its plot shows, and files whose histograms are known.
#pragma once

#include <cstdint>
#include <filesystem>

#include "tests/ui/support/picture.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/viewer_hands.h"

namespace pixora::ui {

/// Controls of the histogram view, besides those that viewer_hands.h names.
inline constexpr int kHistPlot = 1165, kHistChannel = 1058, kHistFullScale = 1166, kHistCountDivision = 1171,
                     kHistLevelDivision = 1172, kHistMin = 1173, kHistMax = 1174, kHistMean = 1175,
                     kHistStd = 1176, kHistFrequency = 1177, kHistOn = 1181, kHistCentre = 1182,
                     kHistUp = 1183, kHistDown = 1184, kHistBinning = 1185;
inline constexpr int kHistLabels[] = {1167, 1168, 1169, 1170};

/// Bars of a grey image, and the cursor over them.
inline constexpr std::uint32_t kHistGreyPen = 0x0000C8, kHistCursorPen = 0xFF0000;

/// What the plot of a histogram view shows now.
class HistogramPicture {
public:
    HistogramPicture(Program& program, const Window& view) : picture_(program.See(view.Item(kHistPlot))) {}

    [[nodiscard]] int Width() const { return picture_.width; }
    [[nodiscard]] int Height() const { return picture_.height; }
    [[nodiscard]] std::uint32_t At(int x, int y) const { return picture_.At(x, y); }
    /// Whether a grid line goes through a row or column: part of it is grey, as it is dotted.
    [[nodiscard]] bool HasGridRow(int y) const;
    [[nodiscard]] bool HasGridColumn(int x) const;
    /// Whether all of a column is the cursor of a grey image.
    [[nodiscard]] bool IsCursorColumn(int x) const;

private:
    Picture picture_;
};

/// 16 x 12 grey pixels of 8 bits: six rows of level 0, three of 64, three of 255.
[[nodiscard]] std::filesystem::path ThreeLevelsFile();
/// 4 x 4 grey pixels of 12 bits: three each of levels 16, 17, 18 and 19, four of level 4095.
[[nodiscard]] std::filesystem::path TwelveBitsFile();
/// 6 x 4 pixels of one colour: red 200, green 120, blue 40.
[[nodiscard]] std::filesystem::path OneColourFile();

}  // namespace pixora::ui
