// Exporting a CSV file: where it is proposed to go, and what happens around the writing.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "dialogs/message.h"
#include "settings/settings.h"

namespace pixora {

/// The file types of the save dialog.
inline constexpr std::wstring_view kCsvFilter = L"All Files(*.*)|*.*|CSV Files(*.csv)|*.csv||";
inline constexpr std::wstring_view kCsvExtension = L"csv";

/// The folder that an export starts in: PATH_CSV as the settings file has it now; where that cannot be read,
/// as the record has it.
[[nodiscard]] std::wstring CsvStartFolder(const std::filesystem::path& settings_path,
                                          const Settings& settings);

/// Writes the file, whole or not at all, and stores its folder as PATH_CSV in the record and in the settings
/// file.
/// @return false when the file could not be written; nothing is changed then.
[[nodiscard]] bool SaveCsv(const std::filesystem::path& chosen, std::string_view bytes,
                           const std::filesystem::path& settings_path, Settings& settings);

/// What the user is told of an export that succeeded; one that failed is not reported.
[[nodiscard]] Message CsvSavedMessage();

}  // namespace pixora
