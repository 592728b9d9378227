#include "analysis/csv_export.h"

#include "analysis/csv.h"
#include "base/file.h"
#include "settings/settings_changes.h"
#include "settings/stored_keys.h"

namespace pixora {

std::wstring CsvStartFolder(const std::filesystem::path& settings_path, const Settings& settings) {
    std::wstring stored;
    if (!GetSettingValue(settings_path, kPathCsv.key, stored)) stored.clear();
    const std::wstring folder = UsableFolder(stored);
    return folder.empty() ? UsableFolder(settings.PATH_CSV) : folder;
}

bool SaveCsv(const std::filesystem::path& chosen, std::string_view bytes,
             const std::filesystem::path& settings_path, Settings& settings) {
    if (!WriteWholeFile(chosen, bytes)) return false;
    // The file is there; that its folder could not be stored is no failure of the export.
    StoreCsvFolder(settings_path, settings, CsvFolderOf(WideText(chosen)));
    return true;
}

Message CsvSavedMessage() {
    return {L": Information", L"CSV file has been saved.", L"", L""};
}

}  // namespace pixora
