#include "platform/folders.h"

#include <windows.h>

#include <initguid.h>
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

namespace pixora {

namespace {

std::wstring KnownFolder(const KNOWNFOLDERID& id) {
    PWSTR text = nullptr;
    std::wstring folder;
    if (SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &text)) && text) folder = text;
    CoTaskMemFree(text);
    return folder;
}

}  // namespace

std::filesystem::path ApplicationDataFolder() {
    wchar_t folder[MAX_PATH] = {};
    if (!SHGetSpecialFolderPathW(nullptr, folder, CSIDL_APPDATA, TRUE)) return {};
    return folder;
}

std::wstring DocumentsFolder() {
    return KnownFolder(FOLDERID_Documents);
}
std::wstring PicturesFolder() {
    return KnownFolder(FOLDERID_Pictures);
}

std::wstring FullPath(const std::wstring& path) {
    const DWORD needed = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (needed == 0) return path;
    std::wstring full(needed, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), needed, full.data(), nullptr);
    if (length == 0 || length >= needed) return path;
    full.resize(length);
    return full;
}

}  // namespace pixora
