#include "base/number_text.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>

using namespace pixora;

TEST_CASE("conversion to whole numbers truncates toward zero and saturates") {
    CHECK(Truncate(1.99) == 1);
    CHECK(Truncate(-1.99) == -1);
    CHECK(Truncate(2147483647.9) == 2147483647);
    CHECK(Truncate(1e300) == 2147483647);
    CHECK(Truncate(-1e300) == -2147483648LL);
    CHECK(Truncate(std::numeric_limits<double>::infinity()) == 2147483647);
    CHECK(Truncate(std::nan("")) == 0);
}

TEST_CASE("a ratio is a finite number above zero, whatever follows it") {
    CHECK(ParseRatio(L"0.50") == 0.5);
    CHECK(ParseRatio(L" 0.5") == 0.5);
    CHECK(ParseRatio(L"1.5abc") == 1.5);
    CHECK(ParseRatio(L".5") == 0.5);
    CHECK(ParseRatio(L"+2") == 2.0);
    CHECK(ParseRatio(L"1e2") == 100.0);
    CHECK(ParseRatio(L"10.00") == 10.0);
}

TEST_CASE("texts that are no ratio are told apart") {
    for (const wchar_t* text : {L"", L"---%", L"nan", L"inf", L"-1", L"0", L"0.000", L"0x10", L"1e999",
                                L"1e-999", L"abc", L"-", L"+", L"+-1", L".", L"\uFF11", L"0,5"}) {
        CAPTURE(text);
        CHECK_FALSE(ParseRatio(text).has_value());
    }
}

TEST_CASE("a whole number ends at the first other character and saturates") {
    CHECK(ParseWhole(L"12abc") == 12);
    CHECK(ParseWhole(L"  -7") == -7);
    CHECK(ParseWhole(L"+7") == 7);
    CHECK(ParseWhole(L"") == 0);
    CHECK(ParseWhole(L"--1") == 0);
    CHECK(ParseWhole(L"2147483648") == 2147483647);
    CHECK(ParseWhole(L"-2147483649") == -2147483648LL);
    CHECK(ParseWhole(L"99999999999999999999999999") == 2147483647);
}

TEST_CASE("numbers are written with a point, whatever the locale") {
    CHECK(FormatFixed(0.5, 3) == L"0.500");
    CHECK(FormatFixed(12.25, 1) == L"12.2");
    CHECK(FormatFixed(1e300, 1).size() == 303);
    CHECK(FormatWhole(-42) == L"-42");
}

TEST_CASE("numbers beyond the range of a double are huge or nothing") {
    const double huge = std::numeric_limits<double>::max();
    const std::wstring zeros(400, L'0');
    CHECK(ParseDecimal(L"+5") == 5.0);
    CHECK(ParseDecimal(L"+-5") == 0.0);
    CHECK(ParseDecimal(L"1e999") == huge);
    CHECK(ParseDecimal(L"-1e999") == -huge);
    CHECK(ParseDecimal(L"1" + zeros) == huge);
    CHECK(ParseDecimal(L"00." + zeros + L"1") == 0.0);
    CHECK(ParseDecimal(L"1e-999") == 0.0);
    CHECK(ParseDecimal(L"1e99999999999999999999") == huge);
    CHECK(ParseDecimal(L"1e-99999999999999999999") == 0.0);
}
