#include "tests/ui/support/console.h"

#include "tests/ui/support/environment.h"
#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

namespace fs = std::filesystem;

// Small, so that a program soon waits for whoever reads its results.
constexpr DWORD kPipeBytes = 4096;

fs::path HandPath() {
    return ProbePath().parent_path() / L"pixora_ui_console.exe";
}

std::wstring Quoted(const fs::path& path) {
    return L'"' + path.wstring() + L'"';
}

}  // namespace

Pipe::Pipe(Side program) {
    HANDLE read = nullptr, write = nullptr;
    if (!CreatePipe(&read, &write, nullptr, kPipeBytes)) throw UiError("there is no pipe");
    const bool reads = program == Side::reads;
    ours_.reset(reads ? write : read);
    theirs_.reset(reads ? read : write);
    if (!SetHandleInformation(theirs_.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT))
        throw UiError("a pipe cannot be inherited");
}

bool Pipe::Filled() const {
    DWORD count = 0;
    return PeekNamedPipe(ours_.get(), nullptr, 0, nullptr, &count, nullptr) && count > 0;
}

bool Pipe::TakeTo(std::string& bytes) const {
    DWORD count = 0;
    if (!PeekNamedPipe(ours_.get(), nullptr, 0, nullptr, &count, nullptr)) return false;
    if (count == 0) return true;
    std::string part(count, '\0');
    if (!ReadFile(ours_.get(), part.data(), count, &count, nullptr)) return false;
    bytes.append(part, 0, count);
    return true;
}

std::string Pipe::WaitForLine(const std::string& what) const {
    std::string line;
    WaitFor(what, [&] { return !TakeTo(line) || line.ends_with('\n'); });
    if (!line.ends_with('\n')) throw UiError("nobody answered: " + what);
    line.pop_back();
    return line;
}

void Pipe::Write(char byte) const {
    DWORD written = 0;
    if (!WriteFile(ours_.get(), &byte, 1, &written, nullptr)) throw UiError("nobody reads from a pipe");
}

ConsoleProgram::ConsoleProgram(const fs::path& program, const std::wstring& arguments, const fs::path& folder)
    : hand_(HandPath(), Quoted(HandPath()) + L' ' + Quoted(program) + L' ' + arguments,
            {.flags = CREATE_NO_WINDOW,
             .folder = folder,
             .input = presses_.Theirs(),
             .output = results_.Theirs(),
             .error = answers_.Theirs()}) {
    for (Pipe* pipe : {&presses_, &results_, &answers_}) pipe->HandOver();
    process_.emplace(std::stoul(answers_.WaitForLine("the program at its console")));
}

void ConsoleProgram::WaitForOutput() const {
    WaitFor("output of the program", [&] { return results_.Filled(); });
}

// The pipe itself need not end with the program: Wine's console holds it too.
std::string ConsoleProgram::ReadToEnd() const {
    std::string bytes;
    WaitFor("the end of the program's output", [&] {
        const bool ended = !process_->Running();
        const std::size_t before = bytes.size();
        return !results_.TakeTo(bytes) || (ended && bytes.size() == before);
    });
    return bytes;
}

void ConsoleProgram::PressCtrlC() const {
    presses_.Write('c');
    const std::string answer = answers_.WaitForLine("Ctrl+C at the program's console");
    if (answer != "0") throw UiError("Ctrl+C failed with error " + answer);
}

}  // namespace pixora::ui
