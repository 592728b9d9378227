// A program without windows at a console of its own: what it writes, and somebody at its keyboard.
#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tests/ui/support/process.h"

namespace pixora::ui {

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

/// A pipe between the tests and a program that they start.
class Pipe {
public:
    enum class Side { reads, writes };
    /// @param program  what the program does at its end.
    explicit Pipe(Side program);

    /// The program's end, which it can inherit, until it has been handed over.
    [[nodiscard]] HANDLE Theirs() const { return theirs_.get(); }
    /// To be called when the program has been started: the pipe then ends with it.
    void HandOver() { theirs_.reset(); }

    /// True when there is something to read.
    [[nodiscard]] bool Filled() const;
    /// Adds what there is to read at the moment, maybe nothing. @return false when no more will come.
    [[nodiscard]] bool TakeTo(std::string& bytes) const;
    /// Waits for a line and returns it without its end.
    [[nodiscard]] std::string WaitForLine(const std::string& what) const;
    void Write(char byte) const;

private:
    OwnedHandle ours_, theirs_;
};

/// Starts a program at a console that shows no window. Its results and its messages come through a pipe.
class ConsoleProgram {
public:
    /// @param arguments  what follows the program's name and a blank.
    ConsoleProgram(const std::filesystem::path& program, const std::wstring& arguments,
                   const std::filesystem::path& folder);

    [[nodiscard]] const Process& Running() const { return *process_; }
    /// Waits until it has written something that nobody has read yet.
    void WaitForOutput() const;
    /// Reads until it has ended, a page at each look: a program that writes much waits for it.
    [[nodiscard]] std::string ReadToEnd() const;
    /// Has its console tell it of a Ctrl+C. It comes to know soon after, in a thread of its own.
    void PressCtrlC() const;

private:
    Pipe presses_{Pipe::Side::reads}, results_{Pipe::Side::writes}, answers_{Pipe::Side::writes};
    Process hand_;
    std::optional<Process> process_;
};

}  // namespace pixora::ui
