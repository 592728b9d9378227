// The user's folders.
#pragma once

#include <filesystem>
#include <string>

namespace pixora {

/// The roaming application-data folder; empty when the system does not tell.
[[nodiscard]] std::filesystem::path ApplicationDataFolder();
/// The Documents and Pictures folders, without a trailing backslash; empty when the system does not tell.
[[nodiscard]] std::wstring DocumentsFolder();
[[nodiscard]] std::wstring PicturesFolder();

}  // namespace pixora
