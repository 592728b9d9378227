// A look at the program from inside; see tests/ui/probe.cpp.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
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
    /// The items of an open popup menu.
    [[nodiscard]] std::vector<ProbeMenuItem> PopupItems(HMENU menu);
    /// Drops files on a window.
    void Drop(const Window& window, const std::vector<std::filesystem::path>& files);
    /// The pixels of a window's client area, also where other windows cover it.
    [[nodiscard]] Picture Capture(const Window& window);
    /// The texts of all tooltips of a tooltip window.
    [[nodiscard]] std::vector<std::wstring> Tooltips(const Window& window);

private:
    void Load(const Window& window);
    void Run(ProbeTask task);
    [[nodiscard]] std::vector<ProbeMenuItem> ReadItems() const;

    HANDLE mapping_ = nullptr, task_ = nullptr, done_ = nullptr;
    ProbeBlock* block_ = nullptr;
};

}  // namespace pixora::ui
