#include <doctest/doctest.h>
#include "viewer/display_size.h"

using namespace pixora;

namespace {

Message TooLarge(const std::wstring& wanted, const std::wstring& largest) {
    return {L" : Error - Image display failed.", L"A \"" + wanted + L"\" zoom is too large to display.",
            L"The maximum zoom level for this image is \"" + largest + L"\".", L""};
}

}  // namespace

TEST_CASE("a ratio reads as a percentage with at most one decimal") {
    CHECK(PercentText(L"0.05") == L"5");
    CHECK(PercentText(L"1.50") == L"150");
    CHECK(PercentText(L"0.123") == L"12.3");
    CHECK(PercentText(L"10.00") == L"1000");
    CHECK(PercentText(L"0.001") == L"0.1");
    CHECK(PercentText(L"0.0004") == L"0");
}

TEST_CASE("a percentage can be had with its sign") {
    CHECK(PercentSignText(L"0.05") == L"5%");
    CHECK(PercentSignText(L"0.123") == L"12.3%");
}

TEST_CASE("a ratio without a point reads like one with two zeros") {
    CHECK(PercentText(L"2") == L"200");
    CHECK(PercentText(L"100") == L"10000");
}

TEST_CASE("a text that is no ratio reads as zero percent") {
    for (const auto* text : {L"", L"---%", L"nan", L"-1.00", L"0.00"}) CHECK(PercentText(text) == L"0");
}

TEST_CASE("the displayed size is truncated") {
    CHECK(DisplayedSize({30, 19}, 0.05) == PixelSize{1, 0});
    CHECK(DisplayedSize({3, 5}, 1.5) == PixelSize{4, 7});
    CHECK(DisplayedSize({65535, 1}, 1e300) == PixelSize{2147483647, 2147483647});
}

TEST_CASE("an image is refused from 22001 displayed pixels on") {
    CHECK_FALSE(CheckDisplayLimit({2200, 10}, L"10.00"));
    CHECK(CheckDisplayLimit({2201, 10}, L"10.00") == TooLarge(L"1000%", L"990%"));
    CHECK_FALSE(CheckDisplayLimit({10, 2200}, L"10.00"));
    CHECK(CheckDisplayLimit({10, 2201}, L"10.00") == TooLarge(L"1000%", L"990%"));
    CHECK_FALSE(CheckDisplayLimit({22000, 22000}, L"1.00"));
    CHECK(CheckDisplayLimit({22001, 1}, L"1.00") == TooLarge(L"100%", L"90%"));
}

TEST_CASE("the largest allowed percentage is a multiple of ten below the one that fits") {
    CHECK(CheckDisplayLimit({4000, 3000}, L"10.00") == TooLarge(L"1000%", L"540%"));
    CHECK(CheckDisplayLimit({5500, 10}, L"5.00") == TooLarge(L"500%", L"390%"));
    CHECK(CheckDisplayLimit({65535, 10}, L"0.50") == TooLarge(L"50%", L"30%"));
}

TEST_CASE("the side that fails names the largest percentage, the width first") {
    CHECK(CheckDisplayLimit({4000, 8000}, L"10.00") == TooLarge(L"1000%", L"540%"));
    CHECK(CheckDisplayLimit({100, 8000}, L"10.00") == TooLarge(L"1000%", L"270%"));
}

TEST_CASE("a stored display size that is no ratio starts a viewer at one half") {
    CHECK(StartRatio(L"0.25") == L"0.25");
    CHECK(StartRatio(L"2") == L"2");
    for (const auto* text : {L"", L"---%", L"nan", L"inf", L"-1", L"0", L"0x10"})
        CHECK(StartRatio(text) == L"0.500");
}
