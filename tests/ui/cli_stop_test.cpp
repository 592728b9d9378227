// Ctrl+C while pixora-cli.exe works: it ends soon and says so, and no file is half written.
#include <doctest/doctest.h>

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/ui/support/console.h"
#include "tests/ui/support/environment.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::wstring>;

constexpr DWORD kStopped = 0xC000013A;  // as of a program that the system has ended for Ctrl+C
constexpr int kTimes = 4000;  // that an image is named in one call; more do not fit into a command line

ConsoleProgram StartCli(const std::wstring& arguments, const fs::path& folder) {
    return ConsoleProgram(ProbePath().parent_path() / L"pixora-cli.exe", arguments, folder);
}

/// A black image, whose pixels take no time to write.
void MakeBlackTiff(const fs::path& path, std::uint32_t width, std::uint32_t height) {
    const std::string headers = Bytes(TiffFile{.width = width, .height = height, .bits = 16});
    WriteBytes(path, headers);
    fs::resize_file(path, headers.size() + std::uint64_t{2} * width * height);
}

/// A call that names one image many times.
std::wstring LongCall(const wchar_t* command) {
    std::wstring call = command;
    for (int i = 0; i < kTimes; ++i) call += L" a.tif";
    return call + L" --format json";
}

Names FilesIn(const fs::path& folder) {
    Names names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().wstring());
    std::ranges::sort(names);
    return names;
}

/// True when something has been written to a file that is none of `known`.
bool HasBegunFile(const fs::path& folder, const Names& known) {
    std::error_code gone;
    for (const std::wstring& name : FilesIn(folder)) {
        const std::uintmax_t size = fs::file_size(folder / name, gone);
        if (!gone && size > 0 && !std::ranges::count(known, name)) return true;
    }
    return false;
}

/// Stops a command in the middle of its images, each of which gives the same line.
void CheckStopped(const wchar_t* command, const std::string& line) {
    CAPTURE(std::wstring(command));
    const fs::path folder = FreshScratchFolder();
    MakeBlackTiff(folder / L"a.tif", 2000, 2000);
    const ConsoleProgram cli = StartCli(LongCall(command), folder);
    cli.WaitForOutput();
    cli.PressCtrlC();
    const std::string lines = cli.ReadToEnd();
    CHECK(cli.Running().WaitForEnd() == kStopped);
    CHECK(lines.substr(0, line.size() + 1) == line + '\n');
    std::string expected;
    int count = 0;
    for (; expected.size() < lines.size(); ++count) expected += line + '\n';
    CHECK((lines == expected));
    CHECK(count < kTimes);
}

}  // namespace

TEST_CASE("Ctrl+C ends pixora-cli between two of many images, with whole lines of results") {
    CheckStopped(L"info",
                 R"({"file":"a.tif","kind":"TIFF II","width":2000,"height":2000,"colour":false,)"
                 R"("bits_per_sample":16,"stored_bits":16,"valid_bits":8,"bmp_bit_count":0,"raw_data":true,)"
                 R"("pixel_format":"Mono16"})");
    CheckStopped(L"stats", R"({"file":"a.tif","region":[0,0,1999,1999],"channels":)"
                           R"([{"name":"mono","min":0,"max":0,"mean":0,"std":0}]})");
}

TEST_CASE("Ctrl+C while pixora-cli makes copies leaves the old ones and nothing else") {
    const fs::path folder = FreshScratchFolder();
    MakeBlackTiff(folder / L"large.tif", 10000, 10000);
    WriteBytes(folder / L"old.bmp", "an old display copy");
    WriteBytes(folder / L"old.bin", "an old data copy");
    const Names before = {L"large.tif", L"old.bin", L"old.bmp"};
    const ConsoleProgram cli = StartCli(L"convert large.tif --display old.bmp --data old.bin", folder);
    WaitFor("a copy that is not complete", [&] { return HasBegunFile(folder, before); });
    cli.PressCtrlC();
    CHECK(cli.ReadToEnd() == "");
    CHECK(cli.Running().WaitForEnd() == kStopped);
    CHECK(FilesIn(folder) == before);
    CHECK((ReadBytes(folder / L"old.bmp") == "an old display copy"));
    CHECK((ReadBytes(folder / L"old.bin") == "an old data copy"));
}

TEST_CASE("a later second Ctrl+C ends pixora-cli also while nobody reads its results") {
    const fs::path folder = FreshScratchFolder();
    fs::copy_file(Sample(L"tiff8-mono.tif"), folder / L"a.tif");
    const ConsoleProgram cli = StartCli(LongCall(L"info"), folder);
    cli.WaitForOutput();
    const long long first = Now_ms();
    WaitFor("the end of the program", [&] {
        cli.PressCtrlC();
        return !cli.Running().Running();
    });
    CHECK(Now_ms() - first > 1900);  // presses within two seconds are one wish
    CHECK(cli.Running().WaitForEnd() == kStopped);
}
