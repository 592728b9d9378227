// Wide texts in messages of the tests.
#pragma once

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

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

template <>
struct StringMaker<std::vector<std::wstring>> {
    static String convert(const std::vector<std::wstring>& texts) {
        String all = "[";
        for (const std::wstring& text : texts) all += (all.size() > 1 ? ", " : "") + toString(text);
        return all + "]";
    }
};

}  // namespace doctest
