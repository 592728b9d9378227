// The program on Windows: wide arguments, wildcards, consoles that take wide text.
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

#include "base/stop.h"
#include "base/utf8.h"
#include "cli/run.h"

// The run-time library leaves `*` and `?` to the program.
extern "C" {
extern int _dowildcard;  // NOLINT(readability-identifier-naming): the library's own name
int _dowildcard = 0;
}

namespace pixora::cli {
namespace {

constexpr DWORD kStoppedStatus = 0xC000013A;  // what the system gives a program that Ctrl+C has ended

bool IsConsole(HANDLE stream) {
    DWORD mode = 0;
    return GetConsoleMode(stream, &mode) != 0;
}

bool WriteConsoleText(HANDLE stream, std::string_view bytes) {
    const std::wstring text = WideFromUtf8(bytes);
    constexpr std::size_t kAtOnce = 8192;  // consoles refuse very long texts
    for (std::size_t at = 0; at < text.size(); at += kAtOnce) {
        const auto count = static_cast<DWORD>(std::min(kAtOnce, text.size() - at));
        DWORD written = 0;
        if (!WriteConsoleW(stream, text.data() + at, count, &written, nullptr)) return false;
    }
    return true;
}

bool WriteBytes(HANDLE stream, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 20));
        if (!WriteFile(stream, bytes.data(), count, &written, nullptr) || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

class StandardStreams final : public Streams {
public:
    bool WriteOut(std::string_view bytes) override {
        return out_console_ ? WriteConsoleText(out_, bytes) : WriteBytes(out_, bytes);
    }
    void WriteError(std::string_view bytes) override {
        static_cast<void>(error_console_ ? WriteConsoleText(error_, bytes) : WriteBytes(error_, bytes));
    }
    [[nodiscard]] bool OutIsTerminal() const override { return out_console_; }
    [[nodiscard]] bool ErrorIsTerminal() const override { return error_console_; }

private:
    HANDLE out_ = GetStdHandle(STD_OUTPUT_HANDLE), error_ = GetStdHandle(STD_ERROR_HANDLE);
    bool out_console_ = IsConsole(out_), error_console_ = IsConsole(error_);
};

constexpr ULONGLONG kOneWish_ms = 2000;
std::atomic<ULONGLONG> stop_time_ms{0};

// A second wish ends the program at once, also while it waits for somebody to read its results. A key that is
// held down comes again and again, so that what follows at once is one wish.
bool IsSecondWish() {
    const ULONGLONG now = GetTickCount64();
    ULONGLONG first = 0;
    return !stop_time_ms.compare_exchange_strong(first, now) && now - first >= kOneWish_ms;
}

// Runs in a thread of its own. When it returns after anything but Ctrl+C and Ctrl+Break the system ends the
// program, so it waits for the program to end by itself.
BOOL WINAPI OnControl(DWORD event) {
    RequestStop();
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
    if (IsSecondWish()) TerminateProcess(GetCurrentProcess(), kStoppedStatus);
    return TRUE;
}

}  // namespace
}  // namespace pixora::cli

int wmain(int count, wchar_t** arguments) {
    using namespace pixora::cli;
    SetConsoleCtrlHandler(OnControl, TRUE);
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(pixora::Utf8FromWide(arguments[i]));
    StandardStreams streams;
    const int status = Run(texts, streams, true);
    return pixora::StopRequested() ? static_cast<int>(kStoppedStatus) : status;
}
