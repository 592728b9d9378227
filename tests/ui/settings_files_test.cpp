// Settings files and data folders that are damaged, missing or write-protected.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

namespace fs = std::filesystem;

constexpr wchar_t kDefaultsNotice[] = L"Created a default initial file.";

fs::path MakePicture() {
    return ScratchFile(L"small.bmp", BmpBytes(Chart(60, 40), 24));
}

/// Starts with the data folder as it is and presses OK in the notice that it leads to.
Start WithDefaultsNotice() {
    return {.keep_data_folder = true,
            .meanwhile = [](const Process& process) { PressOk(process.WaitForPlainBox(kDefaultsNotice)); }};
}

void WriteFile(const std::string& bytes) {
    DeleteDataFolder();
    fs::create_directories(DataFolder());
    WriteBytes(SettingsFile(), bytes);
}

/// The bytes of a complete settings file.
std::string CompleteFile(const SettingValues& changes = {}) {
    DeleteDataFolder();
    WriteSettings(changes);
    return ReadBytes(SettingsFile());
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    REQUIRE(at != std::string::npos);
    return text.replace(at, from.size(), to);
}

void ChooseSizeByKey(const Program& program, WORD key) {
    const Window edit = program.Item(kSizeBox).Item(1001);
    Click(edit);
    WaitForKeyboard(edit);
    PressKey(key);
}

/// When the settings file was written last; finer than the standard library tells.
ULONGLONG WrittenAt() {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(SettingsFile().c_str(), GetFileExInfoStandard, &data)) return 0;
    const FILETIME time = data.ftLastWriteTime;
    return ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart;
}

/// Presses a button that stores all settings and ends the program by force a little after it has begun to
/// store: the more often the folder is looked at meanwhile, the later.
void KillWhileStoring(const Program& program, const Window& button, int looks) {
    const ULONGLONG before = WrittenAt();
    button.Post(BM_CLICK);
    WaitFor("the first replacement of the file",
            [&] { return DataFiles().size() > 1 || WrittenAt() != before; });
    for (int i = 0; i < looks; ++i) static_cast<void>(DataFiles());
    constexpr UINT kKilled = 99;
    SetWatch(nullptr);
    REQUIRE(TerminateProcess(program.Running().Handle(), kKilled));
    CHECK(program.Running().WaitForEnd() == kKilled);
}

const ErrorTexts kOpenFailed{L"Pixora  : Error   ", L"File: small.bmp", L"Failed to Open Image File", L""};

}  // namespace

TEST_CASE("settings files that cannot be read or lack a value are replaced by the defaults") {
    const std::string complete = CompleteFile();
    const std::string damaged[] = {
        "",
        Replaced(complete, "BDR_TYPE=AREA\r\n", ""),           // a line is missing
        Replaced(complete, "MARK_COLOR=", "MARK_COLOUR="),     // a key is misspelt
        Replaced(complete, ".BEGIN", ".END"),                  // all keys stand behind the end
        Replaced(complete, ".END", std::string(16'400, 'x')),  // longer than any settings file
    };
    for (const std::string& bytes : damaged) {
        CAPTURE(bytes.substr(0, 60));
        WriteFile(bytes);
        Program program(WithDefaultsNotice());
        CHECK(ReadBytes(SettingsFile()) == DefaultSettingsBytes());
        CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
        CHECK(program.Item(kSizeBox).Text() == L"      50%");
        program.Exit();
    }
}

TEST_CASE("a settings file with odd but complete lines is taken as it is") {
    // Line ends of another system, a foreign line, a second value that does not count, no end.
    std::string odd = CompleteFile({{L"IMG_SIZE", L"2.00"}});
    std::erase(odd, '\r');
    odd = Replaced(odd, ".BEGIN\n", ".BEGIN\nNOTE=mine\n");
    odd = Replaced(odd, ".END\n", "IMG_SIZE=5.00\n");
    WriteFile(odd);
    Program program({.keep_data_folder = true});
    CHECK(ReadBytes(SettingsFile()) == odd);
    CHECK(program.Item(kSizeBox).Text() == L"     200%");
    const RECT client = program.Open(MakePicture()).Client();
    CHECK(client.right - client.left == 120);
    program.Exit();
    const std::string after = ReadBytes(SettingsFile());
    CHECK(after.find("NOTE=mine") != std::string::npos);
    CHECK(after.find("IMG_SIZE=5.00") != std::string::npos);
}

TEST_CASE("a settings file of something else without an end counts as complete, and the program works") {
    WriteFile("\xFF\xFE what is this?\r\nIMG_SIZE\r\n");
    const std::string before = ReadBytes(SettingsFile());
    Program program({.keep_data_folder = true});
    CHECK(ReadBytes(SettingsFile()) == before);
    CHECK(program.Open(MakePicture()).Text() == L"[1 ]  (50%) File Name : small.bmp");
    ChooseSizeByKey(program, VK_DOWN);
    WaitFor("the chosen size", [&] { return program.Item(kSizeBox).Text() == L"       5%"; });
    program.Choose(L"Viewer Option  (&V)");
    (void)program.Running().WaitForWindow(
        "the dialog", [](const Window& window) { return window.Text() == L"Pixora - Viewer Option"; });
    program.Exit();
    CHECK(ReadBytes(SettingsFile()) == before);
}

TEST_CASE("a display size that is no number opens images at half their size") {
    for (const wchar_t* ratio : {L"---%", L"0", L"-1", L"nan", L"1e400"}) {
        CAPTURE(std::wstring(ratio));
        Program program({.settings = {{L"IMG_SIZE", ratio}}});
        const Window viewer = program.Open(MakePicture());
        CHECK(viewer.Text() == L"[1 ]  (50%) File Name : small.bmp");
        program.Exit();
        CHECK(StoredSetting(L"IMG_SIZE") == ratio);
    }
}

TEST_CASE("a settings file with a value that is too long ends the program and is left untouched") {
    const std::string bytes = CompleteFile({{L"PATH_CSV", std::wstring(1'024, L'x')}});
    const Process process(QuotedProgram());
    SetWatch([&] { process.CheckAlive(); });
    const Window splash = process.WaitForWindow("the splash page", IsSplash);
    splash.Post(WM_CLOSE);
    const Window box =
        process.WaitForPlainBox(L"The settings file cannot be used.\n" + SettingsFile().wstring());
    CHECK(box.Text() == L"");
    SetWatch(nullptr);
    PressOk(box);
    CHECK(process.WaitForEnd() == 0);
    CHECK(ReadBytes(SettingsFile()) == bytes);
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
}

TEST_CASE("a write-protected settings file is read, never changed and never complained about") {
    const std::string bytes = CompleteFile({{L"IMG_SIZE", L"2.00"}});
    SetReadOnly(SettingsFile(), true);
    Program program({.keep_data_folder = true});
    ChooseSizeByKey(program, VK_DOWN);
    WaitFor("the chosen size", [&] { return program.Item(kSizeBox).Text() == L"     500%"; });
    const RECT client = program.Open(MakePicture()).Client();
    CHECK(client.right - client.left == 300);
    CHECK(program.Running().Windows().size() == 2);  // the main window and the viewer
    program.Exit();
    CHECK(ReadBytes(SettingsFile()) == bytes);
    CHECK(IsReadOnly(SettingsFile()));
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
}

TEST_CASE("without a data folder the program works with the defaults and can open no image") {
    DeleteDataFolder();
    fs::create_directories(DataFolder().parent_path());
    WriteBytes(DataFolder(), "a file in the place of the folder");
    Program program(WithDefaultsNotice());
    CHECK(program.Item(kSizeBox).Text() == L"      50%");
    program.Drop({MakePicture()});
    CHECK(DismissErrorBox(program) == kOpenFailed);
    ChooseSizeByKey(program, VK_DOWN);
    WaitFor("the chosen size", [&] { return program.Item(kSizeBox).Text() == L"       5%"; });
    program.Exit();
    CHECK(ReadBytes(DataFolder()) == "a file in the place of the folder");
}

TEST_CASE("a folder in the place of the settings file leaves the defaults in memory") {
    DeleteDataFolder();
    fs::create_directories(SettingsFile());
    Program program(WithDefaultsNotice());
    const Window viewer = program.Open(MakePicture());
    CHECK(viewer.Text() == L"[1 ]  (50%) File Name : small.bmp");
    program.Exit();
    CHECK(fs::is_directory(SettingsFile()));
}

TEST_CASE("the program killed while it stores its settings leaves a whole file that the next start takes") {
    struct Round {
        int choice, looks;
        const wchar_t *key, *value;
    };
    SettingValues values = TestSettings();
    DeleteDataFolder();
    WriteSettings({});
    for (const Round& round : {Round{1260, 0, L"LVL_CURSOR", L"OFF"}, Round{1254, 5, L"CAP_STYLE", L"FULL"},
                               Round{1248, 20, L"HIS_BINNING", L"OFF"}}) {
        CAPTURE(round.choice);
        // A file that lacks anything would be replaced with a notice, before the main window shows.
        const Program program({.keep_data_folder = true});
        CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
        constexpr int kViewerOptions = 32775;
        program.Main().Command(kViewerOptions);
        const Window dialog = program.Running().WaitForWindow(
            "the dialog", [&](const Window& window) { return window.FindItem(round.choice).has_value(); });
        KillWhileStoring(program, dialog.Item(round.choice), round.looks);
        for (auto& [key, value] : values) {
            const std::wstring stored = StoredSetting(key);
            CHECK((stored == value || (key == round.key && stored == round.value)));
            value = stored;
        }
    }
    Program program({.keep_data_folder = true});
    CHECK(DataFiles() == std::vector<std::wstring>{L"Pixora.ini"});
    program.Exit();
    for (const auto& [key, value] : values) CHECK(StoredSetting(key) == value);
}

TEST_CASE("a data folder that is lost while the program runs stops imports and is not made again") {
    Program program;
    DeleteDataFolder();
    program.Drop({MakePicture()});
    CHECK(DismissErrorBox(program) == kOpenFailed);
    ChooseSizeByKey(program, VK_DOWN);
    WaitFor("the chosen size", [&] { return program.Item(kSizeBox).Text() == L"     150%"; });
    program.Exit();
    CHECK_FALSE(fs::exists(DataFolder()));
}
