#include "dialogs/value_entry.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

constexpr std::uint32_t kKeyDown = 0x0100, kKeyUp = 0x0101, kChar = 0x0102, kMouseMove = 0x0200;

std::optional<Message> NoLimit(std::wstring_view) {
    return std::nullopt;
}

ValueEntry Entry(const wchar_t* shown, const wchar_t* typed) {
    ValueEntry entry;
    entry.Begin(shown);
    entry.EntryText = typed;
    return entry;
}

}  // namespace

TEST_CASE("a valid display size closes the entry with its ratio") {
    ValueEntry entry = Entry(L"50%", L"12.5");
    std::wstring asked;
    const ValueEntryResult result = entry.ApplyEntry([&](std::wstring_view ratio) {
        asked = ratio;
        return NoLimit(ratio);
    });
    CHECK(asked == L"0.125");
    CHECK(result.close);
    CHECK(result.ratio_text == L"0.125");
    CHECK(entry.EntryText == L"12.5");
    CHECK(IsAccepted(result.refusal));
}

TEST_CASE("an invalid display size stays open, with the last good text and one box to show") {
    ValueEntry entry = Entry(L"50%", L"abc");
    const ValueEntryResult result = entry.ApplyEntry([](std::wstring_view) -> std::optional<Message> {
        FAIL("the viewer was asked");
        return std::nullopt;
    });
    CHECK_FALSE(result.close);
    CHECK_FALSE(result.ratio_text.has_value());
    CHECK(std::get<Message>(result.refusal) == InvalidInputMessage(L"abc"));
    CHECK(entry.EntryText == L"50%");
}

TEST_CASE("a display size that the viewer cannot show stays open with the viewer's message") {
    const Message too_large{L"caption", L"one", L"two", L""};
    ValueEntry entry = Entry(L"50%", L"9000");
    const ValueEntryResult result = entry.ApplyEntry([&](std::wstring_view ratio) -> std::optional<Message> {
        CHECK(ratio == L"90.000");
        return too_large;
    });
    CHECK_FALSE(result.close);
    CHECK_FALSE(result.ratio_text.has_value());
    CHECK(std::get<Message>(result.refusal) == too_large);
    CHECK(entry.EntryText == L"50%");
}

TEST_CASE("OK with the text unchanged closes without applying, even where Return would be refused") {
    ValueEntry entry = Entry(L"0%", L"0%");
    const ValueEntryResult unchanged = entry.PressOk(NoLimit);
    CHECK(unchanged.close);
    CHECK_FALSE(unchanged.ratio_text.has_value());
    CHECK_FALSE(entry.ApplyEntry(NoLimit).close);
}

TEST_CASE("OK with another text applies it") {
    ValueEntry entry = Entry(L"50%", L"60");
    CHECK(entry.PressOk(NoLimit).ratio_text == L"0.600");
    entry = Entry(L"50%", L"6 0");
    CHECK_FALSE(entry.PressOk(NoLimit).close);
    CHECK(entry.EntryText == L"50%");
}

TEST_CASE("Return with the text unchanged applies it again") {
    ValueEntry entry = Entry(L"50%", L"50%");
    CHECK(entry.ApplyEntry(NoLimit).ratio_text == L"0.500");
}

TEST_CASE("Escape restores the last good text") {
    ValueEntry entry = Entry(L"50%", L"abc");
    entry.Restore();
    CHECK(entry.EntryText == L"50%");
    CHECK(entry.LastGoodText == L"50%");
}

TEST_CASE("any message that carries 13 or 27 counts as Return or Escape") {
    EntryKeyFilter filter;
    CHECK(filter.Test(kKeyDown, 13) == EntryKey::enter);
    CHECK(filter.Test(kKeyDown, 27) == EntryKey::escape);
    CHECK(filter.Test(kChar, 13) == EntryKey::enter);
    CHECK(filter.Test(kMouseMove, 13) == EntryKey::enter);
    CHECK(filter.Test(0, 27) == EntryKey::escape);
    CHECK(filter.Test(kKeyDown, 65) == EntryKey::none);
    CHECK(filter.Test(kMouseMove, 0) == EntryKey::none);
    CHECK(filter.Test(kKeyDown, 0x10000000DULL) == EntryKey::none);
}

TEST_CASE("a key-up counts only when its key went down in this window") {
    EntryKeyFilter filter;
    CHECK(filter.Test(kKeyUp, 13) == EntryKey::none);
    CHECK(filter.Test(kKeyUp, 27) == EntryKey::none);
    CHECK(filter.Test(kKeyDown, 27) == EntryKey::escape);
    CHECK(filter.Test(kKeyUp, 13) == EntryKey::none);
    CHECK(filter.Test(kKeyUp, 27) == EntryKey::escape);
    CHECK(filter.Test(kKeyUp, 27) == EntryKey::none);
}

TEST_CASE("a key-up after a box was shown counts no longer") {
    EntryKeyFilter filter;
    CHECK(filter.Test(kKeyDown, 13) == EntryKey::enter);
    filter.Forget();
    CHECK(filter.Test(kKeyUp, 13) == EntryKey::none);
}
