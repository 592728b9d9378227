#include "settings/settings_file.h"

#include <system_error>
#include <utility>

#include "base/file.h"
#include "settings/settings_text.h"
#include "settings/stored_keys.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

enum class Outcome { done, failed, unusable };

SettingsFaultHandler& FaultHandler() {
    static SettingsFaultHandler handler;
    return handler;
}

// Taken out before it is called: it shows a box, and what runs meanwhile may meet the same fault.
Outcome Fault(const fs::path& path) {
    if (const SettingsFaultHandler handler = std::exchange(FaultHandler(), nullptr)) handler(path);
    return Outcome::unusable;
}

bool IsPathTooLong(const fs::path& path) {
    return WideText(path).size() > kSettingsPathLimit;
}

Outcome Get(const fs::path& path, std::wstring_view key, std::wstring& value) {
    value.clear();
    if (IsPathTooLong(path)) return Fault(path);
    std::optional<std::wstring> text = ReadSettingsText(path);
    if (!text || text->size() > SETTINGS_FILE_TEXT_LIMIT) return Outcome::failed;
    const FoundKey place = FindSetting(*text, key);
    if (place.result == KeySearch::end_of_text) {
        // Deliberate: of a damaged file without ".END" every missing key has the whole text as its value.
        value = *std::move(text);
        return Outcome::done;
    }
    if (place.result != KeySearch::found) return Outcome::failed;
    if (place.end - place.value >= kSettingValueLimit) return Fault(path);
    value = text->substr(place.value, place.end - place.value);
    return Outcome::done;
}

Outcome Put(const fs::path& path, std::wstring_view key, std::wstring_view value) {
    if (IsPathTooLong(path)) return Fault(path);
    const std::optional<std::wstring> text = ReadSettingsText(path);
    if (!text)
        return Outcome::done;  // Deliberate: without a file there is nothing to save into, and no failure
    if (text->size() > SETTINGS_FILE_TEXT_LIMIT) return Outcome::failed;
    const FoundKey place = FindSetting(*text, key);
    if (place.result != KeySearch::found) return Outcome::failed;
    const std::wstring result = ReplaceSetting(*text, place, value);
    // A longer value could be written but never read again.
    if (value.size() >= kSettingValueLimit || result.size() > SETTINGS_FILE_TEXT_LIMIT) return Fault(path);
    WriteSettingsText(path, result);  // Deliberate: a file that cannot be written is not reported
    return Outcome::done;
}

bool NamesFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_directory(status);
}

}  // namespace

void SetSettingsFaultHandler(SettingsFaultHandler handler) {
    FaultHandler() = std::move(handler);
}

SettingsLoadResult LoadSettings(const fs::path& path, Settings& settings) {
    const Settings before = settings;
    if (!IsPathTooLong(path) && !NamesFile(path)) return SettingsLoadResult::no_file;
    int failures = 0;
    for (const auto& [key, field] : kLoadOrder) {
        const Outcome outcome = Get(path, key, settings.*field);
        if (outcome == Outcome::unusable) {
            settings = before;
            return SettingsLoadResult::unusable;
        }
        if (outcome == Outcome::failed || (settings.*field).empty()) ++failures;
    }
    if (failures == 0) return SettingsLoadResult::complete;
    settings = before;
    return SettingsLoadResult::incomplete;
}

SettingsSaveResult StoreSettings(const fs::path& path, const Settings& settings) {
    SettingsSaveResult result = SettingsSaveResult::complete;
    for (const auto& [key, field] : kSaveOrder) {
        const Outcome outcome = Put(path, key, settings.*field);
        if (outcome == Outcome::unusable) return SettingsSaveResult::unusable;
        if (outcome == Outcome::failed) result = SettingsSaveResult::incomplete;
    }
    return result;
}

bool SaveSettings(const fs::path& path, const Settings& settings) {
    return StoreSettings(path, settings) == SettingsSaveResult::complete;
}

bool GetSettingValue(const fs::path& path, std::wstring_view key, std::wstring& value) {
    return Get(path, key, value) == Outcome::done;
}

bool PutSettingValue(const fs::path& path, std::wstring_view key, std::wstring_view value) {
    return Put(path, key, value) == Outcome::done;
}

bool WriteDefaultSettingsFile(const fs::path& path, const UserFolders& folders) {
    if (IsPathTooLong(path)) return Fault(path) == Outcome::done;
    // The old file goes only when the new one stands complete.
    WriteSettingsText(path, DefaultSettingsText(folders));
    return true;  // Deliberate: also when nothing could be written
}

}  // namespace pixora
