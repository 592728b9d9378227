// A look at the program from inside; see tests/ui/probe.cpp.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/ui/support/picture.h"
#include "tests/ui/support/probe_block.h"
#include "tests/ui/support/window.h"

namespace pixora::ui {

/// The probe in one process; loaded by the constructor through the message loop of `window`.
class Probe {
public:
    explicit Probe(const Window& window);
    ~Probe();
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    /// The items of a window's menu bar with all sub-menus.
    [[nodiscard]] std::vector<ProbeMenuItem> MenuBar(const Window& window);
    /// The items of a window's system menu.
    [[nodiscard]] std::vector<ProbeMenuItem> SystemMenu(const Window& window);
    /// How many icons of its own a window has, large and small.
    [[nodiscard]] int Icons(const Window& window);
    /// The items of an open popup menu.
    [[nodiscard]] std::vector<ProbeMenuItem> PopupItems(HMENU menu);
    /// Drops files on a window.
    void Drop(const Window& window, const std::vector<std::filesystem::path>& files);
    /// The pixels of a window's client area, also where other windows cover it.
    [[nodiscard]] Picture Capture(const Window& window);
    /// The texts of all tooltips of a tooltip window.
    [[nodiscard]] std::vector<std::wstring> Tooltips(const Window& window);
    /// The font of a control.
    [[nodiscard]] LOGFONTW Font(const Window& control);
    /// The handles that the process holds now.
    [[nodiscard]] HandleCounts Handles();
    /// Counts what a window does, from zero.
    void Watch(const Window& window);
    /// What a watched window has done.
    [[nodiscard]] WindowCounts Watched(const Window& window);
    /// Counts what the program asks the system for, from zero.
    void CountCalls() { Run(ProbeTask::count_calls); }
    /// What was counted since.
    [[nodiscard]] CallCounts CountedCalls();
    /// Seconds of processor time that the process has used.
    [[nodiscard]] double ProcessorTime_s();

private:
    friend class PauseBeforeEnd;

    void Load(const Window& window);
    void Run(ProbeTask task);
    [[nodiscard]] std::vector<ProbeMenuItem> ReadItems() const;

    HANDLE mapping_ = nullptr, task_ = nullptr, done_ = nullptr;
    ProbeBlock* block_ = nullptr;
};

/// Stops the program each time when it is about to take a window with this caption away, until GoOn(). A
/// stopped program answers no message: such a window can be looked at, not asked.
class PauseBeforeEnd {
public:
    PauseBeforeEnd(Probe& probe, const Window& main, std::wstring_view caption);
    ~PauseBeforeEnd();
    PauseBeforeEnd(const PauseBeforeEnd&) = delete;
    PauseBeforeEnd& operator=(const PauseBeforeEnd&) = delete;

    /// Whether the program has stopped; told once for each time.
    [[nodiscard]] bool Reached() const;
    void GoOn() const;

private:
    Probe& probe_;
    HANDLE paused_, resume_;
    HHOOK hook_;
};

}  // namespace pixora::ui
