// The main window's display size box: its list, and the text that it shows for a value.
#pragma once

#include <string>
#include <string_view>

#include "viewer/display_sizes.h"

namespace pixora {

/// How many items the list has: the fixed sizes of the viewer's menu, in their order.
inline constexpr int kListedSizes = static_cast<int>(kDisplaySizes.size());

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
