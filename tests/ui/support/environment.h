// Where the tests find the program, its samples and its user's files, and how they leave them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pixora::ui {

/// The program under test: PIXORA_EXE, else the one beside the tests.
[[nodiscard]] std::filesystem::path ProgramPath();
/// The sample images: PIXORA_SAMPLES, else the nearest folder "samples" above the tests.
[[nodiscard]] std::filesystem::path SamplesFolder();
[[nodiscard]] std::filesystem::path Sample(std::wstring_view name);
/// The DLL that looks at the program from inside.
[[nodiscard]] std::filesystem::path ProbePath();

/// The folder of the settings file and of the temporary copies.
[[nodiscard]] std::filesystem::path DataFolder();
[[nodiscard]] std::filesystem::path SettingsFile();
[[nodiscard]] std::wstring PicturesFolder();
[[nodiscard]] std::wstring DocumentsFolder();

/// Sets the user's own data folder aside for as long as it lives, and puts it back.
class UserDataAside {
public:
    UserDataAside();
    ~UserDataAside();
    UserDataAside(const UserDataAside&) = delete;
    UserDataAside& operator=(const UserDataAside&) = delete;
};

/// Deletes the data folder with all that is in it, write-protected files too.
void DeleteDataFolder();
/// The names of the files in the data folder, sorted.
[[nodiscard]] std::vector<std::wstring> DataFiles();
/// The same without the settings file: the temporary copies.
[[nodiscard]] std::vector<std::wstring> TemporaryCopies();

using SettingValues = std::map<std::wstring, std::wstring>;
/// What the tests start the program with: the defaults, but the main window where it covers no viewer.
[[nodiscard]] SettingValues TestSettings();
/// Writes a complete settings file: TestSettings() with `changes`.
void WriteSettings(const SettingValues& changes);
/// What a first start writes, byte for byte.
[[nodiscard]] std::string DefaultSettingsBytes();
/// The value of a key as the file has it now; empty when there is none.
[[nodiscard]] std::wstring StoredSetting(std::wstring_view key);

/// Holds a file open so that nobody can delete it.
class HeldFile {
public:
    explicit HeldFile(const std::filesystem::path& path);
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    void* handle_;
};

/// An empty folder for the files of one test.
[[nodiscard]] std::filesystem::path FreshScratchFolder();
[[nodiscard]] std::filesystem::path ScratchFolder();
/// Writes a file into the scratch folder and returns its path.
std::filesystem::path ScratchFile(std::wstring_view name, std::string_view bytes);

[[nodiscard]] std::string ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, std::string_view bytes);
[[nodiscard]] bool IsReadOnly(const std::filesystem::path& path);
void SetReadOnly(const std::filesystem::path& path, bool read_only);
/// Deletes a folder with all that is in it, write-protected files too.
void DeleteTree(const std::filesystem::path& folder);

}  // namespace pixora::ui
