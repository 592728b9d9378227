// The main window's display size box: its list, and the text that it shows for a value.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace pixora {

/// An item of the list and the ratio text that it stands for.
struct ListedSize {
    std::wstring_view percent, ratio;
};
inline constexpr std::array kListedSizes = {
    ListedSize{L"5%", L"0.05"},   ListedSize{L"10%", L"0.10"},  ListedSize{L"20%", L"0.20"},
    ListedSize{L"30%", L"0.30"},  ListedSize{L"40%", L"0.40"},  ListedSize{L"50%", L"0.50"},
    ListedSize{L"60%", L"0.60"},  ListedSize{L"70%", L"0.70"},  ListedSize{L"80%", L"0.80"},
    ListedSize{L"90%", L"0.90"},  ListedSize{L"100%", L"1.00"}, ListedSize{L"150%", L"1.50"},
    ListedSize{L"200%", L"2.00"}, ListedSize{L"500%", L"5.00"}, ListedSize{L"1000%", L"10.00"},
};

/// Index of a value that is not in the list.
inline constexpr int kTypedSize = -1;

/// The text of item `index`, 0 .. 14, right-aligned to 9 characters.
[[nodiscard]] std::wstring SizeItemText(int index);
/// The ratio text of item `index`. An index outside the list gives L"---%", which is stored like any other.
[[nodiscard]] std::wstring RatioOfItem(int index);
/// The item whose ratio text is exactly `ratio_text`, or kTypedSize: L"0.500" is not L"0.50".
[[nodiscard]] int ItemOfRatio(std::wstring_view ratio_text);
/// What the box shows for a stored ratio: the item, or the percentage aligned like one. A text that is no
/// ratio shows as it is.
[[nodiscard]] std::wstring SizeBoxText(std::wstring_view ratio_text);

}  // namespace pixora
