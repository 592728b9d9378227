#include "dialogs/value_check.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"

namespace pixora {
namespace {

constexpr std::int32_t kSmallestPercent = 1;
constexpr std::int32_t kLargestPercent = 10'000;
constexpr double kSmallestRatio = 0.010;

std::wstring InQuotes(std::wstring_view text) {
    return std::wstring(L"\"").append(text).append(L"\"");
}

std::wstring Joined(std::wstring_view first, std::wstring_view second) {
    return std::wstring(first).append(second);
}

std::wstring_view WithoutBlanksAround(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

// A percent sign only as the last character, after something that is no point.
bool IsPercentSignInPlace(std::wstring_view text) {
    const int signs = CountChar(text, L'%');
    if (signs == 0) return true;
    return signs == 1 && text.back() == L'%' && text.size() > 1 && text[text.size() - 2] != L'.';
}

bool IsNumberText(std::wstring_view text) {
    if (text.empty() || CountChar(text, L'.') >= 2) return false;
    if (!IsPercentSignInPlace(text) || text.back() == L'.') return false;
    const std::wstring_view trimmed = WithoutBlanksAround(text);
    return IsDigitText(RemoveChar(RemoveChar(trimmed, L'.'), L'%'));
}

std::wstring_view WithoutPercentSign(std::wstring_view text) {
    if (text.ends_with(L'%')) text.remove_suffix(1);
    return text;
}

// A number beyond 10000 by its first decimal would be cut back to 10000 and pass.
bool IsJustBeyondLargest(std::wstring_view number) {
    const std::size_t point = number.find(L'.');
    if (point == std::wstring_view::npos) return false;
    const bool decimal = ParseWhole(number.substr(point + 1, 1)) != 0;
    return decimal && ParseWhole(number.substr(0, point)) == kLargestPercent;
}

std::wstring RangeLine(const InputError& input) {
    const std::wstring first = InQuotes(FormatWhole(input.Limit1));
    const std::wstring second = InQuotes(FormatWhole(input.Limit2));
    switch (input.FailCase) {
        // Deliberate: the words of the first two cases are the reverse of the test that failed.
        case 1:
            return L"The value must be equal or smaller than " + first + L".";
        case 2:
            return L"The value must be equal or larger than " + second + L".";
        case 3:
        case 4:
            return L"The value must be between " + first + L" and " + second + L".";
        default:
            return {};
    }
}

}  // namespace

int CountChar(std::wstring_view text, wchar_t character) {
    return static_cast<int>(std::ranges::count(text, character));
}

std::wstring RemoveChar(std::wstring_view text, wchar_t character) {
    std::wstring rest(text);
    std::erase(rest, character);
    return rest;
}

bool IsDigitText(std::wstring_view text) {
    // Deliberate: only the low byte is looked at, so that some other letters count as digits.
    const auto is_digit = [](wchar_t c) { return (c & 0xFF) >= L'0' && (c & 0xFF) <= L'9'; };
    return !text.empty() && std::ranges::all_of(text, is_digit);
}

bool CheckValue(InputError& input) {
    const auto fail = [&](std::int32_t mode) {
        input.FailCase = mode;
        return false;
    };
    if (input.CheckMode == 4) return fail(4);
    if (!IsDigitText(input.InputText)) return false;
    const std::int32_t value = ParseWhole(input.InputText);
    switch (input.CheckMode) {
        case 1:
            return value >= input.Limit1 || fail(1);
        case 2:
            return value <= input.Limit2 || fail(2);
        case 3:
            return (input.Limit1 <= value && value <= input.Limit2) || fail(3);
        default:
            return false;
    }
}

InputErrorTexts ComposeInputError(const InputError& input) {
    const bool is_error = input.ErrorKind == 1;
    return {is_error ? L"Pixora (Error)" : L"Pixora (Warning)",
            is_error ? L"Error: Input value (" + input.InputText + L")" : L"Error found",
            L"Item: " + input.ItemName, RangeLine(input)};
}

Message InvalidInputMessage(std::wstring_view text) {
    return {L" : Error- Invalid Value", L"", L"Input Value: " + InQuotes(text),
            L"The input string is invalid."};
}

DisplaySizeCheck ValidateDisplaySizeText(std::wstring_view typed) {
    if (!IsNumberText(typed)) return InvalidInputMessage(typed);
    const std::wstring_view number = WithoutPercentSign(typed);
    if (IsJustBeyondLargest(number))
        return Message{L" : Error", L"", Joined(L"The input value: ", number), L"Out of range"};
    // Judged after rounding to one decimal: 0.96 counts as 1.
    const std::int32_t value = Truncate(std::round(ParseDecimal(number) * 10) / 10);
    InputError range{.ErrorKind = 1,
                     .CheckMode = 3,
                     .InputText = FormatWhole(value),
                     .Limit1 = kSmallestPercent,
                     .Limit2 = kLargestPercent,
                     .ItemName = L"Display Size Ratio"};
    if (!CheckValue(range)) return range;
    return std::monostate{};
}

std::wstring NormaliseDisplaySize(std::wstring_view accepted) {
    const double ratio = ParseDecimal(WithoutPercentSign(accepted)) / 100;
    return FormatFixed(std::max(ratio, kSmallestRatio), 3);
}

}  // namespace pixora
