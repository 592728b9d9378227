#include "app/command_line.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <string>

#include "base/file.h"

using namespace pixora;

TEST_CASE("a program without argument gives no start-up path") {
    for (const wchar_t* line : {L"", L" ", L"\"C:\\Program Files\\pixora.exe\"", L"\"C:\\p.exe\" ",
                                L"\"C:\\p.exe\"  ", L"\"", L"\"C:\\p.exe", L"C:\\p.exe", L"C:\\p.exe  ",
                                L"\"\"", L"  \"C:\\p.exe\"", L"\"C:\\p.exe\" \"\"", L"\"C:\\p.exe\" \""}) {
        CAPTURE(line);
        CHECK(StartupPath(line).empty());
    }
}

TEST_CASE("a quoted path after the quoted program loses its quotes") {
    CHECK(StartupPath(L"\"C:\\Program Files\\pixora.exe\" \"D:\\my images\\a b.tif\"") ==
          L"D:\\my images\\a b.tif");
    CHECK(StartupPath(L"\"C:\\p.exe\" \"D:\\a.tif\" \"D:\\b.tif\"") == L"D:\\a.tif");
    CHECK(StartupPath(L"\"C:\\p.exe\" \"D:\\a.tif") == L"D:\\a.tif");
}

TEST_CASE("an unquoted path after the quoted program is taken as it stands") {
    CHECK(StartupPath(L"\"C:\\p.exe\" D:\\a.tif") == L"D:\\a.tif");
    CHECK(StartupPath(L"\"C:\\p.exe\" D:\\my images\\a b.tif") == L"D:\\my images\\a b.tif");
    CHECK(StartupPath(L"\"C:\\p.exe\" D:\\a.tif D:\\b.tif ") == L"D:\\a.tif D:\\b.tif ");
}

TEST_CASE("two blanks after the program make no difference") {
    CHECK(StartupPath(L"\"C:\\p.exe\"  D:\\a.tif") == L"D:\\a.tif");
    CHECK(StartupPath(L"\"C:\\p.exe\"   \"D:\\a b.tif\"") == L"D:\\a b.tif");
    CHECK(StartupPath(L"  \"C:\\p.exe\" \"D:\\a b.tif\"") == L"D:\\a b.tif");
}

TEST_CASE("the character after the program's closing quote goes, whatever it is") {
    CHECK(StartupPath(L"\"C:\\p.exe\"xD:\\a.tif") == L"D:\\a.tif");
    CHECK(StartupPath(L"\"C:\\p.exe\"x").empty());
}

TEST_CASE("a program path without quotes ends at its first blank") {
    CHECK(StartupPath(L"C:\\p.exe D:\\a.tif") == L"D:\\a.tif");
    CHECK(StartupPath(L"pixora.exe   \"D:\\a b.tif\"  ") == L"D:\\a b.tif");
    CHECK(StartupPath(L" pixora D:\\a b.tif ") == L"D:\\a b.tif");
    CHECK(StartupPath(L"pixora\t\"D:\\a b.tif") == L"D:\\a b.tif");
}

TEST_CASE("at most 259 characters of a start-up path are kept") {
    const std::wstring path = L"D:\\" + std::wstring(300, L'a');
    CHECK(StartupPath(L"\"C:\\p.exe\" " + path) == L"D:\\" + std::wstring(256, L'a'));
    CHECK(StartupPath(L"\"C:\\p.exe\" \"" + path + L"\"").size() == 259);
    CHECK(StartupPath(L"p.exe " + path).size() == 259);
}

TEST_CASE("a start-up path is opened from two characters on") {
    CHECK_FALSE(OpensAtStart(L""));
    CHECK_FALSE(OpensAtStart(L"a"));
    CHECK(OpensAtStart(L"ab"));
}

TEST_CASE("a relative path is made complete against the current folder") {
    const std::filesystem::path current = std::filesystem::current_path();
    CHECK(FullPath(L"a \u3042.tif") == WideText(current / std::filesystem::path(u8"a \u3042.tif")));
    CHECK(FullPath(WideText(current / "a.tif")) == WideText(current / "a.tif"));
    CHECK(FullPath(L"").empty());
}
