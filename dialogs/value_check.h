// Checks of typed values, and what the user is told when one is refused.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "dialogs/message.h"

namespace pixora {

/// How often `character` occurs in `text`.
[[nodiscard]] int CountChar(std::wstring_view text, wchar_t character);
/// `text` without any `character`.
[[nodiscard]] std::wstring RemoveChar(std::wstring_view text, wchar_t character);
/// True when `text` is not empty and the low byte of every character lies between '0' and '9'.
[[nodiscard]] bool IsDigitText(std::wstring_view text);

/// A typed number, the range it must lie in, and what came of the test: the state of the window CPX_Error.
struct InputError {
    std::int32_t ErrorKind = 0;  ///< 1: error; anything else: warning
    std::int32_t CheckMode = 0;  ///< 1: at least Limit1; 2: at most Limit2; 3: between both; 4: always fails
    std::wstring InputText;      ///< as the user typed it
    std::int32_t Limit1 = 0, Limit2 = 0;
    std::int32_t FailCase = 0;  ///< the mode that failed, 1 to 4; 0 when the text is no number
    std::wstring ItemName;      ///< of the input field
    friend bool operator==(const InputError&, const InputError&) = default;
};

/// Applies the range test and notes a failure in FailCase. @return true when the value is acceptable.
[[nodiscard]] bool CheckValue(InputError& input);

/// The texts of the window CPX_Error.
struct InputErrorTexts {
    std::wstring caption;
    std::wstring Line1, Line2, Line3;
    friend bool operator==(const InputErrorTexts&, const InputErrorTexts&) = default;
};
[[nodiscard]] InputErrorTexts ComposeInputError(const InputError& input);

/// What came of the check of a typed display size: nothing to show when it was accepted, else exactly one
/// box: an error box (Message) or the range dialog CPX_Error (InputError).
using DisplaySizeCheck = std::variant<std::monostate, Message, InputError>;
[[nodiscard]] inline bool IsAccepted(const DisplaySizeCheck& check) {
    return std::holds_alternative<std::monostate>(check);
}

/// Checks a display size in percent: digits, at most one point, an optional last "%", blanks around it; from
/// 1 to 10000 after rounding to one decimal.
[[nodiscard]] DisplaySizeCheck ValidateDisplaySizeText(std::wstring_view typed);

/// The error box for a text that is no display size.
[[nodiscard]] Message InvalidInputMessage(std::wstring_view text);

/// The ratio text of an accepted display size: a hundredth of the percentage with three decimals, at least
/// L"0.010".
[[nodiscard]] std::wstring NormaliseDisplaySize(std::wstring_view accepted);

}  // namespace pixora
