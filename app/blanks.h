// Blanks around a path that somebody typed or a launcher passed.
#pragma once

#include <cstddef>
#include <string_view>

namespace pixora {

/// The characters that stand between the parts of a command line.
inline constexpr std::wstring_view kBlanks = L" \t";

[[nodiscard]] constexpr std::wstring_view WithoutLeadingBlanks(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::wstring_view::npos ? std::wstring_view() : text.substr(first);
}

[[nodiscard]] constexpr std::wstring_view WithoutBlanksAround(std::wstring_view text) {
    text = WithoutLeadingBlanks(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace pixora
