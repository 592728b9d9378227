#include "settings/settings_file.h"

#include <doctest/doctest.h>

#include <string>

#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

namespace fs = std::filesystem;

const std::string kComplete =
    ".VER=Pixora  (Ver. 2.00)\n.BEGIN\nAUTO_BIT=OFF\nBDR_COLOR=RED\nBDR_TYPE=LINE\nCAP_STYLE=FULL\n"
    "HIS_BINNING=OFF\nIMG_SIZE=1.50\nLINE_COLOR=GRAY\nLVL_CURSOR=OFF\nMAIN_POS=TR\nMAIN_POS_X=-5\nMAIN_POS_Y="
    "7\n"
    "MARK_COLOR=GREEN\nPATH_CSV=C:\\csv\\\nPATH_OPEN=C:\\open\nPATH_SAVE=C:\\save\\\nVALID_BITS=12\n.END\n";

/// Remembers the paths that the fault handler is called with.
struct Faults {
    std::vector<fs::path> paths;
    Faults() { Watch(); }
    ~Faults() { SetSettingsFaultHandler(nullptr); }
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;
    void Watch() {
        SetSettingsFaultHandler([this](const fs::path& path) { paths.push_back(path); });
    }
};

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
}

std::wstring ValueOf(const fs::path& path, std::wstring_view key) {
    std::wstring value = L"untouched";
    CHECK(GetSettingValue(path, key, value));
    return value;
}

void CheckNoValue(const fs::path& path, std::wstring_view key) {
    std::wstring value = L"untouched";
    CHECK_FALSE(GetSettingValue(path, key, value));
    CHECK(value.empty());
}

/// A file of exactly `length` characters in memory: one IMG_SIZE line, filler lines and ".END".
std::string FileOfLength(std::size_t length) {
    std::string text = "IMG_SIZE=1\n";
    while (text.size() + 1000 < length) text += std::string(499, '-') + "\n";
    return text + std::string(length - text.size() - 6, '-') + "\n.END\n";
}

}  // namespace

TEST_CASE("a complete settings file fills the record and leaves the status alone") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", kComplete);
    Settings settings;
    settings.SettingsStatus = L"kept";
    CHECK(LoadSettings(folder / "Pixora.ini", settings) == SettingsLoadResult::complete);
    CHECK(settings.SettingsStatus == L"kept");
    CHECK(settings.MAIN_POS == L"TR");
    CHECK(settings.MAIN_POS_X == L"-5");
    CHECK(settings.MAIN_POS_Y == L"7");
    CHECK(settings.IMG_SIZE == L"1.50");
    CHECK(settings.PATH_CSV == L"C:\\csv\\");
    CHECK(settings.PATH_OPEN == L"C:\\open");
    CHECK(settings.PATH_SAVE == L"C:\\save\\");
    CHECK(settings.CAP_STYLE == L"FULL");
    CHECK(settings.VALID_BITS == L"12");
    CHECK(settings.BDR_COLOR == L"RED");
    CHECK(settings.BDR_TYPE == L"LINE");
    CHECK(settings.LVL_CURSOR == L"OFF");
    CHECK(settings.LINE_COLOR == L"GRAY");
    CHECK(settings.MARK_COLOR == L"GREEN");
    CHECK(settings.HIS_BINNING == L"OFF");
    CHECK(settings.AUTO_BIT == L"OFF");
}

TEST_CASE("a missing settings file or a folder in its place leaves the record alone") {
    const ScratchFolder folder;
    Settings settings;
    settings.IMG_SIZE = L"0.70";
    const Settings before = settings;
    CHECK(LoadSettings(folder / "Pixora.ini", settings) == SettingsLoadResult::no_file);
    CHECK(settings == before);
    CHECK(LoadSettings(folder.Path(), settings) == SettingsLoadResult::no_file);
    CHECK(settings == before);
    CHECK(LoadSettings(fs::path(), settings) == SettingsLoadResult::no_file);
    CHECK(settings == before);
}

TEST_CASE("a missing key and an empty one both restore the whole record") {
    const ScratchFolder folder;
    Settings before;
    before.SettingsStatus = L"TRUE";
    before.IMG_SIZE = L"0.70";
    for (const char* text : {"AUTO_BIT=\n", ""}) {
        folder.Write("Pixora.ini", Replaced(kComplete, "AUTO_BIT=OFF\n", text));
        Settings settings = before;
        CHECK(LoadSettings(folder / "Pixora.ini", settings) == SettingsLoadResult::incomplete);
        CHECK(settings == before);
    }
}

TEST_CASE("every one of the sixteen keys is needed") {
    const ScratchFolder folder;
    for (const char* key : {"AUTO_BIT", "BDR_COLOR", "BDR_TYPE", "CAP_STYLE", "HIS_BINNING", "IMG_SIZE",
                            "LINE_COLOR", "LVL_CURSOR", "MAIN_POS", "MAIN_POS_X", "MAIN_POS_Y", "MARK_COLOR",
                            "PATH_CSV", "PATH_OPEN", "PATH_SAVE", "VALID_BITS"}) {
        CAPTURE(key);
        folder.Write("Pixora.ini", Replaced(kComplete, std::string("\n") + key + "=", "\nOTHER="));
        Settings settings;
        CHECK(LoadSettings(folder / "Pixora.ini", settings) == SettingsLoadResult::incomplete);
        CHECK(settings == Settings());
    }
}

TEST_CASE("a copied record shares no text with its source") {
    Settings source;
    source.IMG_SIZE = L"0.50";
    Settings copy = source;
    copy.IMG_SIZE[0] = L'9';
    CHECK(source.IMG_SIZE == L"0.50");
}

TEST_CASE("looking up MAIN_POS never finds MAIN_POS_X") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "MAIN_POS_X=5\nMAIN_POS=TR\n.END\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"MAIN_POS=") == L"TR");
    CHECK(ValueOf(folder / "Pixora.ini", L"MAIN_POS_X=") == L"5");
}

TEST_CASE("blanks belong to a value") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "IMG_SIZE= 0.5\nCAP_STYLE=A \t\nIMG SIZE =2\n.END\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"IMG_SIZE=") == L" 0.5");
    CHECK(ValueOf(folder / "Pixora.ini", L"CAP_STYLE=") == L"A \t");
}

TEST_CASE("the first of two equal keys counts, for reading and for writing") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\nA=2\n.END\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"A=") == L"1");
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A=", L"3"));
    CHECK(folder.Read("Pixora.ini") ==
          "\xEF\xBB\xBF"
          "A=3\r\nA=2\r\n.END\r\n");
}

TEST_CASE("a key after .END is not found, one before .BEGIN is") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\n.BEGIN\n.END\nB=2\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"A=") == L"1");
    CheckNoValue(folder / "Pixora.ini", L"B=");
}

TEST_CASE("an empty value is found but counts as missing when the record is loaded") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=\n.END\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"A=").empty());
}

TEST_CASE("an empty key reads the first line") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\n.END\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"") == L"A=1");
}

TEST_CASE("without .END a missing key reads as the whole text") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\r\nB=2\r\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"A=") == L"1");
    CHECK(ValueOf(folder / "Pixora.ini", L"C=") == L"A=1\nB=2\n");
    // The limit for values is one for the lines of keys only.
    folder.Write("Pixora.ini", std::string(5000, 'x'));
    CHECK(ValueOf(folder / "Pixora.ini", L"C=") == std::wstring(5000, L'x'));
}

TEST_CASE("without .END a missing key cannot be written") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\n");
    CHECK_FALSE(PutSettingValue(folder / "Pixora.ini", L"C=", L"3"));
    CHECK(folder.Read("Pixora.ini") == "A=1\n");
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A=", L"3"));
    CHECK(folder.Read("Pixora.ini") ==
          "\xEF\xBB\xBF"
          "A=3\r\n");
}

TEST_CASE("reading without a file gives no value") {
    const ScratchFolder folder;
    CheckNoValue(folder / "Pixora.ini", L"A=");
    folder.Write("Pixora.ini", "A");
    CheckNoValue(folder / "Pixora.ini", L"A");
}

TEST_CASE("writing without a file succeeds and creates nothing") {
    const ScratchFolder folder;
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A=", L"1"));
    CHECK(SaveSettings(folder / "Pixora.ini", Settings()));
    CHECK(folder.Names().empty());
    folder.Write("Pixora.ini", "A");
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A", L"1"));
    CHECK(folder.Read("Pixora.ini") == "A");
}

TEST_CASE("writing a key that the file does not have fails and leaves the file alone") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\n.END\nB=2\n");
    CHECK_FALSE(PutSettingValue(folder / "Pixora.ini", L"B=", L"3"));
    CHECK(folder.Read("Pixora.ini") == "A=1\n.END\nB=2\n");
}

TEST_CASE("writing a value keeps the other lines and their order") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "Z=1\n\nA=long old value\n; note\n.END\nafter\n");
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A=", L"\u65E5\u672C"));
    CHECK(folder.Read("Pixora.ini") ==
          "\xEF\xBB\xBF"
          "Z=1\r\n\r\nA=\xE6\x97\xA5\xE6\x9C\xAC\r\n; note\r\n.END\r\nafter\r\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"A=") == L"\u65E5\u672C");
    CHECK(folder.Names() == "Pixora.ini");
}

TEST_CASE("a settings file that cannot be written is not reported and stays as it was") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", "A=1\n.END\n");
    fs::permissions(folder / "Pixora.ini", fs::perms::owner_write, fs::perm_options::remove);
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A=", L"2"));
    CHECK(folder.Read("Pixora.ini") == "A=1\n.END\n");
    CHECK(folder.Names() == "Pixora.ini");
}

TEST_CASE("saving writes the sixteen values and not the status") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", kComplete);
    Settings saved;
    CHECK(LoadSettings(folder / "Pixora.ini", saved) == SettingsLoadResult::complete);
    saved.SettingsStatus = L"TRUE";
    for (auto field :
         {&Settings::MAIN_POS, &Settings::MAIN_POS_X, &Settings::MAIN_POS_Y, &Settings::IMG_SIZE,
          &Settings::PATH_CSV, &Settings::PATH_OPEN, &Settings::PATH_SAVE, &Settings::CAP_STYLE,
          &Settings::VALID_BITS, &Settings::BDR_COLOR, &Settings::BDR_TYPE, &Settings::LVL_CURSOR,
          &Settings::LINE_COLOR, &Settings::MARK_COLOR, &Settings::HIS_BINNING, &Settings::AUTO_BIT})
        (saved.*field) += L" changed";
    CHECK(SaveSettings(folder / "Pixora.ini", saved));
    Settings read;
    CHECK(LoadSettings(folder / "Pixora.ini", read) == SettingsLoadResult::complete);
    CHECK(read.SettingsStatus.empty());
    read.SettingsStatus = L"TRUE";
    CHECK(read == saved);
    CHECK(folder.Read("Pixora.ini").find("\r\nMAIN_POS=TR changed\r\nMAIN_POS_X=-5 changed\r\n") !=
          std::string::npos);
}

TEST_CASE("saving into a file without one key fails and still writes the other keys") {
    const ScratchFolder folder;
    folder.Write("Pixora.ini", Replaced(kComplete, "HIS_BINNING=OFF\n", ""));
    Settings settings = DefaultSettings({L"D:", L"P:"});
    settings.CAP_STYLE = L"NEW";
    CHECK_FALSE(SaveSettings(folder / "Pixora.ini", settings));
    CHECK(ValueOf(folder / "Pixora.ini", L"CAP_STYLE=") == L"NEW");
    CHECK(ValueOf(folder / "Pixora.ini", L"PATH_SAVE=") == L"P:\\");
    CheckNoValue(folder / "Pixora.ini", L"HIS_BINNING=");
}

TEST_CASE("a file of 16,383 characters works, one more makes reading and writing fail without harm") {
    const ScratchFolder folder;
    const Faults faults;
    // The search passes only what is before the limit, so the key stands first.
    folder.Write("Pixora.ini", FileOfLength(16'383));
    CHECK(ValueOf(folder / "Pixora.ini", L"IMG_SIZE=") == L"1");
    CHECK(PutSettingValue(folder / "Pixora.ini", L"IMG_SIZE=", L"2"));
    CHECK(ValueOf(folder / "Pixora.ini", L"IMG_SIZE=") == L"2");
    CheckNoValue(folder / "Pixora.ini", L"OTHER=");

    folder.Write("Pixora.ini", FileOfLength(16'384));
    CheckNoValue(folder / "Pixora.ini", L"IMG_SIZE=");
    CHECK_FALSE(PutSettingValue(folder / "Pixora.ini", L"IMG_SIZE=", L"2"));
    CHECK(folder.Read("Pixora.ini") == FileOfLength(16'384));
    CHECK(faults.paths.empty());
}

TEST_CASE("a search that the lines overrun gives no value and writes nothing") {
    const ScratchFolder folder;
    const std::string text = std::string(16'382, 'x') + "\n";  // 16,383 characters
    folder.Write("Pixora.ini", text);
    CheckNoValue(folder / "Pixora.ini", L"A=");
    CHECK_FALSE(PutSettingValue(folder / "Pixora.ini", L"A=", L"1"));
    CHECK(folder.Read("Pixora.ini") == text);
}

TEST_CASE("a file that would reach 16,384 characters is a fault and stays as it was") {
    const ScratchFolder folder;
    const Faults faults;
    const std::string text = FileOfLength(16'380);
    folder.Write("Pixora.ini", text);
    CHECK_FALSE(PutSettingValue(folder / "Pixora.ini", L"IMG_SIZE=", L"12345"));
    CHECK(faults.paths == std::vector{folder / "Pixora.ini"});
    CHECK(folder.Read("Pixora.ini") == text);
    CHECK(PutSettingValue(folder / "Pixora.ini", L"IMG_SIZE=", L"1234"));
    CHECK(folder.Read("Pixora.ini").starts_with("\xEF\xBB\xBFIMG_SIZE=1234\r\n"));
}

TEST_CASE("a value of 1,023 characters is read, one more is a fault") {
    const ScratchFolder folder;
    Faults faults;
    folder.Write("Pixora.ini", "A=" + std::string(1'023, 'v') + "\n.END\n");
    CHECK(ValueOf(folder / "Pixora.ini", L"A=") == std::wstring(1'023, L'v'));
    CHECK(faults.paths.empty());
    folder.Write("Pixora.ini", "A=" + std::string(1'024, 'v') + "\n.END\n");
    CheckNoValue(folder / "Pixora.ini", L"A=");
    CHECK(faults.paths == std::vector{folder / "Pixora.ini"});
}

TEST_CASE("a value of 1,024 characters is not written, because it could not be read again") {
    const ScratchFolder folder;
    const Faults faults;
    folder.Write("Pixora.ini", "A=1\n.END\n");
    CHECK(PutSettingValue(folder / "Pixora.ini", L"A=", std::wstring(1'023, L'v')));
    CHECK(faults.paths.empty());
    CHECK_FALSE(PutSettingValue(folder / "Pixora.ini", L"A=", std::wstring(1'024, L'v')));
    CHECK(faults.paths.size() == 1);
    CHECK(ValueOf(folder / "Pixora.ini", L"A=") == std::wstring(1'023, L'v'));
}

TEST_CASE("a path of 259 characters works, a longer one is a fault in every operation") {
    Faults faults;
    Settings settings;
    std::wstring value;
    const UserFolders folders{L"D:", L"P:"};
    const fs::path longest(std::string(259, 'p'));
    CHECK(LoadSettings(longest, settings) == SettingsLoadResult::no_file);
    CHECK(SaveSettings(longest, settings));
    CHECK(faults.paths.empty());

    const fs::path path(std::string(260, 'p'));
    CHECK(LoadSettings(path, settings) == SettingsLoadResult::unusable);
    CHECK(settings == Settings());
    CHECK(faults.paths == std::vector{path});
    faults.Watch();
    CHECK_FALSE(SaveSettings(path, settings));
    faults.Watch();
    CHECK_FALSE(GetSettingValue(path, L"A=", value));
    faults.Watch();
    CHECK_FALSE(PutSettingValue(path, L"A=", L"1"));
    faults.Watch();
    CHECK_FALSE(WriteDefaultSettingsFile(path, folders));
    CHECK(faults.paths.size() == 5);
}

TEST_CASE("a fault while loading restores the record and leaves the file alone") {
    const ScratchFolder folder;
    const Faults faults;
    const std::string text = Replaced(kComplete, "MARK_COLOR=GREEN", "MARK_COLOR=" + std::string(1'024, 'v'));
    folder.Write("Pixora.ini", text);
    Settings settings;
    settings.IMG_SIZE = L"0.70";
    const Settings before = settings;
    CHECK(LoadSettings(folder / "Pixora.ini", settings) == SettingsLoadResult::unusable);
    CHECK(settings == before);
    CHECK(folder.Read("Pixora.ini") == text);
    CHECK(faults.paths.size() == 1);
}

TEST_CASE("only the first fault is handled, whatever the handler itself does") {
    const fs::path path(std::string(260, 'p'));
    int calls = 0;
    SetSettingsFaultHandler([&](const fs::path& broken) {
        ++calls;
        std::wstring value;
        CHECK_FALSE(GetSettingValue(broken, L"A=", value));
    });
    CHECK_FALSE(SaveSettings(path, Settings()));
    CHECK_FALSE(SaveSettings(path, Settings()));
    CHECK(calls == 1);
    SetSettingsFaultHandler(nullptr);
}
