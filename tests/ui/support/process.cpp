#include "tests/ui/support/process.h"

#include <sstream>
#include <utility>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {

std::wstring QuotedProgram() {
    return L'"' + ProgramPath().wstring() + L'"';
}

Process::Process(std::wstring command_line) : Process(ProgramPath(), std::move(command_line)) {}

Process::Process(const std::filesystem::path& program, std::wstring command_line, const Launch& launch) {
    const bool redirected = launch.input || launch.output || launch.error;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = redirected ? STARTF_USESTDHANDLES : 0;
    start.hStdInput = launch.input;
    start.hStdOutput = launch.output;
    start.hStdError = launch.error;
    PROCESS_INFORMATION started{};
    WatchStep("starting the program");
    if (!CreateProcessW(program.c_str(), command_line.data(), nullptr, nullptr, redirected, launch.flags,
                        nullptr, launch.folder.empty() ? nullptr : launch.folder.c_str(), &start, &started))
        throw UiError("could not start " + Narrow(command_line));
    CloseHandle(started.hThread);
    process_ = started.hProcess;
    id_ = started.dwProcessId;
}

Process::Process(DWORD id)
    : process_(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION | PROCESS_TERMINATE, FALSE, id)), id_(id) {
    if (!process_) throw UiError("could not take over a program");
}

Process::~Process() {
    if (Running()) {
        WatchStep("ending the program by force");
        TerminateProcess(process_, 99);
        WaitForSingleObject(process_, kPatience_ms);
    }
    CloseHandle(process_);
}

bool Process::Running() const {
    return WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

DWORD Process::WaitForEnd() const {
    WatchStep("waiting for the end of the program");
    if (WaitForSingleObject(process_, kPatience_ms) != WAIT_OBJECT_0)
        throw UiError("waited in vain for the program to end");
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
}

void Process::CheckAlive() const {
    if (Running()) return;
    std::ostringstream text;
    text << "the program has ended with exit code 0x" << std::hex << WaitForEnd();
    throw UiError(text.str());
}

std::optional<Window> Process::FindWindow(const std::function<bool(const Window&)>& matches) const {
    for (const Window& window : Windows())
        if (matches(window)) return window;
    return std::nullopt;
}

Window Process::WaitForWindow(const std::string& what,
                              const std::function<bool(const Window&)>& matches) const {
    return WaitForSome(what, [&] { return FindWindow(matches); });
}

Window Process::WaitForPlainBox(const std::wstring& text) const {
    return WaitForWindow("the message box \"" + Narrow(text) + '"', [&](const Window& window) {
        if (window.Class() != L"#32770" || !window.FindItem(IDOK)) return false;
        const std::vector<Window> controls = window.Controls();
        for (const Window& control : controls)
            if (control.Class() == L"Static" && control.Text() == text) return true;
        return false;
    });
}

void PressOk(const Window& box) {
    Click(box.Item(IDOK));
    WaitFor("the box to close", [&] { return !box.Exists(); });
}

}  // namespace pixora::ui
