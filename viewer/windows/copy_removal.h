// Deleting a viewer's temporary files.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace pixora {

/// Deletes the file, write-protected or not. A file that does not exist, or a folder of that name, is left
/// alone.
/// @return the system's error when the file is there and could not be deleted.
[[nodiscard]] std::optional<DWORD> RemoveCopy(const std::filesystem::path& copy);

}  // namespace pixora
