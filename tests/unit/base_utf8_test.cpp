#include "base/utf8.h"

#include <doctest/doctest.h>

#include <string>

using namespace pixora;

TEST_CASE("characters of one to four bytes are decoded and encoded") {
    const std::string bytes = "A\xC2\xA2\xE2\x82\xAC\xF0\x9F\x93\xB7";
    const std::wstring text = L"A\u00A2\u20AC\U0001F4F7";
    CHECK(WideFromUtf8(bytes) == text);
    CHECK(Utf8FromWide(text) == bytes);
    CHECK(WideFromUtf8("").empty());
    CHECK(Utf8FromWide(L"").empty());
}

TEST_CASE("the first and last character of each length survive the round trip") {
    for (const std::wstring text : {L"\u0001", L"\u007F", L"\u0080", L"\u07FF", L"\u0800", L"\uD7FF",
                                    L"\uE000", L"\uFFFD", L"\uFFFF", L"\U00010000", L"\U0010FFFF"}) {
        CAPTURE(Utf8FromWide(text));
        CHECK(WideFromUtf8(Utf8FromWide(text)) == text);
    }
    CHECK(Utf8FromWide(L"\u0080") == "\xC2\x80");
    CHECK(Utf8FromWide(L"\uFFFF") == "\xEF\xBF\xBF");
    CHECK(Utf8FromWide(L"\U0010FFFF") == "\xF4\x8F\xBF\xBF");
}

TEST_CASE("a zero character is a character") {
    const std::wstring text(L"a\0b", 3);
    CHECK(Utf8FromWide(text) == std::string("a\0b", 3));
    CHECK(WideFromUtf8(std::string_view("a\0b", 3)) == text);
}

TEST_CASE("every byte that belongs to no character becomes a replacement character") {
    CHECK(WideFromUtf8("a\x80z") == L"a\uFFFDz");        // a continuation alone
    CHECK(WideFromUtf8("\xC0\x80") == L"\uFFFD\uFFFD");  // too long a form of zero
    CHECK(WideFromUtf8("\xC1\xBF") == L"\uFFFD\uFFFD");
    CHECK(WideFromUtf8("\xE0\x80\x80") == L"\uFFFD\uFFFD\uFFFD");            // too long a form
    CHECK(WideFromUtf8("\xED\xA0\x80") == L"\uFFFD\uFFFD\uFFFD");            // a surrogate
    CHECK(WideFromUtf8("\xF4\x90\x80\x80") == L"\uFFFD\uFFFD\uFFFD\uFFFD");  // beyond U+10FFFF
    CHECK(WideFromUtf8("\xF5") == L"\uFFFD");
    CHECK(WideFromUtf8("\xFF\xFE") == L"\uFFFD\uFFFD");
}

TEST_CASE("a character cut off at the end or by another one is replaced, and what follows is kept") {
    CHECK(WideFromUtf8("\xE3\x81") == L"\uFFFD\uFFFD");
    CHECK(WideFromUtf8("\xF0\x9F\x93") == L"\uFFFD\uFFFD\uFFFD");
    CHECK(WideFromUtf8("\xC3") == L"\uFFFD");
    CHECK(WideFromUtf8("\xE3\x81"
                       "A") == L"\uFFFD\uFFFDA");
    CHECK(WideFromUtf8("\xE3\xE3\x81\x82") == L"\uFFFD\u3042");
}

TEST_CASE("a surrogate without its partner is encoded as a replacement character") {
    const std::wstring high(1, static_cast<wchar_t>(0xD83D));
    const std::wstring low(1, static_cast<wchar_t>(0xDCF7));
    CHECK(Utf8FromWide(high) == "\xEF\xBF\xBD");
    CHECK(Utf8FromWide(low) == "\xEF\xBF\xBD");
    CHECK(Utf8FromWide(high + L"A") ==
          "\xEF\xBF\xBD"
          "A");
    CHECK(Utf8FromWide(low + high) == "\xEF\xBF\xBD\xEF\xBF\xBD");
    CHECK(Utf8FromWide(high + high + low) == "\xEF\xBF\xBD\xF0\x9F\x93\xB7");
}
