// A save that is interrupted at any moment leaves a whole file: a child process is stopped at each of its
// system calls in turn, before and after the call, and looked at or killed there.
#include <doctest/doctest.h>
#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>

#include "settings/settings_file.h"
#include "tests/unit/support/child.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

namespace fs = std::filesystem;

const UserFolders kOld{L"D:\\docs", L"D:\\pics"};
const UserFolders kNew{L"E:\\other docs", L"E:\\other pics"};

Settings Changed() {
    Settings settings = DefaultSettings(kNew);
    settings.AUTO_BIT = L"OFF";
    settings.MAIN_POS = L"TR";
    settings.MAIN_POS_X = L"-1234";
    return settings;
}

/// A child process that is about to begin `work`, and stops at each entry to and return from a system call.
class SteppedChild {
public:
    explicit SteppedChild(const std::function<void()>& work) : child_(fork()) {
        if (child_ == 0) {
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            raise(SIGSTOP);
            work();
            _exit(0);
        }
        REQUIRE(WIFSTOPPED(Status()));
    }

    /// Lets it go on to its next stop. @return false when it has done its work before.
    [[nodiscard]] bool Step() const {
        REQUIRE(ptrace(PTRACE_SYSCALL, child_, nullptr, nullptr) == 0);
        return !WIFEXITED(Status());
    }
    void Kill() const {
        REQUIRE(kill(child_, SIGKILL) == 0);
        REQUIRE(WIFSIGNALED(Status()));
    }

private:
    [[nodiscard]] int Status() const {
        int status = 0;
        REQUIRE(waitpid(child_, &status, 0) == child_);
        return status;
    }

    pid_t child_;
};

/// Runs `work` in a child process and kills it at its `stop`-th stop.
/// @return false when the work was done before that.
bool KilledAt(int stop, const std::function<void()>& work) {
    const SteppedChild child(work);
    for (int i = 0; i < stop; ++i)
        if (!child.Step()) return false;
    child.Kill();
    return true;
}

/// Checks that the file has every key, and for some of them the value of `before` or of `after`.
void CheckWhole(const fs::path& path, const Settings& before, const Settings& after) {
    Settings read;
    REQUIRE(LoadSettings(path, read) == SettingsLoadResult::complete);
    for (auto key : {&Settings::AUTO_BIT, &Settings::MAIN_POS, &Settings::MAIN_POS_X, &Settings::PATH_CSV,
                     &Settings::PATH_OPEN, &Settings::PATH_SAVE, &Settings::IMG_SIZE})
        CHECK((read.*key == before.*key || read.*key == after.*key));
}

void RemoveLeftOvers(const ScratchFolder& folder) {
    for (const auto& entry : fs::directory_iterator(folder.Path())) fs::remove(entry.path());
}

}  // namespace

TEST_CASE("a program that dies while it writes one value leaves the old file or the new one") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    const std::string before = "A=old\r\nB=2\r\n.END\r\n";
    const std::string after =
        "\xEF\xBB\xBF"
        "A=new\r\nB=2\r\n.END\r\n";
    bool seen_old = false;
    bool seen_new = false;
    bool killed = true;
    for (int stop = 1; killed; ++stop) {
        RemoveLeftOvers(folder);
        folder.Write("Pixora.ini", before);
        killed = KilledAt(stop, [&] { static_cast<void>(PutSettingValue(path, L"A=", L"new")); });
        const std::string bytes = folder.Read("Pixora.ini");
        CHECK((bytes == before || bytes == after));
        seen_old = seen_old || bytes == before;
        seen_new = seen_new || (killed && bytes == after);
    }
    CHECK(seen_old);
    CHECK(seen_new);
}

TEST_CASE("at every moment of a save the file has every key") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    const Settings before = DefaultSettings(kOld), after = Changed();
    WriteDefaultSettingsFile(path, kOld);
    const SteppedChild child([&] { static_cast<void>(SaveSettings(path, after)); });
    int stops = 0;
    for (; child.Step(); ++stops) CheckWhole(path, before, after);  // as the child's end would leave it now
    CHECK(stops > 16);
    Settings read;
    REQUIRE(LoadSettings(path, read) == SettingsLoadResult::complete);
    CHECK(read == after);
}

TEST_CASE("a program that dies during a save leaves a file with every key") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    const Settings before = DefaultSettings(kOld), after = Changed();
    // The sixteen values are written alike, so every eleventh moment meets each of them somewhere else.
    constexpr int kStep = 11;
    for (int stop = 1;; stop += kStep) {
        RemoveLeftOvers(folder);
        WriteDefaultSettingsFile(path, kOld);
        if (!KilledAt(stop, [&] { static_cast<void>(SaveSettings(path, after)); })) break;
        CheckWhole(path, before, after);
    }
}

TEST_CASE("a program that dies while it restores the defaults leaves the old file or the new one") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    bool killed = true;
    for (int stop = 1; killed; ++stop) {
        RemoveLeftOvers(folder);
        WriteDefaultSettingsFile(path, kOld);
        killed = KilledAt(stop, [&] { WriteDefaultSettingsFile(path, kNew); });
        Settings read;
        REQUIRE(LoadSettings(path, read) == SettingsLoadResult::complete);
        CHECK((read == DefaultSettings(kOld) || read == DefaultSettings(kNew)));
        if (!killed) CHECK(read == DefaultSettings(kNew));
    }
}

TEST_CASE("a save on a full disk leaves the old file and nothing else") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    WriteDefaultSettingsFile(path, kOld);
    const std::string before = folder.Read("Pixora.ini");
    constexpr std::uint64_t kLessThanTheSettingsTake = 100;
    const int status = InChildOnFullDisk(kLessThanTheSettingsTake, [&] {
        WriteDefaultSettingsFile(path, kNew);
        return SaveSettings(path, Changed()) ? 0 : 1;
    });
    CHECK(status == 0);  // a file that cannot be written is not reported
    CHECK(folder.Read("Pixora.ini") == before);
    CHECK(folder.Names() == "Pixora.ini");
}

TEST_CASE("a save into a write-protected folder leaves the old file and nothing else") {
    const ScratchFolder folder;
    const fs::path path = folder / "Pixora.ini";
    WriteDefaultSettingsFile(path, kOld);
    const std::string before = folder.Read("Pixora.ini");
    fs::permissions(folder.Path(), fs::perms::all & ~fs::perms(0222));
    const int status = InChild([&] {
        constexpr uid_t kNobody = 65'534;  // nothing is write-protected from root
        if (geteuid() == 0 && setuid(kNobody) != 0) return 2;
        WriteDefaultSettingsFile(path, kNew);
        return SaveSettings(path, Changed()) ? 0 : 1;
    });
    fs::permissions(folder.Path(), fs::perms::all);
    CHECK(status == 0);
    CHECK(folder.Read("Pixora.ini") == before);
    CHECK(folder.Names() == "Pixora.ini");
}
