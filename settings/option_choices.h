// The three option dialogs as tables: their radio buttons, what each stores, and which ones are on.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings.h"

namespace pixora {

enum class OptionDialog { viewer_option, region_style, main_option };

/// One radio button.
struct OptionChoice {
    int control;  ///< id
    std::wstring_view label;
    std::size_t row;  ///< index into the dialog's rows; one button of a row is on
    std::wstring Settings::*key;
    std::wstring_view value;       ///< stored under `key` by a click
    std::wstring_view auto_bit{};  ///< stored under AUTO_BIT by the same click, if not empty
};

inline constexpr std::array<std::wstring_view, 4> kViewerOptionRows = {
    L"Caption Style", L"Level Cursor", L"Histogram Binning", L"16bit TIFF image viewer file data valid bits"};
inline constexpr std::array kViewerOptionChoices = {
    OptionChoice{1243, L"Simple", 0, &Settings::CAP_STYLE, L"SIMPLE"},
    OptionChoice{1254, L"Full Path", 0, &Settings::CAP_STYLE, L"FULL"},
    OptionChoice{1246, L"ON", 1, &Settings::LVL_CURSOR, L"ON"},
    OptionChoice{1260, L"OFF", 1, &Settings::LVL_CURSOR, L"OFF"},
    OptionChoice{1247, L"256 Levels", 2, &Settings::HIS_BINNING, L"ON"},
    OptionChoice{1248, L"No Binning", 2, &Settings::HIS_BINNING, L"OFF"},
    OptionChoice{1244, L"AUTO", 3, &Settings::AUTO_BIT, L"ON"},
    OptionChoice{1242, L"16bit", 3, &Settings::VALID_BITS, L"16", L"OFF"},
    OptionChoice{1256, L"14bit", 3, &Settings::VALID_BITS, L"14", L"OFF"},
    OptionChoice{1253, L"12bit", 3, &Settings::VALID_BITS, L"12", L"OFF"},
    OptionChoice{1255, L"10bit", 3, &Settings::VALID_BITS, L"10", L"OFF"},
    OptionChoice{1257, L"8bit", 3, &Settings::VALID_BITS, L"8", L"OFF"},
};

inline constexpr std::array<std::wstring_view, 4> kRegionStyleRows = {L"Cursor Line  Color", L"Border Color",
                                                                      L"Border Type", L"Handle Marker Color"};
inline constexpr std::array kRegionStyleChoices = {
    OptionChoice{1244, L"Green", 0, &Settings::LINE_COLOR, L"GREEN"},
    OptionChoice{1247, L"Red", 0, &Settings::LINE_COLOR, L"RED"},
    OptionChoice{1246, L"Gray", 0, &Settings::LINE_COLOR, L"GRAY"},
    OptionChoice{1241, L"Green", 1, &Settings::BDR_COLOR, L"GREEN"},
    OptionChoice{1242, L"Red", 1, &Settings::BDR_COLOR, L"RED"},
    OptionChoice{1243, L"Gray", 1, &Settings::BDR_COLOR, L"GRAY"},
    OptionChoice{1306, L"Area", 2, &Settings::BDR_TYPE, L"AREA"},
    OptionChoice{1307, L"Line", 2, &Settings::BDR_TYPE, L"LINE"},
    OptionChoice{1245, L"Green", 3, &Settings::MARK_COLOR, L"GREEN"},
    OptionChoice{1248, L"Red", 3, &Settings::MARK_COLOR, L"RED"},
    OptionChoice{1249, L"Gray", 3, &Settings::MARK_COLOR, L"GRAY"},
    OptionChoice{1250, L"White", 3, &Settings::MARK_COLOR, L"WHITE"},
};

inline constexpr std::array<std::wstring_view, 1> kMainOptionRows = {L"Startup Display Position"};
inline constexpr std::array kMainOptionChoices = {
    OptionChoice{1073, L"TOP - LEFT", 0, &Settings::MAIN_POS, L"TL"},
    OptionChoice{1074, L"TOP - RIGHT", 0, &Settings::MAIN_POS, L"TR"},
    OptionChoice{1075, L"Last Position", 0, &Settings::MAIN_POS, L"LAST"},
};

/// Shown, without caption, when SaveOptions reports a failure.
inline constexpr std::wstring_view kSaveNotComplete = L"\"Save settings\" is not complete";

[[nodiscard]] std::span<const OptionChoice> OptionChoices(OptionDialog dialog);
/// The labels beside the rows; the last one of the viewer options is a group box.
[[nodiscard]] std::span<const std::wstring_view> OptionRows(OptionDialog dialog);
/// The whole caption, the trailing blank of the main dialog options included.
[[nodiscard]] std::wstring_view OptionCaption(OptionDialog dialog);

/// Which radio buttons of an open option dialog are on. A click changes its own row alone: the rows are not
/// taken from the record again.
class OptionButtons {
public:
    explicit OptionButtons(OptionDialog dialog) : dialog_(dialog) {}

    /// Sets every row from the record, a value without a button of its own by the row's fallback. The region
    /// style dialog also replaces unknown colours in the record, which the next change will save.
    void Begin(Settings& settings);
    /// A click on `control`: turns it on and the rest of its row off, and stores its value in the record.
    /// @return false, with nothing changed, when `control` is no radio button of this dialog.
    [[nodiscard]] bool Click(int control, Settings& settings);
    [[nodiscard]] bool IsOn(int control) const;
    /// The buttons that are on, one a row.
    [[nodiscard]] std::span<const int> On() const { return on_; }

private:
    OptionDialog dialog_;
    std::vector<int> on_;
};

/// Whether open viewers are drawn anew after a click on this button; the other choices are read when they are
/// needed.
[[nodiscard]] bool RedrawsViewers(OptionDialog dialog, int control);

/// Writes what a click changed: the whole record, from the main dialog options MAIN_POS alone.
/// @return false when the user must be told kSaveNotComplete; never from the main dialog options.
[[nodiscard]] bool SaveOptions(OptionDialog dialog, const std::filesystem::path& path,
                               const Settings& settings);

}  // namespace pixora
