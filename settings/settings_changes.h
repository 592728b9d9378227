// What the windows do with the settings as a whole: start-up, defaults, and the single values they store.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "settings/settings.h"
#include "settings/settings_file.h"

namespace pixora {

/// Where the settings and the temporary copies live.
struct DataPaths {
    std::filesystem::path folder;         ///< "Zelka\Pixora" in the roaming application data folder
    std::filesystem::path settings_file;  ///< "Pixora.ini" in it
};
[[nodiscard]] DataPaths DataPathsIn(const std::filesystem::path& application_data);
/// Creates the data folder. @return false when it does not exist afterwards; the program then goes on
/// without.
bool CreateDataFolder(const DataPaths& paths);

struct StartedSettings {
    Settings settings;
    bool created_default = false;  ///< tell the user kDefaultFileCreated
    bool unusable = false;         ///< the fault handler was called; `settings` holds the defaults
};
/// Deletes what interrupted saves left in the data folder, then reads the settings file; when it is missing
/// or incomplete writes a default one and reads that. When not even that can be read, the settings are the
/// default ones in memory.
[[nodiscard]] StartedSettings StartSettings(const std::filesystem::path& path, const UserFolders& folders);

/// Writes the default file and reads it back into `settings`; when it cannot be read back, `settings` gets
/// the default values in memory.
void RestoreDefaultSettings(const std::filesystem::path& path, const UserFolders& folders,
                            Settings& settings);

/// Stores a ratio chosen from the size list: the file's other values are read afresh and written back with
/// it.
/// @return what SaveSettings said.
bool StoreListedDisplaySize(const std::filesystem::path& path, Settings& settings,
                            std::wstring_view ratio_text);
/// Stores a typed ratio: in the record, and in its own line of the file.
bool StoreTypedDisplaySize(const std::filesystem::path& path, Settings& settings,
                           std::wstring_view ratio_text);
/// A stored folder as a file dialog can start in it: `stored`, or nothing when that has several lines,
/// because of a damaged settings file the whole text may have been read.
[[nodiscard]] std::wstring UsableFolder(std::wstring_view stored);
/// Stores where the next open dialog starts. An empty folder is not stored, nor by the two below.
bool StoreOpenFolder(const std::filesystem::path& path, Settings& settings, std::wstring_view folder);
/// Stores where the next dialog for saving a region starts.
bool StoreSaveFolder(const std::filesystem::path& path, Settings& settings, std::wstring_view folder);
/// Stores where the next export of a CSV file starts.
bool StoreCsvFolder(const std::filesystem::path& path, Settings& settings, std::wstring_view folder);
/// Stores the main window's top-left corner in screen pixels.
bool StoreMainPosition(const std::filesystem::path& path, Settings& settings, std::int32_t x, std::int32_t y);

}  // namespace pixora
