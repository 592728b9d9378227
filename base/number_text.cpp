#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace pixora {
namespace {

constexpr bool IsBlank(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

constexpr bool IsDecimalDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

std::wstring_view WithoutLeadingBlanks(std::wstring_view text) {
    const auto first = std::find_if_not(text.begin(), text.end(), IsBlank);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

// The characters that a decimal number can consist of, as bytes for from_chars.
std::string NumberCharacters(std::wstring_view text) {
    std::string number;
    for (const wchar_t c : text) {
        const bool belongs =
            IsDecimalDigit(c) || c == L'.' || c == L'e' || c == L'E' || c == L'+' || c == L'-';
        if (!belongs) break;
        number.push_back(static_cast<char>(c));
    }
    return number;
}

// Tells for a number beyond the range of a double whether it is too large or too small; from_chars says the
// same of both. What counts is the place of the first digit that is not zero, moved by the exponent.
bool IsHuge(std::string_view number) {
    const std::string_view digits = number.substr(0, number.find_first_of("eE"));
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos) return false;
    const std::size_t point = std::min(digits.find('.'), digits.size());
    std::int64_t exponent = 0;
    if (digits.size() < number.size())
        exponent = ParseWhole(
            std::wstring(number.begin() + static_cast<std::ptrdiff_t>(digits.size()) + 1, number.end()));
    return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + exponent > 0;
}

template <typename Print>
std::wstring Widen(Print print) {
    std::array<char, 400> buffer{};  // the largest double has 309 digits before its point
    const auto [end, error] = print(buffer.data(), buffer.data() + buffer.size());
    return error == std::errc{} ? std::wstring(buffer.data(), end) : std::wstring();
}

}  // namespace

std::int32_t Truncate(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value)) return 0;
    if (value >= static_cast<double>(Limits::max())) return Limits::max();
    if (value <= static_cast<double>(Limits::min())) return Limits::min();
    return static_cast<std::int32_t>(value);
}

double ParseDecimal(std::wstring_view text) {
    std::string number = NumberCharacters(WithoutLeadingBlanks(text));
    if (number.starts_with('+') && !number.starts_with("+-")) number.erase(0, 1);  // from_chars knows no plus
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::invalid_argument) return 0.0;
    if (result.ec != std::errc::result_out_of_range) return value;
    if (!IsHuge(number)) return 0.0;
    const double largest = std::numeric_limits<double>::max();
    return number.starts_with('-') ? -largest : largest;
}

std::optional<double> ParseRatio(std::wstring_view text) {
    const double value = ParseDecimal(text);
    if (!std::isfinite(value) || value <= 0.0 || value == std::numeric_limits<double>::max())
        return std::nullopt;
    return value;
}

std::int32_t ParseWhole(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    text = WithoutLeadingBlanks(text);
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+')) text.remove_prefix(1);
    std::int64_t value = 0;
    for (const wchar_t c : text) {
        if (!IsDecimalDigit(c)) break;
        value = std::min<std::int64_t>(value * 10 + (c - L'0'), std::int64_t{Limits::max()} + 1);
    }
    const std::int64_t with_sign = negative ? -value : value;
    return static_cast<std::int32_t>(std::min<std::int64_t>(with_sign, Limits::max()));
}

std::wstring FormatFixed(double value, int decimals) {
    return Widen([=](char* first, char* last) {
        return std::to_chars(first, last, value, std::chars_format::fixed, decimals);
    });
}

std::wstring FormatWhole(std::int64_t value) {
    return Widen([=](char* first, char* last) { return std::to_chars(first, last, value); });
}

}  // namespace pixora
