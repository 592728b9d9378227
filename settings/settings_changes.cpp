#include "settings/settings_changes.h"

#include <system_error>

#include "base/file.h"
#include "base/number_text.h"
#include "settings/stored_keys.h"

namespace pixora {

namespace fs = std::filesystem;

namespace {

// An empty value would spoil the file: the next start would take it for incomplete.
bool StoreFolder(const fs::path& path, Settings& settings, const StoredKey& key, std::wstring_view folder) {
    if (folder.empty()) return false;
    settings.*key.field = folder;
    return PutSettingValue(path, key.key, folder);
}

}  // namespace

DataPaths DataPathsIn(const fs::path& application_data) {
    // As a text, so that without an application data folder it is no folder below the current one.
    fs::path folder = application_data;
    folder += (fs::path("/Zelka") / "Pixora").make_preferred();
    return {folder, folder / "Pixora.ini"};
}

bool CreateDataFolder(const DataPaths& paths) {
    std::error_code error;
    fs::create_directories(paths.folder, error);
    return fs::is_directory(paths.folder, error);
}

StartedSettings StartSettings(const fs::path& path, const UserFolders& folders) {
    StartedSettings started;
    DeleteInterruptedReplacements(path);
    SettingsLoadResult result = LoadSettings(path, started.settings);
    if (result == SettingsLoadResult::complete) {
        started.settings.SettingsStatus = L"TRUE";
        return started;
    }
    if (result != SettingsLoadResult::unusable) {
        WriteDefaultSettingsFile(path, folders);
        started.created_default = true;
        result = LoadSettings(path, started.settings);
    }
    started.unusable = result == SettingsLoadResult::unusable;
    if (result != SettingsLoadResult::complete) started.settings = DefaultSettings(folders);
    return started;
}

void RestoreDefaultSettings(const fs::path& path, const UserFolders& folders, Settings& settings) {
    WriteDefaultSettingsFile(path, folders);
    const SettingsLoadResult result = LoadSettings(path, settings);
    if (result == SettingsLoadResult::complete || result == SettingsLoadResult::unusable) return;
    const std::wstring status = settings.SettingsStatus;
    settings = DefaultSettings(folders);
    settings.SettingsStatus = status;
}

bool StoreListedDisplaySize(const fs::path& path, Settings& settings, std::wstring_view ratio_text) {
    settings.IMG_SIZE = ratio_text;
    // Starts as a copy, so that a file that cannot be read is not overwritten with empty values.
    Settings fresh = settings;
    if (LoadSettings(path, fresh) == SettingsLoadResult::unusable) return false;
    fresh.IMG_SIZE = ratio_text;
    return SaveSettings(path, fresh);
}

bool StoreTypedDisplaySize(const fs::path& path, Settings& settings, std::wstring_view ratio_text) {
    settings.IMG_SIZE = ratio_text;
    return PutSettingValue(path, kImgSize.key, ratio_text);
}

std::wstring UsableFolder(std::wstring_view stored) {
    return stored.find(L'\n') == std::wstring_view::npos ? std::wstring(stored) : std::wstring();
}

bool StoreOpenFolder(const fs::path& path, Settings& settings, std::wstring_view folder) {
    return StoreFolder(path, settings, kPathOpen, folder);
}

bool StoreSaveFolder(const fs::path& path, Settings& settings, std::wstring_view folder) {
    return StoreFolder(path, settings, kPathSave, folder);
}

bool StoreCsvFolder(const fs::path& path, Settings& settings, std::wstring_view folder) {
    return StoreFolder(path, settings, kPathCsv, folder);
}

bool StoreMainPosition(const fs::path& path, Settings& settings, std::int32_t x, std::int32_t y) {
    settings.MAIN_POS_X = FormatWhole(x);
    settings.MAIN_POS_Y = FormatWhole(y);
    const bool x_written = PutSettingValue(path, kMainPosX.key, settings.MAIN_POS_X);
    const bool y_written = PutSettingValue(path, kMainPosY.key, settings.MAIN_POS_Y);
    return x_written && y_written;
}

}  // namespace pixora
