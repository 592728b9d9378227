#include "dialogs/text_width.h"

#include <doctest/doctest.h>

#include <string>

using namespace pixora;

TEST_CASE("full-width characters count two, every other one") {
    CHECK(TextWidth(L"") == 0);
    CHECK(TextWidth(L"abc") == 3);
    CHECK(TextWidth(L"\u65E5\u672C") == 4);
    CHECK(TextWidth(L"a\u65E5b") == 4);
    CHECK(TextWidth(L"\uFF71") == 1);  // half-width katakana
}

TEST_CASE("the ranges of full-width characters end where they end") {
    CHECK(TextWidth(L"\u2FFF") == 1);
    CHECK(TextWidth(L"\u3000") == 2);
    CHECK(TextWidth(L"\u9FFF") == 2);
    CHECK(TextWidth(L"\uA000") == 1);
    CHECK(TextWidth(L"\uFF00") == 1);
    CHECK(TextWidth(L"\uFF01") == 2);
    CHECK(TextWidth(L"\uFF60") == 2);
    CHECK(TextWidth(L"\uFF61") == 1);
    CHECK(TextWidth(L"\uFFDF") == 1);
    CHECK(TextWidth(L"\uFFE0") == 2);
    CHECK(TextWidth(L"\uFFE6") == 2);
    CHECK(TextWidth(L"\uFFE7") == 1);
}

TEST_CASE("a text that fits is not shortened") {
    CHECK(ShortenText(L"", 0).empty());
    CHECK(ShortenText(L"C:\\a.tif", 8) == L"C:\\a.tif");
    CHECK(ShortenText(L"\u65E5\u672C", 4) == L"\u65E5\u672C");
}

TEST_CASE("a long path keeps five characters, five dots and one character more of its end than fits") {
    const std::wstring path = L"C:\\pictures\\camera\\2026\\02\\holiday_1.tif";
    REQUIRE(path.size() == 40);
    CHECK(ShortenText(path, 20) == L"C:\\pi.....liday_1.tif");
    CHECK(ShortenText(path, 39) == L"C:\\pi.....s\\camera\\2026\\02\\holiday_1.tif");
    CHECK(ShortenText(path, 39).size() == 40);
}

TEST_CASE("a full-width character that crosses the limit stays") {
    // The head takes 10 units. Of the budget of 3 two characters take 4, so the second one crosses it.
    CHECK(ShortenText(L"abcdefghij\u3042\u3044\u3046", 13) == L"abcde.....\u3044\u3046");
    // A full-width head takes 15 units and leaves 5.
    CHECK(ShortenText(L"\u3042\u3042\u3042\u3042\u3042abcdefghijk", 20) ==
          L"\u3042\u3042\u3042\u3042\u3042.....fghijk");
}

TEST_CASE("a limit below the head's width keeps the head and one character") {
    CHECK(ShortenText(L"abcdefghij", 5) == L"abcde.....j");
    CHECK(ShortenText(L"abcdefghij", 0) == L"abcde.....j");
    CHECK(ShortenText(L"abcdefghij", -100) == L"abcde.....j");
    CHECK(ShortenText(L"abc", 2) == L"abc.....c");
    CHECK(ShortenText(L"", -1) == L".....");
}
