#include "app/size_list.h"

#include <doctest/doctest.h>

#include <array>
#include <string>

using namespace pixora;

TEST_CASE("the size list has fifteen items aligned to nine characters") {
    const std::array<const wchar_t*, 15> items = {L"       5%", L"      10%", L"      20%", L"      30%",
                                                  L"      40%", L"      50%", L"      60%", L"      70%",
                                                  L"      80%", L"      90%", L"     100%", L"     150%",
                                                  L"     200%", L"     500%", L"    1000%"};
    REQUIRE(kListedSizes == 15);
    for (int i = 0; i < 15; ++i) CHECK(SizeItemText(i) == items[static_cast<std::size_t>(i)]);
}

TEST_CASE("each item stands for a ratio of two decimals and is found by it") {
    const std::array<const wchar_t*, 15> ratios = {L"0.05", L"0.10", L"0.20", L"0.30", L"0.40",
                                                   L"0.50", L"0.60", L"0.70", L"0.80", L"0.90",
                                                   L"1.00", L"1.50", L"2.00", L"5.00", L"10.00"};
    for (int i = 0; i < 15; ++i) {
        const wchar_t* ratio = ratios[static_cast<std::size_t>(i)];
        CHECK(RatioOfItem(i) == ratio);
        CHECK(ItemOfRatio(ratio) == i);
        CHECK(SizeBoxText(ratio) == SizeItemText(i));
    }
}

TEST_CASE("an index outside the list gives a text that is no ratio") {
    CHECK(RatioOfItem(-1) == L"---%");
    CHECK(RatioOfItem(15) == L"---%");
    CHECK(RatioOfItem(-2147483647) == L"---%");
    CHECK(SizeItemText(-1).empty());
    CHECK(SizeItemText(15).empty());
}

TEST_CASE("ratios are compared as texts: the default size is not in the list") {
    CHECK(ItemOfRatio(L"0.500") == kTypedSize);
    CHECK(ItemOfRatio(L"0.5") == kTypedSize);
    CHECK(ItemOfRatio(L" 0.50") == kTypedSize);
    CHECK(ItemOfRatio(L"10.000") == kTypedSize);
    CHECK(ItemOfRatio(L"") == kTypedSize);
}

TEST_CASE("a typed ratio shows as a percentage aligned like the items") {
    CHECK(SizeBoxText(L"0.500") == L"      50%");
    CHECK(SizeBoxText(L"0.123") == L"    12.3%");
    CHECK(SizeBoxText(L"100.000") == L"   10000%");
    CHECK(SizeBoxText(L"2") == L"     200%");
    CHECK(SizeBoxText(L"12345678.000") == L"1234567800%");
}

TEST_CASE("a stored text that is no ratio shows as it is") {
    CHECK(SizeBoxText(L"---%") == L"     ---%");
    CHECK(SizeBoxText(L"abc") == L"      abc");
    CHECK(SizeBoxText(L"-1") == L"       -1");
}
