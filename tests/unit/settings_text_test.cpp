#include "settings/settings_text.h"

#include <doctest/doctest.h>

#include <string>

#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

TEST_CASE("the settings file reads the same with and without byte-order mark, with CR LF and with LF") {
    const ScratchFolder folder;
    for (const char* bytes : {"\xEF\xBB\xBF"
                              "A=1\r\nB=2\r\n",
                              "A=1\nB=2\n", "A=1\r\nB=2\n",
                              "\xEF\xBB\xBF"
                              "A=1\nB=2\r\n"}) {
        folder.Write("Pixora.ini", bytes);
        CHECK(ReadSettingsText(folder / "Pixora.ini") == L"A=1\nB=2\n");
    }
}

TEST_CASE("the settings file ends at a Ctrl+Z, as text files do") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini",
                 "A=1\n\x1A"
                 "B=2\n");
    CHECK(ReadSettingsText(folder / "Pixora.ini") == L"A=1\n");
}

TEST_CASE("a carriage return alone is a character of its line") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\r2\r\r\nB=2\r");
    CHECK(ReadSettingsText(folder / "Pixora.ini") == L"A=1\r2\r\nB=2\r");
}

TEST_CASE("bytes that are no UTF-8 read as replacement characters") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=\xE3\x81\x82\xFF\n");
    CHECK(ReadSettingsText(folder / "Pixora.ini") == L"A=\u3042\uFFFD\n");
}

TEST_CASE("a missing settings file, a folder and a text of one character count as no text") {
    const ScratchFolder folder;
    CHECK_FALSE(ReadSettingsText(folder / "Pixora.ini").has_value());
    CHECK_FALSE(ReadSettingsText(folder.Path()).has_value());
    for (const char* bytes : {"", "A", "\xEF\xBB\xBF", "\xEF\xBB\xBF\r\n", "A\x1A=1"}) {
        folder.Write("Pixora.ini", bytes);
        CHECK_FALSE(ReadSettingsText(folder / "Pixora.ini").has_value());
    }
    folder.Write("Pixora.ini", "AB");
    CHECK(ReadSettingsText(folder / "Pixora.ini") == L"AB");
}

TEST_CASE("a settings file of any length shows that it is too long, unless a Ctrl+Z ends it early") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", std::string(10'000'000, 'x'));
    const auto text = ReadSettingsText(folder / "Pixora.ini");
    REQUIRE(text.has_value());
    CHECK(text->size() > 16'383);
    CHECK(text->size() < 100'000);
    folder.Write("Pixora.ini", "A=1\n\x1A" + std::string(10'000'000, 'x'));
    CHECK(ReadSettingsText(folder / "Pixora.ini") == L"A=1\n");
    // Four bytes a character: as long as a file of the allowed number of characters can be.
    std::string wide;
    for (int i = 0; i < 16'384; ++i) wide += "\xF0\x9F\x93\xB7";
    folder.Write("Pixora.ini", wide);
    const auto most = ReadSettingsText(folder / "Pixora.ini");
    REQUIRE(most.has_value());
    CHECK(most->size() > 16'383);
}

TEST_CASE("the settings file is written with byte-order mark, UTF-8 and CR LF") {
    const ScratchFolder folder;
    CHECK(WriteSettingsText(folder / "Pixora.ini", L"A=\u3042\nB=2\n"));
    CHECK(folder.Read("Pixora.ini") ==
          "\xEF\xBB\xBF"
          "A=\xE3\x81\x82\r\nB=2\r\n");
    CHECK(folder.Names() == "Pixora.ini");
}

TEST_CASE("a key is found at the start of a line only, and whole with its equals sign") {
    const std::wstring text = L"XMAIN_POS=1\nMAIN_POS_X=5\nMAIN_POS=TR\nMAIN_POS=TL\n.END\n";
    const FoundKey found = FindSetting(text, L"MAIN_POS=");
    CHECK(found.result == KeySearch::found);
    CHECK(text.substr(found.value, found.end - found.value) == L"TR");
    CHECK(FindSetting(text, L"main_pos=").result == KeySearch::not_found);
}

TEST_CASE("the line .END ends a search, a line that only begins so does not") {
    CHECK(FindSetting(L".END\nA=1\n", L"A=").result == KeySearch::not_found);
    CHECK(FindSetting(L".END", L"A=").result == KeySearch::not_found);
    CHECK(FindSetting(L".ENDING\nA=1\n", L"A=").result == KeySearch::found);
    CHECK(FindSetting(L" .END\nA=1\n", L"A=").result == KeySearch::found);
    CHECK(FindSetting(L".end\nA=1\n", L"A=").result == KeySearch::found);
    CHECK(FindSetting(L".END\n", L".END").result == KeySearch::found);
}

TEST_CASE("a search without key and without .END says that the text is damaged") {
    CHECK(FindSetting(L"B=1\n", L"A=").result == KeySearch::end_of_text);
    CHECK(FindSetting(L"B=1", L"A=").result == KeySearch::end_of_text);
    CHECK(FindSetting(L"", L"A=").result == KeySearch::end_of_text);
}

TEST_CASE("an empty key is the first line") {
    const FoundKey found = FindSetting(L"A=1\nB=2\n", L"");
    CHECK(found.result == KeySearch::found);
    CHECK(found.value == 0);
    CHECK(found.end == 3);
}

TEST_CASE("a search gives up when the lines before the key reach 16,383 characters") {
    // With its line feed the first line takes 16,382 and then 16,383 characters.
    CHECK(FindSetting(std::wstring(16'381, L'x') + L"\nA=1\n", L"A=").result == KeySearch::found);
    CHECK(FindSetting(std::wstring(16'382, L'x') + L"\nA=1\n", L"A=").result == KeySearch::overrun);
    CHECK(FindSetting(std::wstring(16'382, L'x'), L"A=").result == KeySearch::end_of_text);
    CHECK(FindSetting(std::wstring(16'383, L'x'), L"A=").result == KeySearch::overrun);
}

TEST_CASE("replacing a value keeps everything before and after it") {
    const std::wstring text = L"A=1\nB=old value\nC=3\n";
    CHECK(ReplaceSetting(text, FindSetting(text, L"B="), L"new") == L"A=1\nB=new\nC=3\n");
    CHECK(ReplaceSetting(text, FindSetting(text, L"C="), L"") == L"A=1\nB=old value\nC=\n");
    // A last line without line feed gets one.
    CHECK(ReplaceSetting(L"A=1", FindSetting(L"A=1", L"A="), L"2") == L"A=2\n");
}
