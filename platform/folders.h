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

/// `path` against the current folder; unchanged when the system cannot tell.
[[nodiscard]] std::wstring FullPath(const std::wstring& path);

}  // namespace pixora
