#include "viewer/windows/copy_removal.h"

namespace pixora {

std::optional<DWORD> RemoveCopy(const std::filesystem::path& copy) {
    const DWORD attributes = GetFileAttributesW(copy.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (DeleteFileW(copy.c_str())) return std::nullopt;
    return GetLastError();
}

}  // namespace pixora
