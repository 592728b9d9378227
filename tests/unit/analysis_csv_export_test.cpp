#include "analysis/csv_export.h"

#include <doctest/doctest.h>

#include "settings/settings_file.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

namespace fs = std::filesystem;

constexpr char kIni[] =
    "\xEF\xBB\xBF"
    "PATH_CSV=C:\\data\\\r\n.END\r\n";

std::wstring Stored(const fs::path& path) {
    std::wstring value;
    CHECK(GetSettingValue(path, L"PATH_CSV=", value));
    return value;
}

/// A file name with a backslash, in a folder on Windows.
fs::path Target(const ScratchFolder& folder) {
    fs::create_directory(folder / "sub");
    return folder / "sub\\a.csv";
}

}  // namespace

TEST_CASE("an export starts in the folder that the settings file names now") {
    const ScratchFolder folder;
    Settings settings;
    settings.PATH_CSV = L"D:\\memory\\";
    CHECK(CsvStartFolder(folder.Write("Pixora.ini", kIni), settings) == L"C:\\data\\");
}

TEST_CASE("an export starts in the folder of the record when the settings file has none") {
    const ScratchFolder folder;
    Settings settings;
    settings.PATH_CSV = L"D:\\memory\\";
    CHECK(CsvStartFolder(folder / "missing.ini", settings) == L"D:\\memory\\");
    CHECK(CsvStartFolder(folder.Write("a.ini", "PATH_CSV=\r\n.END\r\n"), settings) == L"D:\\memory\\");
    CHECK(CsvStartFolder(folder.Write("b.ini", "IMG_SIZE=1\r\n.END\r\n"), settings) == L"D:\\memory\\");
    // Without its last line a file gives its whole text.
    CHECK(CsvStartFolder(folder.Write("c.ini", "IMG_SIZE=1\r\nCAP_STYLE=FULL\r\n"), settings) ==
          L"D:\\memory\\");
    settings.PATH_CSV = L"IMG_SIZE=1\nCAP_STYLE=FULL\n";  // the record was read from it too
    CHECK(CsvStartFolder(folder / "c.ini", settings) == L"");
}

TEST_CASE("a saved export is remembered in the record and in the settings file") {
    const ScratchFolder folder;
    const fs::path ini = folder.Write("Pixora.ini", kIni), target = Target(folder);
    Settings settings;
    REQUIRE(SaveCsv(target, "Value\r\n", ini, settings));
    CHECK(settings.PATH_CSV.ends_with(L"sub\\"));
    CHECK(Stored(ini) == settings.PATH_CSV);
    CHECK(fs::file_size(target) == 7);
}

TEST_CASE("an export that cannot be written changes nothing") {
    const ScratchFolder folder;
    const fs::path ini = folder.Write("Pixora.ini", kIni);
    Settings settings;
    settings.PATH_CSV = L"C:\\data\\";
    CHECK_FALSE(SaveCsv(folder.Path(), "Value\r\n", ini, settings));
    CHECK(settings.PATH_CSV == L"C:\\data\\");
    CHECK(folder.Read("Pixora.ini") == kIni);
}

TEST_CASE("an export replaces a file whole") {
    const ScratchFolder folder;
    const fs::path target = Target(folder);
    Settings settings;
    REQUIRE(SaveCsv(target, "a long first text", folder / "missing.ini", settings));
    REQUIRE(SaveCsv(target, "short", folder / "missing.ini", settings));
    CHECK(fs::file_size(target) == 5);
}

TEST_CASE("the folder is not forgotten for a path without one") {
    const ScratchFolder folder;
    const fs::path ini = folder.Write("Pixora.ini", kIni);
#ifndef _WIN32  // where a path can be without a backslash
    Settings settings;
    settings.PATH_CSV = L"C:\\data\\";
    CHECK(SaveCsv(folder / "a.csv", "Value\r\n", ini, settings));
    CHECK(settings.PATH_CSV == L"C:\\data\\");
#endif
    CHECK(Stored(ini) == L"C:\\data\\");
}

TEST_CASE("a successful export is told by the information box") {
    CHECK(CsvSavedMessage() == Message{L": Information", L"CSV file has been saved.", L"", L""});
    CHECK(kCsvFilter == L"All Files(*.*)|*.*|CSV Files(*.csv)|*.csv||");
}
