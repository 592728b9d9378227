#include "app/size_list.h"

#include <cstddef>

#include "base/number_text.h"
#include "viewer/display_size.h"

namespace pixora {
namespace {

constexpr std::size_t kItemLength = 9;

std::wstring AlignRight(std::wstring_view text) {
    const std::size_t blanks = text.size() < kItemLength ? kItemLength - text.size() : 0;
    return std::wstring(blanks, L' ').append(text);
}

bool IsListed(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < kListedSizes.size();
}

}  // namespace

std::wstring SizeItemText(int index) {
    return IsListed(index) ? AlignRight(kListedSizes[static_cast<std::size_t>(index)].percent)
                           : std::wstring();
}

std::wstring RatioOfItem(int index) {
    if (!IsListed(index)) return L"---%";
    return std::wstring(kListedSizes[static_cast<std::size_t>(index)].ratio);
}

int ItemOfRatio(std::wstring_view ratio_text) {
    for (std::size_t i = 0; i < kListedSizes.size(); ++i)
        if (kListedSizes[i].ratio == ratio_text) return static_cast<int>(i);
    return kTypedSize;
}

std::wstring SizeBoxText(std::wstring_view ratio_text) {
    const int index = ItemOfRatio(ratio_text);
    if (index != kTypedSize) return SizeItemText(index);
    if (!ParseRatio(ratio_text)) return AlignRight(ratio_text);
    return AlignRight(PercentText(ratio_text) + L"%");
}

}  // namespace pixora
