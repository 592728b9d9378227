// The keys of the settings file and the fields of the record that they belong to.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "settings/settings.h"

namespace pixora {

/// A setting that is in the file.
struct StoredKey {
    std::wstring_view key;  ///< with its equals sign, as it is searched for
    std::wstring Settings::*field;
};

inline constexpr StoredKey kMainPos{L"MAIN_POS=", &Settings::MAIN_POS};
inline constexpr StoredKey kMainPosX{L"MAIN_POS_X=", &Settings::MAIN_POS_X};
inline constexpr StoredKey kMainPosY{L"MAIN_POS_Y=", &Settings::MAIN_POS_Y};
inline constexpr StoredKey kCapStyle{L"CAP_STYLE=", &Settings::CAP_STYLE};
inline constexpr StoredKey kImgSize{L"IMG_SIZE=", &Settings::IMG_SIZE};
inline constexpr StoredKey kBdrColor{L"BDR_COLOR=", &Settings::BDR_COLOR};
inline constexpr StoredKey kBdrType{L"BDR_TYPE=", &Settings::BDR_TYPE};
inline constexpr StoredKey kLineColor{L"LINE_COLOR=", &Settings::LINE_COLOR};
inline constexpr StoredKey kLvlCursor{L"LVL_CURSOR=", &Settings::LVL_CURSOR};
inline constexpr StoredKey kValidBits{L"VALID_BITS=", &Settings::VALID_BITS};
inline constexpr StoredKey kMarkColor{L"MARK_COLOR=", &Settings::MARK_COLOR};
inline constexpr StoredKey kHisBinning{L"HIS_BINNING=", &Settings::HIS_BINNING};
inline constexpr StoredKey kAutoBit{L"AUTO_BIT=", &Settings::AUTO_BIT};
inline constexpr StoredKey kPathCsv{L"PATH_CSV=", &Settings::PATH_CSV};
inline constexpr StoredKey kPathOpen{L"PATH_OPEN=", &Settings::PATH_OPEN};
inline constexpr StoredKey kPathSave{L"PATH_SAVE=", &Settings::PATH_SAVE};

/// The order in which the keys are read. Deliberate: the main window's position is read twice.
inline constexpr std::array kLoadOrder = {kMainPos,  kMainPosX, kMainPosY,  kCapStyle,  kImgSize,
                                          kBdrColor, kBdrType,  kLineColor, kLvlCursor, kValidBits,
                                          kMainPos,  kMainPosX, kMainPosY,  kMarkColor, kHisBinning,
                                          kAutoBit,  kPathCsv,  kPathOpen,  kPathSave};
/// The order in which they are written: every key, once.
inline constexpr std::array kSaveOrder = {
    kAutoBit, kCapStyle, kImgSize,  kBdrColor,  kBdrType,    kLineColor, kLvlCursor, kValidBits,
    kMainPos, kMainPosX, kMainPosY, kMarkColor, kHisBinning, kPathCsv,   kPathOpen,  kPathSave};
static_assert(kLoadOrder.size() == 19 && kSaveOrder.size() == 16);

}  // namespace pixora
