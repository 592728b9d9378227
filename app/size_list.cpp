#include "app/size_list.h"

#include <algorithm>
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

const DisplaySize* FindItem(int index) {
    return index >= 0 && index < kListedSizes ? &kDisplaySizes[static_cast<std::size_t>(index)] : nullptr;
}

std::wstring PercentItem(std::wstring_view ratio_text) {
    return AlignRight(PercentText(ratio_text) + L"%");
}

}  // namespace

std::wstring SizeItemText(int index) {
    const DisplaySize* item = FindItem(index);
    return item ? PercentItem(item->ratio_text) : std::wstring();
}

std::wstring RatioOfItem(int index) {
    const DisplaySize* item = FindItem(index);
    return std::wstring(item ? item->ratio_text : L"---%");
}

int ItemOfRatio(std::wstring_view ratio_text) {
    const auto found = std::ranges::find(kDisplaySizes, ratio_text, &DisplaySize::ratio_text);
    return found == kDisplaySizes.end() ? kTypedSize : static_cast<int>(found - kDisplaySizes.begin());
}

std::wstring SizeBoxText(std::wstring_view ratio_text) {
    return ParseRatio(ratio_text) ? PercentItem(ratio_text) : AlignRight(ratio_text);
}

}  // namespace pixora
