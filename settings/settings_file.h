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

/// Called when the settings file cannot be used at all: a path over 259 characters, a value of 1,024
/// characters or more, or a text that would reach 16,384 characters. The file is untouched; the operation
/// that found it fails. It is called for the first such fault only, because the program ends after it.
using SettingsFaultHandler = std::function<void(const std::filesystem::path&)>;
void SetSettingsFaultHandler(SettingsFaultHandler handler);

/// Reads every key into the record.
[[nodiscard]] SettingsLoadResult LoadSettings(const std::filesystem::path& path, Settings& settings);
enum class SettingsSaveResult {
    complete,    ///< nothing to report; also when there is no file, or none that can be written
    incomplete,  ///< the line of a key is missing in the file
    unusable,    ///< the fault handler was called
};

/// Writes the sixteen stored keys, each with a rewrite of the whole file.
[[nodiscard]] SettingsSaveResult StoreSettings(const std::filesystem::path& path, const Settings& settings);
/// The same. @return true when all succeeded.
[[nodiscard]] bool SaveSettings(const std::filesystem::path& path, const Settings& settings);

/// Finds the first line that starts with `key` before the line ".END". Nothing is trimmed.
/// @param key    the search text with its equals sign, for example L"PATH_CSV=".
/// @param value  the rest of the line; of a file without ".END" and without the key its whole text, which
///               counts as success; empty on failure.
[[nodiscard]] bool GetSettingValue(const std::filesystem::path& path, std::wstring_view key,
                                   std::wstring& value);
/// Replaces the value of the first line that starts with `key`, whole file or not at all.
/// @return false when the key is not in the file. A file that is missing or cannot be written is no failure.
[[nodiscard]] bool PutSettingValue(const std::filesystem::path& path, std::wstring_view key,
                                   std::wstring_view value);

/// Replaces the file by the default one. @return true, even when it could not be written.
bool WriteDefaultSettingsFile(const std::filesystem::path& path, const UserFolders& folders);
/// Fills the first sixteen entries of `lines` with the default "KEY=value" lines, sorted. @return 16.
int BuildDefaultSettingLines(std::vector<std::wstring>& lines, const UserFolders& folders);
/// The text of the default file, a line feed after each line.
[[nodiscard]] std::wstring DefaultSettingsText(const UserFolders& folders);
/// Sorts the first `count` lines by their characters' codes; more than 1,024 are left as they are. Empty
/// lines are dropped and no longer counted; equal lines become one, and for each one removed an empty line
/// follows at the end, still counted.
void SortSettingLines(std::vector<std::wstring>& lines, int& count);

/// The record that the default file would give, for when no file can be written or read.
[[nodiscard]] Settings DefaultSettings(const UserFolders& folders);

}  // namespace pixora
