// The settings file: one UTF-8 text of "KEY=value" lines, read and rewritten as a whole for each key.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings.h"

namespace pixora {

enum class SettingsLoadResult {
    complete = 0,    ///< every key was found with a value
    no_file = 1,     ///< the path is missing or names a folder; the record is untouched
    incomplete = 2,  ///< a key is missing or empty; the record is as it was before the call
    unusable = 3,    ///< the fault handler was called; the record is as it was before the call
};

/// The user's folders that the default settings point to; an unknown one is empty.
struct UserFolders {
    std::wstring documents, pictures;
};

/// Called when the settings file cannot be used at all: a path over 259 characters, a value of 1,024 characters
/// or more, or a text that would reach 16,384 characters. The file is untouched; the operation that found it
/// fails. It is called for the first such fault only, because the program ends after it.
using SettingsFaultHandler = std::function<void(const std::filesystem::path&)>;
void SetSettingsFaultHandler(SettingsFaultHandler handler);

[[nodiscard]] SettingsLoadResult LoadSettings(const std::filesystem::path& path, Settings& settings);
[[nodiscard]] bool SaveSettings(const std::filesystem::path& path, const Settings& settings);
/// @param key  the search text with its equals sign, for example L"PATH_CSV=".
[[nodiscard]] bool GetSettingValue(const std::filesystem::path& path, std::wstring_view key, std::wstring& value);
[[nodiscard]] bool PutSettingValue(const std::filesystem::path& path, std::wstring_view key,
                                   std::wstring_view value);
bool WriteDefaultSettingsFile(const std::filesystem::path& path, const UserFolders& folders);
int BuildDefaultSettingLines(std::vector<std::wstring>& lines, const UserFolders& folders);
void SortSettingLines(std::vector<std::wstring>& lines, int& count);

/// The record that the default file would give, for when no file can be written or read.
[[nodiscard]] Settings DefaultSettings(const UserFolders& folders);

}  // namespace pixora
