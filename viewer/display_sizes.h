// The fixed display sizes of the viewer's menu.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace pixora {

/// An item of the menu: its command, its text, and the ratio text that it sets, stored as it stands here.
struct DisplaySize {
    int command;
    std::wstring_view label, ratio_text;
};

inline constexpr std::array kDisplaySizes = {
    DisplaySize{32806, L"   5%", L"0.05"},   DisplaySize{32782, L"  10%", L"0.10"},
    DisplaySize{32783, L"  20%", L"0.20"},   DisplaySize{32784, L"  30%", L"0.30"},
    DisplaySize{32785, L"  40%", L"0.40"},   DisplaySize{32786, L"  50%", L"0.50"},
    DisplaySize{32787, L"  60%", L"0.60"},   DisplaySize{32788, L"  70%", L"0.70"},
    DisplaySize{32789, L"  80%", L"0.80"},   DisplaySize{32790, L"  90%", L"0.90"},
    DisplaySize{32791, L" 100%", L"1.00"},   DisplaySize{32792, L" 150%", L"1.50"},
    DisplaySize{32793, L" 200%", L"2.00"},   DisplaySize{32795, L" 500%", L"5.00"},
    DisplaySize{32796, L"1000% ", L"10.00"},
};

[[nodiscard]] constexpr bool SizeCommandsDiffer() {
    for (std::size_t i = 0; i < kDisplaySizes.size(); ++i)
        for (std::size_t j = i + 1; j < kDisplaySizes.size(); ++j)
            if (kDisplaySizes[i].command == kDisplaySizes[j].command) return false;
    return true;
}
static_assert(SizeCommandsDiffer(), "two sizes share a menu command");

/// The ratio text of a size command, or nothing for any other command.
[[nodiscard]] constexpr std::optional<std::wstring_view> RatioOfCommand(int command) {
    for (const DisplaySize& size : kDisplaySizes)
        if (size.command == command) return size.ratio_text;
    return std::nullopt;
}

}  // namespace pixora
