#include "dialogs/value_check.h"

#include <doctest/doctest.h>

#include <string>

using namespace pixora;

namespace {

InputError Range(std::int32_t mode, const wchar_t* text, std::int32_t limit1, std::int32_t limit2) {
    return {.ErrorKind = 1,
            .CheckMode = mode,
            .InputText = text,
            .Limit1 = limit1,
            .Limit2 = limit2,
            .ItemName = L"Row"};
}

bool Passes(std::int32_t mode, const wchar_t* text, std::int32_t limit1, std::int32_t limit2) {
    InputError input = Range(mode, text, limit1, limit2);
    const bool passed = CheckValue(input);
    if (passed) CHECK(input.FailCase == 0);
    return passed;
}

std::int32_t FailCaseOf(std::int32_t mode, const wchar_t* text, std::int32_t limit1, std::int32_t limit2) {
    InputError input = Range(mode, text, limit1, limit2);
    CHECK_FALSE(CheckValue(input));
    return input.FailCase;
}

/// The value that the range dialog names.
std::wstring RangeErrorOf(std::wstring_view typed) {
    const DisplaySizeCheck check = ValidateDisplaySizeText(typed);
    REQUIRE(std::holds_alternative<InputError>(check));
    const InputError& error = std::get<InputError>(check);
    CHECK(error.ErrorKind == 1);
    CHECK(error.CheckMode == 3);
    CHECK(error.FailCase == 3);
    CHECK(error.Limit1 == 1);
    CHECK(error.Limit2 == 10000);
    CHECK(error.ItemName == L"Display Size Ratio");
    return error.InputText;
}

Message BoxOf(std::wstring_view typed) {
    const DisplaySizeCheck check = ValidateDisplaySizeText(typed);
    REQUIRE(std::holds_alternative<Message>(check));
    return std::get<Message>(check);
}

}  // namespace

TEST_CASE("characters are counted and removed") {
    CHECK(CountChar(L"1.2.3", L'.') == 2);
    CHECK(CountChar(L"", L'.') == 0);
    CHECK(RemoveChar(L"1.2.3", L'.') == L"123");
    CHECK(RemoveChar(L"...", L'.').empty());
    CHECK(RemoveChar(L"abc", L'.') == L"abc");
}

TEST_CASE("the digit test looks at the low byte of each character alone") {
    CHECK(IsDigitText(L"0123456789"));
    CHECK(IsDigitText(L"\u0430\u0139"));
    CHECK(IsDigitText(L"\u0130"));
    CHECK_FALSE(IsDigitText(L""));
    CHECK_FALSE(IsDigitText(L"1 2"));
    CHECK_FALSE(IsDigitText(L"-1"));
    CHECK_FALSE(IsDigitText(L"+1"));
    CHECK_FALSE(IsDigitText(L"1a"));
    CHECK_FALSE(IsDigitText(L"/"));
    CHECK_FALSE(IsDigitText(L":"));
    CHECK_FALSE(IsDigitText(L"\uFF10"));
    CHECK_FALSE(IsDigitText(L"\uFF19"));
}

TEST_CASE("a range test takes its limits in") {
    CHECK(Passes(1, L"5", 5, 0));
    CHECK(FailCaseOf(1, L"4", 5, 0) == 1);
    CHECK(Passes(2, L"5", 0, 5));
    CHECK(FailCaseOf(2, L"6", 0, 5) == 2);
    CHECK(Passes(3, L"1", 1, 10000));
    CHECK(Passes(3, L"10000", 1, 10000));
    CHECK(FailCaseOf(3, L"0", 1, 10000) == 3);
    CHECK(FailCaseOf(3, L"10001", 1, 10000) == 3);
}

TEST_CASE("mode 4 always fails, and any unknown mode fails without a case") {
    CHECK(FailCaseOf(4, L"5", 1, 10) == 4);
    CHECK(FailCaseOf(4, L"abc", 1, 10) == 4);
    CHECK(FailCaseOf(0, L"5", 1, 10) == 0);
    CHECK(FailCaseOf(5, L"5", 1, 10) == 0);
    CHECK(FailCaseOf(-1, L"5", 1, 10) == 0);
}

TEST_CASE("signs, blanks and nothing at all are refused before the limits, without a case") {
    for (const wchar_t* text : {L"", L"-1", L"+1", L" 1", L"1 ", L"1.5", L"abc"}) {
        CAPTURE(text);
        CHECK(FailCaseOf(3, text, -10, 10) == 0);
    }
}

TEST_CASE("numbers of any length saturate") {
    CHECK(FailCaseOf(3, L"99999999999999999999", 1, 10000) == 3);
    CHECK(Passes(1, L"99999999999999999999", 2147483647, 0));
}

TEST_CASE("the range dialog tells an error from a warning") {
    InputError input = Range(3, L"0", 1, 10000);
    CHECK_FALSE(CheckValue(input));
    CHECK(ComposeInputError(input) == InputErrorTexts{L"Pixora (Error)", L"Error: Input value (0)",
                                                      L"Item: Row",
                                                      L"The value must be between \"1\" and \"10000\"."});
    for (const std::int32_t kind : {2, 0, -1}) {
        input.ErrorKind = kind;
        CHECK(ComposeInputError(input) == InputErrorTexts{L"Pixora (Warning)", L"Error found", L"Item: Row",
                                                          L"The value must be between \"1\" and \"10000\"."});
    }
}

TEST_CASE("the words of modes 1 and 2 are the reverse of their tests") {
    InputError input = Range(1, L"4", 5, 9);
    CHECK_FALSE(CheckValue(input));
    CHECK(ComposeInputError(input).Line3 == L"The value must be equal or smaller than \"5\".");
    input = Range(2, L"10", 5, 9);
    CHECK_FALSE(CheckValue(input));
    CHECK(ComposeInputError(input).Line3 == L"The value must be equal or larger than \"9\".");
}

TEST_CASE("mode 4 names both limits, and without a case there is no third line") {
    InputError input = Range(4, L"7", -5, 9);
    CHECK_FALSE(CheckValue(input));
    CHECK(ComposeInputError(input).Line3 == L"The value must be between \"-5\" and \"9\".");
    input = Range(3, L"abc", 1, 10);
    CHECK_FALSE(CheckValue(input));
    CHECK(ComposeInputError(input).Line3.empty());
}

TEST_CASE("percentages with and without point and sign are display sizes") {
    for (const wchar_t* text :
         {L"50",     L"50%",      L"  50%",   L"12.5",    L"12.5%",   L"50  ",        L" 50 ",
          L"50. ",   L" 50. ",    L".96",     L"1",       L"0050",    L"1.23456",     L"10000",
          L"10000%", L"10000.05", L"10000.0", L"9999.99", L"5\u0430", L"10000.\u0431"}) {
        CAPTURE(text);
        CHECK(IsAccepted(ValidateDisplaySizeText(text)));
    }
}

TEST_CASE("anything that is no display size gives the invalid-input box with the text as typed") {
    for (const wchar_t* text :
         {L"",     L" ",    L"   ", L"50 %", L"5.%", L"%",    L"50%%",         L"1.2.3", L"50.",     L"abc",
          L".",    L"..",   L" %",  L"%50",  L"5%0", L"50% ", L"5 0",          L"-50",   L"+50",     L"1e2",
          L"0x10", L"50,5", L".%",  L". ",   L" .",  L"\t50", L"\uFF15\uFF10", L"nan",   L"5.\uFF15"}) {
        CAPTURE(text);
        CHECK(BoxOf(text) == Message{L" : Error- Invalid Value", L"",
                                     L"Input Value: \"" + std::wstring(text) + L"\"",
                                     L"The input string is invalid."});
    }
}

TEST_CASE("a display size is judged after rounding to one decimal") {
    CHECK(RangeErrorOf(L"0") == L"0");
    CHECK(RangeErrorOf(L"0.4") == L"0");
    CHECK(RangeErrorOf(L"0.94") == L"0");
    CHECK(RangeErrorOf(L".5") == L"0");
    CHECK(RangeErrorOf(L"0%") == L"0");
    CHECK(IsAccepted(ValidateDisplaySizeText(L"0.95")));
    CHECK(IsAccepted(ValidateDisplaySizeText(L"0.96")));
    CHECK(RangeErrorOf(L"10001") == L"10001");
    CHECK(RangeErrorOf(L"10001.5%") == L"10001");
    CHECK(IsAccepted(ValidateDisplaySizeText(L"10000.09")));
    CHECK(RangeErrorOf(L"\u0430") == L"0");
}

TEST_CASE("numbers of any length are named by the range dialog as the largest whole number") {
    CHECK(RangeErrorOf(L"2147483647") == L"2147483647");
    CHECK(RangeErrorOf(L"99999999999999999999") == L"2147483647");
    CHECK(RangeErrorOf(std::wstring(1000, L'9')) == L"2147483647");
    CHECK(RangeErrorOf(std::wstring(1000, L'9') + L".5") == L"2147483647");
    CHECK(RangeErrorOf(L"0." + std::wstring(1000, L'0') + L"1") == L"0");
    CHECK(RangeErrorOf(L"00." + std::wstring(1000, L'0') + L"1") == L"0");
    CHECK(RangeErrorOf(L"  ." + std::wstring(1000, L'0') + L"1") == L"0");
}

TEST_CASE("10000 and a first decimal is out of range") {
    const auto out_of_range = [](const wchar_t* number) {
        return Message{L" : Error", L"", std::wstring(L"The input value: ") + number, L"Out of range"};
    };
    CHECK(BoxOf(L"10000.1") == out_of_range(L"10000.1"));
    CHECK(BoxOf(L"10000.1%") == out_of_range(L"10000.1"));
    CHECK(BoxOf(L"10000.95%") == out_of_range(L"10000.95"));
    CHECK(BoxOf(L"  10000.5") == out_of_range(L"  10000.5"));
    CHECK(BoxOf(L"010000.5 ") == out_of_range(L"010000.5 "));
    CHECK(RangeErrorOf(L"10001.1") == L"10001");
}

TEST_CASE("an accepted display size becomes a ratio of three decimals") {
    CHECK(NormaliseDisplaySize(L"50") == L"0.500");
    CHECK(NormaliseDisplaySize(L"50%") == L"0.500");
    CHECK(NormaliseDisplaySize(L"  50%") == L"0.500");
    CHECK(NormaliseDisplaySize(L" 50 ") == L"0.500");
    CHECK(NormaliseDisplaySize(L"50. ") == L"0.500");
    CHECK(NormaliseDisplaySize(L"12.5%") == L"0.125");
    CHECK(NormaliseDisplaySize(L"12.34") == L"0.123");
    CHECK(NormaliseDisplaySize(L".96") == L"0.010");
    CHECK(NormaliseDisplaySize(L"0.96%") == L"0.010");
    CHECK(NormaliseDisplaySize(L"0.95") == L"0.010");  // a little below 0.0095 in binary
    CHECK(NormaliseDisplaySize(L"1") == L"0.010");
    CHECK(NormaliseDisplaySize(L"10000") == L"100.000");
    CHECK(NormaliseDisplaySize(L"1000%") == L"10.000");
}
