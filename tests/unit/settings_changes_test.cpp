#include "settings/settings_changes.h"

#include <doctest/doctest.h>

#include <string>

#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

namespace fs = std::filesystem;

const UserFolders kFolders{L"D:\\docs", L"D:\\pics"};

std::wstring ValueOf(const fs::path& path, std::wstring_view key) {
    std::wstring value;
    CHECK(GetSettingValue(path, key, value));
    return value;
}

}  // namespace

TEST_CASE("the data folder and the settings file lie in Zelka Pixora of the application data folder") {
    const DataPaths paths = DataPathsIn("base");
    CHECK(paths.folder == fs::path("base") / "Zelka" / "Pixora");
    CHECK(paths.settings_file == fs::path("base") / "Zelka" / "Pixora" / "Pixora.ini");
}

TEST_CASE("without an application data folder the data folder is not looked for in the current one") {
    CHECK(DataPathsIn(fs::path()).settings_file == fs::path("/Zelka/Pixora/Pixora.ini"));
}

TEST_CASE("the data folder is created at start and may exist already") {
    const ScratchFolder folder;
    const DataPaths paths = DataPathsIn(folder.Path());
    CHECK(CreateDataFolder(paths));
    CHECK(fs::is_directory(paths.folder));
    CHECK(CreateDataFolder(paths));
}

TEST_CASE("a data folder that cannot be created is reported") {
    const ScratchFolder folder;
    folder.Write("Zelka", "a file in the way");
    CHECK_FALSE(CreateDataFolder(DataPathsIn(folder.Path())));
}

TEST_CASE("start-up with a complete file reads it and sets the status") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    CHECK(WriteDefaultSettingsFile(path, kFolders));
    CHECK(PutSettingValue(path, L"MAIN_POS=", L"TR"));
    const StartedSettings started = StartSettings(path, kFolders);
    CHECK_FALSE(started.created_default);
    CHECK_FALSE(started.unusable);
    CHECK(started.settings.SettingsStatus == L"TRUE");
    CHECK(started.settings.MAIN_POS == L"TR");
}

TEST_CASE("start-up deletes what interrupted saves left, and reads the file that they did not replace") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    CHECK(WriteDefaultSettingsFile(path, kFolders));
    folder.Write("Pixora.ini.tmp0", "half a fi");
    folder.Write("Pixora.ini.tmp1", "");
    folder.Write("import_img_00.bmp", "x");
    CHECK_FALSE(StartSettings(path, kFolders).created_default);
    CHECK(folder.Names() == "Pixora.ini import_img_00.bmp");
}

TEST_CASE("start-up without a file writes the default one, reads it and says so") {
    const ScratchFolder folder;
    const StartedSettings started = StartSettings(folder / "Pixora.ini", kFolders);
    CHECK(started.created_default);
    CHECK_FALSE(started.unusable);
    CHECK(started.settings == DefaultSettings(kFolders));
    CHECK(started.settings.SettingsStatus.empty());
    CHECK(ValueOf(folder / "Pixora.ini", L"IMG_SIZE=") == L"0.500");
}

TEST_CASE("start-up with one empty key rebuilds the whole file") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    CHECK(WriteDefaultSettingsFile(path, kFolders));
    CHECK(PutSettingValue(path, L"MAIN_POS=", L"TR"));
    CHECK(PutSettingValue(path, L"AUTO_BIT=", L""));
    const StartedSettings started = StartSettings(path, kFolders);
    CHECK(started.created_default);
    CHECK(started.settings == DefaultSettings(kFolders));
    CHECK(ValueOf(path, L"MAIN_POS=") == L"LAST");
}

TEST_CASE("start-up with a file that is too long rebuilds the defaults") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", std::string(16'384, 'x'));
    const StartedSettings started = StartSettings(folder / "Pixora.ini", kFolders);
    CHECK(started.created_default);
    CHECK(started.settings == DefaultSettings(kFolders));
}

TEST_CASE("start-up where nothing can be written goes on with the defaults in memory") {
    const ScratchFolder folder;
    const StartedSettings started = StartSettings(folder / "missing" / "Pixora.ini", kFolders);
    CHECK(started.created_default);
    CHECK(started.settings == DefaultSettings(kFolders));
    CHECK(started.settings.SettingsStatus.empty());
    CHECK(folder.Names().empty());
}

TEST_CASE("start-up with an unusable file leaves it alone") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    const std::string text = "MAIN_POS=" + std::string(1'024, 'v') + "\n.END\n";
    folder.Write("Pixora.ini", text);
    fs::path reported;
    SetSettingsFaultHandler([&](const fs::path& broken) { reported = broken; });
    const StartedSettings started = StartSettings(path, kFolders);
    SetSettingsFaultHandler(nullptr);
    CHECK(reported == path);
    CHECK(started.unusable);
    CHECK_FALSE(started.created_default);
    CHECK(started.settings == DefaultSettings(kFolders));
    CHECK(folder.Read("Pixora.ini") == text);
}

TEST_CASE("restoring the defaults rewrites the file, reads it back and keeps the status") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    folder.Write("Pixora.ini", "anything");
    Settings settings;
    settings.SettingsStatus = L"TRUE";
    settings.CAP_STYLE = L"FULL";
    RestoreDefaultSettings(path, kFolders, settings);
    CHECK(settings.SettingsStatus == L"TRUE");
    CHECK(settings.CAP_STYLE == L"SIMPLE");
    CHECK(ValueOf(path, L"CAP_STYLE=") == L"SIMPLE");
}

TEST_CASE("restoring the defaults without a folder restores them in memory") {
    const ScratchFolder folder;
    Settings settings;
    settings.SettingsStatus = L"TRUE";
    RestoreDefaultSettings(folder / "missing" / "Pixora.ini", kFolders, settings);
    Settings expected = DefaultSettings(kFolders);
    expected.SettingsStatus = L"TRUE";
    CHECK(settings == expected);
}

TEST_CASE("a listed display size is stored together with what the file says of everything else") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    Settings settings = StartSettings(path, kFolders).settings;
    CHECK(PutSettingValue(path, L"CAP_STYLE=", L"FULL"));
    settings.BDR_COLOR = L"only in memory";
    CHECK(StoreListedDisplaySize(path, settings, L"0.05"));
    CHECK(settings.IMG_SIZE == L"0.05");
    CHECK(settings.CAP_STYLE == L"SIMPLE");
    CHECK(ValueOf(path, L"IMG_SIZE=") == L"0.05");
    CHECK(ValueOf(path, L"CAP_STYLE=") == L"FULL");
    CHECK(ValueOf(path, L"BDR_COLOR=") == L"GREEN");
}

TEST_CASE("a listed display size never overwrites settings with empty texts") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    Settings settings = StartSettings(path, kFolders).settings;
    settings.MARK_COLOR = L"RED";
    CHECK(PutSettingValue(path, L"AUTO_BIT=", L""));
    CHECK(StoreListedDisplaySize(path, settings, L"2.00"));
    Settings read;
    CHECK(LoadSettings(path, read) == SettingsLoadResult::complete);
    CHECK(read == settings);
    CHECK(read.IMG_SIZE == L"2.00");
    CHECK(read.MARK_COLOR == L"RED");
}

TEST_CASE("a listed display size without a file is kept in memory") {
    const ScratchFolder folder;
    Settings settings = DefaultSettings(kFolders);
    CHECK(StoreListedDisplaySize(folder / "Pixora.ini", settings, L"1.50"));
    CHECK(settings.IMG_SIZE == L"1.50");
    CHECK(folder.Names().empty());
}

TEST_CASE("single values are stored in the record and in their own lines") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    Settings settings = StartSettings(path, kFolders).settings;
    settings.CAP_STYLE = L"only in memory";
    CHECK(StoreTypedDisplaySize(path, settings, L"0.125"));
    CHECK(StoreOpenFolder(path, settings, L"C:\\img"));
    CHECK(StoreMainPosition(path, settings, -1280, 25));
    CHECK(settings.IMG_SIZE == L"0.125");
    CHECK(settings.PATH_OPEN == L"C:\\img");
    CHECK(settings.MAIN_POS_X == L"-1280");
    CHECK(settings.MAIN_POS_Y == L"25");
    CHECK(ValueOf(path, L"IMG_SIZE=") == L"0.125");
    CHECK(ValueOf(path, L"PATH_OPEN=") == L"C:\\img");
    CHECK(ValueOf(path, L"MAIN_POS_X=") == L"-1280");
    CHECK(ValueOf(path, L"MAIN_POS_Y=") == L"25");
    CHECK(ValueOf(path, L"CAP_STYLE=") == L"SIMPLE");
}

TEST_CASE("a text of several lines is no folder to start in") {
    CHECK(UsableFolder(L"D:\\pics\\") == L"D:\\pics\\");
    CHECK(UsableFolder(L"") == L"");
    CHECK(UsableFolder(L"IMG_SIZE=1\nCAP_STYLE=FULL\n") == L"");
    CHECK(UsableFolder(L"D:\\pics\\\n") == L"");
}

TEST_CASE("folders are stored in the record and in their own lines, an empty one nowhere") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    Settings settings = StartSettings(path, kFolders).settings;
    CHECK(StoreOpenFolder(path, settings, L"C:\\img"));
    CHECK(StoreSaveFolder(path, settings, L"C:\\saved\\"));
    CHECK(StoreCsvFolder(path, settings, L"C:\\csv\\"));
    CHECK_FALSE(StoreOpenFolder(path, settings, L""));
    CHECK_FALSE(StoreSaveFolder(path, settings, L""));
    CHECK_FALSE(StoreCsvFolder(path, settings, L""));
    CHECK(settings.PATH_OPEN == L"C:\\img");
    CHECK(settings.PATH_SAVE == L"C:\\saved\\");
    CHECK(settings.PATH_CSV == L"C:\\csv\\");
    Settings read;
    CHECK(LoadSettings(path, read) == SettingsLoadResult::complete);
    CHECK(read.PATH_OPEN == L"C:\\img");
    CHECK(read.PATH_SAVE == L"C:\\saved\\");
    CHECK(read.PATH_CSV == L"C:\\csv\\");
}
