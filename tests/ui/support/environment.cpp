#include "tests/ui/support/environment.h"

#include <windows.h>

#include <shlobj.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {

namespace fs = std::filesystem;

namespace {

std::wstring Variable(const wchar_t* name) {
    wchar_t value[MAX_PATH * 4] = L"";
    const DWORD length = GetEnvironmentVariableW(name, value, MAX_PATH * 4);
    return std::wstring(value, length);
}

fs::path TestsFolder() {
    wchar_t path[MAX_PATH * 4] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH * 4);
    return fs::path(path).parent_path();
}

fs::path KnownFolder(const KNOWNFOLDERID& id) {
    wchar_t* text = nullptr;
    if (SHGetKnownFolderPath(id, 0, nullptr, &text) != S_OK) throw UiError("a user's folder is missing");
    fs::path path = text;
    CoTaskMemFree(text);
    return path;
}

fs::path AsideFolder() {
    return DataFolder().parent_path() / L"Pixora, set aside by the tests";
}

}  // namespace

fs::path ProgramPath() {
    const std::wstring given = Variable(L"PIXORA_EXE");
    return given.empty() ? TestsFolder() / L"pixora.exe" : fs::path(given);
}

fs::path SamplesFolder() {
    if (const std::wstring given = Variable(L"PIXORA_SAMPLES"); !given.empty()) return given;
    for (fs::path folder = TestsFolder(); folder.has_relative_path(); folder = folder.parent_path())
        if (fs::is_directory(folder / L"samples")) return folder / L"samples";
    throw UiError("there is no folder of samples; say in PIXORA_SAMPLES where it is");
}

fs::path Sample(std::wstring_view name) {
    const fs::path path = SamplesFolder() / name;
    if (!fs::exists(path)) throw UiError("there is no sample " + Narrow(path.wstring()));
    return path;
}

fs::path ProbePath() {
    return TestsFolder() / L"pixora_ui_probe.dll";
}

fs::path DataFolder() {
    return KnownFolder(FOLDERID_RoamingAppData) / L"Zelka" / L"Pixora";
}
fs::path SettingsFile() {
    return DataFolder() / L"Pixora.ini";
}
std::wstring PicturesFolder() {
    return KnownFolder(FOLDERID_Pictures).wstring();
}
std::wstring DocumentsFolder() {
    return KnownFolder(FOLDERID_Documents).wstring();
}

UserDataAside::UserDataAside() {
    // A folder that an interrupted run left aside is the user's; what lies in its place came from the tests.
    if (fs::exists(DataFolder()) && !fs::exists(AsideFolder())) fs::rename(DataFolder(), AsideFolder());
}

UserDataAside::~UserDataAside() {
    std::error_code ignored;
    DeleteDataFolder();
    DeleteTree(ScratchFolder());
    if (fs::exists(AsideFolder(), ignored)) fs::rename(AsideFolder(), DataFolder(), ignored);
}

void DeleteDataFolder() {
    DeleteTree(DataFolder());
}

HeldFile::HeldFile(const fs::path& path)
    : handle_(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                          OPEN_EXISTING, 0, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE) throw std::runtime_error("the file to hold cannot be opened");
}
HeldFile::~HeldFile() {
    CloseHandle(handle_);
}

std::vector<std::wstring> DataFiles() {
    std::vector<std::wstring> names;
    if (!fs::is_directory(DataFolder())) return names;
    for (const fs::directory_entry& entry : fs::directory_iterator(DataFolder()))
        names.push_back(entry.path().filename().wstring());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::wstring> TemporaryCopies() {
    std::vector<std::wstring> names = DataFiles();
    std::erase(names, L"Pixora.ini");
    return names;
}

SettingValues TestSettings() {
    return {
        {L"AUTO_BIT", L"ON"},
        {L"BDR_COLOR", L"GREEN"},
        {L"BDR_TYPE", L"AREA"},
        {L"CAP_STYLE", L"SIMPLE"},
        {L"HIS_BINNING", L"ON"},
        {L"IMG_SIZE", L"1.00"},
        {L"LINE_COLOR", L"RED"},
        {L"LVL_CURSOR", L"ON"},
        {L"MAIN_POS", L"LAST"},
        {L"MAIN_POS_X", L"1200"},
        {L"MAIN_POS_Y", L"800"},
        {L"MARK_COLOR", L"WHITE"},
        {L"PATH_CSV", DocumentsFolder() + L"\\"},
        {L"PATH_OPEN", PicturesFolder() + L"\\"},
        {L"PATH_SAVE", PicturesFolder() + L"\\"},
        {L"VALID_BITS", L"16"},
    };
}

void WriteSettings(const SettingValues& changes) {
    SettingValues values = TestSettings();
    for (const auto& [key, value] : changes) values[key] = value;
    std::string text = "\xEF\xBB\xBF.VER=Pixora  (Ver. 2.00)\r\n.BEGIN\r\n";
    for (const auto& [key, value] : values) text += Narrow(key + L'=' + value) + "\r\n";
    fs::create_directories(DataFolder());
    WriteBytes(SettingsFile(), text + ".END\r\n");
}

std::string DefaultSettingsBytes() {
    return Narrow(
        L"\xFEFF.VER=Pixora  (Ver. 2.00)\r\n.BEGIN\r\nAUTO_BIT=ON\r\nBDR_COLOR=GREEN\r\nBDR_TYPE=AREA\r\n"
        L"CAP_STYLE=SIMPLE\r\nHIS_BINNING=ON\r\nIMG_SIZE=0.500\r\nLINE_COLOR=RED\r\nLVL_CURSOR=ON\r\n"
        L"MAIN_POS=LAST\r\nMAIN_POS_X=10\r\nMAIN_POS_Y=10\r\nMARK_COLOR=WHITE\r\nPATH_CSV=" +
        DocumentsFolder() + L"\\\r\nPATH_OPEN=" + PicturesFolder() + L"\\\r\nPATH_SAVE=" + PicturesFolder() +
        L"\\\r\nVALID_BITS=16\r\n.END\r\n");
}

std::wstring StoredSetting(std::wstring_view key) {
    const std::string text = ReadBytes(SettingsFile());
    const std::string start = Narrow(L'\n' + std::wstring(key) + L'=');
    const std::size_t at = text.find(start);
    if (at == std::string::npos) return L"";
    const std::size_t first = at + start.size();
    const std::string value = text.substr(first, text.find('\r', first) - first);
    return fs::u8path(value).wstring();
}

fs::path ScratchFolder() {
    return fs::temp_directory_path() / L"pixora-ui-tests";
}

fs::path FreshScratchFolder() {
    DeleteTree(ScratchFolder());
    fs::create_directories(ScratchFolder());
    return ScratchFolder();
}

fs::path ScratchFile(std::wstring_view name, std::string_view bytes) {
    const fs::path path = ScratchFolder() / name;
    fs::create_directories(path.parent_path());
    WriteBytes(path, bytes);
    return path;
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteBytes(const fs::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw UiError("could not write " + Narrow(path.wstring()));
}

bool IsReadOnly(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

void SetReadOnly(const fs::path& path, bool read_only) {
    SetFileAttributesW(path.c_str(), read_only ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL);
}

void DeleteTree(const fs::path& folder) {
    WatchStep("deleting a folder");
    std::error_code error;
    if (!fs::exists(folder, error)) return;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, error))
        if (entry.is_regular_file(error)) SetReadOnly(entry.path(), false);
    fs::remove_all(folder, error);
}

}  // namespace pixora::ui
