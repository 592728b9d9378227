// The settings record.
#pragma once

#include <string>

namespace pixora {

/// The user's settings. Every value is text, in memory as in the file; whoever uses one interprets it.
/// The member names are the keys of the file.
struct Settings {
    std::wstring SettingsStatus;  ///< not stored: "TRUE" once start-up has read the file at the first attempt
    std::wstring MAIN_POS, MAIN_POS_X, MAIN_POS_Y;
    std::wstring IMG_SIZE;
    std::wstring PATH_CSV, PATH_OPEN, PATH_SAVE;
    std::wstring CAP_STYLE;
    std::wstring VALID_BITS;
    std::wstring BDR_COLOR, BDR_TYPE;
    std::wstring LVL_CURSOR;
    std::wstring LINE_COLOR, MARK_COLOR;
    std::wstring HIS_BINNING;
    std::wstring AUTO_BIT;
    friend bool operator==(const Settings&, const Settings&) = default;
};

}  // namespace pixora
