#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "settings/settings_file.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

const UserFolders kFolders{L"C:\\Users\\me\\Documents", L"C:\\Users\\me\\Pictures"};

const std::vector<std::wstring> kSortedLines = {L"AUTO_BIT=ON",
                                                L"BDR_COLOR=GREEN",
                                                L"BDR_TYPE=AREA",
                                                L"CAP_STYLE=SIMPLE",
                                                L"HIS_BINNING=ON",
                                                L"IMG_SIZE=0.500",
                                                L"LINE_COLOR=RED",
                                                L"LVL_CURSOR=ON",
                                                L"MAIN_POS=LAST",
                                                L"MAIN_POS_X=10",
                                                L"MAIN_POS_Y=10",
                                                L"MARK_COLOR=WHITE",
                                                L"PATH_CSV=C:\\Users\\me\\Documents\\",
                                                L"PATH_OPEN=C:\\Users\\me\\Pictures\\",
                                                L"PATH_SAVE=C:\\Users\\me\\Pictures\\",
                                                L"VALID_BITS=16"};

const std::string kDefaultFile =
    "\xEF\xBB\xBF.VER=Pixora  (Ver. 2.00)\r\n"
    ".BEGIN\r\n"
    "AUTO_BIT=ON\r\n"
    "BDR_COLOR=GREEN\r\n"
    "BDR_TYPE=AREA\r\n"
    "CAP_STYLE=SIMPLE\r\n"
    "HIS_BINNING=ON\r\n"
    "IMG_SIZE=0.500\r\n"
    "LINE_COLOR=RED\r\n"
    "LVL_CURSOR=ON\r\n"
    "MAIN_POS=LAST\r\n"
    "MAIN_POS_X=10\r\n"
    "MAIN_POS_Y=10\r\n"
    "MARK_COLOR=WHITE\r\n"
    "PATH_CSV=C:\\Users\\me\\Documents\\\r\n"
    "PATH_OPEN=C:\\Users\\me\\Pictures\\\r\n"
    "PATH_SAVE=C:\\Users\\me\\Pictures\\\r\n"
    "VALID_BITS=16\r\n"
    ".END\r\n";

}  // namespace

TEST_CASE("the default lines are sixteen and sorted") {
    std::vector<std::wstring> lines;
    CHECK(BuildDefaultSettingLines(lines, kFolders) == 16);
    CHECK(lines == kSortedLines);
}

TEST_CASE("the default lines fill the first sixteen entries of a longer list") {
    std::vector<std::wstring> lines(20, L"rest");
    CHECK(BuildDefaultSettingLines(lines, kFolders) == 16);
    REQUIRE(lines.size() == 20);
    CHECK(lines[0] == L"AUTO_BIT=ON");
    CHECK(lines[15] == L"VALID_BITS=16");
    CHECK(lines[16] == L"rest");
}

TEST_CASE("the default file is written byte for byte, over whatever was there") {
    const ScratchFolder folder;
    CHECK(WriteDefaultSettingsFile(folder / "Pixora.ini", kFolders));
    CHECK(folder.Read("Pixora.ini") == kDefaultFile);
    folder.Write("Pixora.ini", std::string(100'000, 'x'));
    CHECK(WriteDefaultSettingsFile(folder / "Pixora.ini", kFolders));
    CHECK(folder.Read("Pixora.ini") == kDefaultFile);
    CHECK(folder.Names() == "Pixora.ini");
}

TEST_CASE("an unknown user folder gives a lone backslash") {
    const ScratchFolder folder;
    CHECK(WriteDefaultSettingsFile(folder / "Pixora.ini", UserFolders()));
    std::wstring value;
    for (const wchar_t* key : {L"PATH_CSV=", L"PATH_OPEN=", L"PATH_SAVE="}) {
        CHECK(GetSettingValue(folder / "Pixora.ini", key, value));
        CHECK(value == L"\\");
    }
}

TEST_CASE("writing the default file reports success even where it cannot be written") {
    const ScratchFolder folder;
    CHECK(WriteDefaultSettingsFile(folder / "missing" / "Pixora.ini", kFolders));
    CHECK(WriteDefaultSettingsFile(folder.Path(), kFolders));
    CHECK(folder.Names().empty());
}

TEST_CASE("the default record is what the default file gives") {
    const ScratchFolder folder;
    CHECK(WriteDefaultSettingsFile(folder / "Pixora.ini", kFolders));
    Settings read;
    CHECK(LoadSettings(folder / "Pixora.ini", read) == SettingsLoadResult::complete);
    CHECK(read == DefaultSettings(kFolders));
    CHECK(read.SettingsStatus.empty());
}

TEST_CASE("lines sort by their characters' codes") {
    std::vector<std::wstring> lines = {L"b", L"MAIN_POS_X=1", L"a",  L"MAIN_POS=1",
                                       L"B", L"\u3042",       L"10", L"9"};
    int count = 8;
    SortSettingLines(lines, count);
    CHECK(count == 8);
    CHECK(lines == std::vector<std::wstring>{L"10", L"9", L"B", L"MAIN_POS=1", L"MAIN_POS_X=1", L"a", L"b",
                                             L"\u3042"});
}

TEST_CASE("sorting drops empty lines and no longer counts them") {
    std::vector<std::wstring> lines = {L"", L"b", L"", L"a", L"", L"beyond"};
    int count = 5;
    SortSettingLines(lines, count);
    CHECK(count == 2);
    CHECK(lines == std::vector<std::wstring>{L"a", L"b", L"", L"", L"", L"beyond"});
}

TEST_CASE("two equal lines become one, followed by an empty line that still counts") {
    std::vector<std::wstring> lines = {L"b", L"a", L"b", L"c", L"b"};
    int count = 5;
    SortSettingLines(lines, count);
    CHECK(count == 5);
    CHECK(lines == std::vector<std::wstring>{L"a", L"b", L"c", L"", L""});
}

TEST_CASE("1,024 lines are sorted, more are left alone") {
    std::vector<std::wstring> lines(1'025, L"b");
    lines[1'023] = L"a";
    const std::vector<std::wstring> before = lines;
    int count = 1'025;
    SortSettingLines(lines, count);
    CHECK(count == 1'025);
    CHECK(lines == before);
    count = 1'024;
    SortSettingLines(lines, count);
    CHECK(count == 1'024);
    CHECK(lines[0] == L"a");
    CHECK(lines[1] == L"b");
    CHECK(lines[2].empty());
}

TEST_CASE("sorting nothing does nothing") {
    std::vector<std::wstring> lines = {L"b", L"a"};
    for (int count : {0, -3}) {
        SortSettingLines(lines, count);
        CHECK(count == 0);
        CHECK(lines == std::vector<std::wstring>{L"b", L"a"});
    }
}
