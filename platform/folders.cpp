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

}  // namespace pixora
