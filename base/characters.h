// Comparing names of files as Windows does, as far as the program's own ASCII names go.
#pragma once

#include <algorithm>
#include <string_view>

namespace pixora {

/// True when the texts differ at most in the case of the letters a to z.
[[nodiscard]] constexpr bool EqualInAnyCase(std::wstring_view a, std::wstring_view b) {
    const auto lower = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
    };
    return std::ranges::equal(a, b, {}, lower, lower);
}

}  // namespace pixora
