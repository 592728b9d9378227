// Wide texts in messages of the tests.
#pragma once

#include <doctest/doctest.h>

#include <string>
#include <string_view>

namespace pixora::ui {

/// The text in UTF-8, as doctest prints it.
[[nodiscard]] std::string Narrow(std::wstring_view text);

}  // namespace pixora::ui

namespace doctest {

template <>
struct StringMaker<std::wstring> {
    static String convert(const std::wstring& text) {
        return String(('"' + pixora::ui::Narrow(text) + '"').c_str());
    }
};
template <std::size_t length>
struct StringMaker<wchar_t[length]> {
    static String convert(const wchar_t* text) { return StringMaker<std::wstring>::convert(text); }
};

}  // namespace doctest
