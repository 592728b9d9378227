// A started program: its life, its windows, its end.
#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/ui/support/wait.h"
#include "tests/ui/support/window.h"

namespace pixora::ui {

/// How another program is started.
struct Launch {
    DWORD flags = 0;                                            ///< CREATE_NO_WINDOW and the like
    std::filesystem::path folder = {};                          ///< where it works; empty: where the tests do
    HANDLE input = nullptr, output = nullptr, error = nullptr;  ///< all nothing: those of the tests
};

/// Starts pixora.exe at once; ends it by force if it still runs when its owner goes.
class Process {
public:
    /// @param command_line  the whole of it, program path included.
    explicit Process(std::wstring command_line);
    /// Starts another program in its place.
    Process(const std::filesystem::path& program, std::wstring command_line, const Launch& launch = {});
    /// Takes over a program that somebody else has started and still holds.
    explicit Process(DWORD id);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] HANDLE Handle() const { return process_; }
    [[nodiscard]] DWORD Id() const { return id_; }
    [[nodiscard]] bool Running() const;
    /// Waits until the program has ended by itself and returns its exit code.
    DWORD WaitForEnd() const;
    /// Throws when the program has ended.
    void CheckAlive() const;

    /// Its visible top-level windows, the topmost first.
    [[nodiscard]] std::vector<Window> Windows() const { return WindowsOf(id_); }
    /// The topmost of its windows that `matches`, if any.
    [[nodiscard]] std::optional<Window> FindWindow(const std::function<bool(const Window&)>& matches) const;
    /// Waits for such a window.
    [[nodiscard]] Window WaitForWindow(const std::string& what,
                                       const std::function<bool(const Window&)>& matches) const;
    /// Waits for the system's plain message box with this text.
    [[nodiscard]] Window WaitForPlainBox(const std::wstring& text) const;

private:
    HANDLE process_ = nullptr;
    DWORD id_ = 0;
};

/// The program's path in double quotes, as every launcher writes it.
[[nodiscard]] std::wstring QuotedProgram();

/// Presses a box's OK with the mouse and waits until the box is gone.
void PressOk(const Window& box);

}  // namespace pixora::ui
