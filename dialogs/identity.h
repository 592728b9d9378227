// The texts that name the product, shown by the splash page, the About box and the settings file.
#pragma once

#include <array>
#include <string_view>

namespace pixora {

inline constexpr std::wstring_view kProductName = L"Pixora";
inline constexpr std::wstring_view kVersionLine = L"Pixora  (Ver. 2.00)";
inline constexpr std::wstring_view kDescription = L"Image File Viewer and Analyzer";
inline constexpr std::wstring_view kBuildLine = L"Build 2026-02-10";
inline constexpr std::wstring_view kCompanyName = L"Zelka";
inline constexpr std::wstring_view kAudienceLine = L"For all ZELKA camera users";
/// A reserved name: no stranger's page can be behind it.
inline constexpr std::wstring_view kWebAddress = L"https://www.zelka.example";
/// What the shell is asked to open for it.
inline constexpr std::wstring_view kWebAddressToOpen = L"https://www.zelka.example/";

/// A static text of a dialog and what it shows.
struct IdentityText {
    int control;
    std::wstring_view text;
};

/// The control that both windows show in bold, and the About box's link.
inline constexpr int kVersionControl = 1165;
inline constexpr int kLinkControl = 1170;

inline constexpr std::array kSplashTexts = {
    IdentityText{kVersionControl, kVersionLine},
    IdentityText{1166, kDescription},
    IdentityText{1169, kBuildLine},
    IdentityText{1168, kCompanyName},
};
inline constexpr std::array kAboutTexts = {
    IdentityText{kVersionControl, kVersionLine},
    IdentityText{1166, kDescription},
    IdentityText{1169, kBuildLine},
    IdentityText{1167, L""},
    IdentityText{1168, kCompanyName},
    IdentityText{1145, kAudienceLine},
    IdentityText{kLinkControl, kWebAddress},
};

inline constexpr int kSplash_ms = 2000;
inline constexpr std::wstring_view kWaitCaption = L"Pixora (Loading File Data)";
inline constexpr std::wstring_view kWaitText =
    L"Loading data. Please wait... ";  // the trailing blank belongs to it

}  // namespace pixora
