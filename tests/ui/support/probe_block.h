// What the tests and their probe inside the program say to each other: one block of shared memory a program.
#pragma once

#include <windows.h>

#include <cstdint>

namespace pixora::ui {

enum class ProbeTask : std::uint32_t {
    nothing,      ///< shows that the probe is there
    menu,         ///< lists the items of `menu`, or of the menu bar of `window`, sub-menus included
    system_menu,  ///< lists the items of the system menu of `window`
    icons,        ///< counts the icons of `window`, large and small, into `count`
    drop,  ///< drops the files named in `data` (each with a final zero, one more zero at the end) on `window`
    capture,        ///< copies the rectangle x, y, width, height of the client area of `window` into `data`
    tooltips,       ///< lists the texts of all tooltips of the tooltip window `window`
    font,           ///< copies the LOGFONTW of the font of control `window` into `data`
    handles,        ///< counts the handles of the process into `data`, a HandleCounts
    watch,          ///< counts from now on what `window` does
    watched,        ///< copies what was counted of `window` into `data`, a WindowCounts
    count_calls,    ///< counts from now on what the program asks the system for
    counted_calls,  ///< copies what was counted into `data`, a CallCounts
    times,  ///< copies the processor time of the process into `data`, in units of 100 ns, a std::uint64_t
};

/// How many handles the process holds. The system may not tell more than windows and menus of the latter.
struct HandleCounts {
    std::int32_t gdi, user;
    friend bool operator==(const HandleCounts&, const HandleCounts&) = default;
};

/// What a window has done since it is watched.
struct WindowCounts {
    std::int32_t ticks;   ///< messages of its timers that it has dealt with
    std::int32_t plots;   ///< paintings of controls that it draws itself, as plots
    std::int32_t paints;  ///< paintings of itself and of any of its controls, each perhaps more than once
    friend bool operator==(const WindowCounts&, const WindowCounts&) = default;
};

/// How often the program itself, not the system for it, has asked for memory or opened or read a file.
struct CallCounts {
    std::int32_t allocations, files, reads;
    friend bool operator==(const CallCounts&, const CallCounts&) = default;
};

/// An item of a menu. The items of a sub-menu follow their parent, one deeper.
struct ProbeMenuItem {
    std::uint32_t depth, id, state;
    std::uint32_t separator, has_items;
    RECT place;  ///< on the screen, for the items of an open menu and of the bar itself
    wchar_t text[96];
};

struct ProbeBlock {
    ProbeTask task;
    std::uint64_t window, menu;
    std::int32_t x, y, width, height;
    std::int32_t count;  ///< items found; -1 when the task could not be done
    /// The program stops before a window with this caption is taken away; empty: it does not.
    wchar_t pause_caption[64];
    alignas(16) unsigned char data[24u << 20];
};

// Names of what both sides share, with the program's process id: the block, two events that say "a task
// stands in the block" and "it is done", and two that say "the program has stopped" and "it may go on".
inline constexpr wchar_t kProbeBlockName[] = L"Local\\pixora-ui-probe-block-%lu";
inline constexpr wchar_t kProbeTaskName[] = L"Local\\pixora-ui-probe-task-%lu";
inline constexpr wchar_t kProbeDoneName[] = L"Local\\pixora-ui-probe-done-%lu";
inline constexpr wchar_t kProbePausedName[] = L"Local\\pixora-ui-probe-paused-%lu";
inline constexpr wchar_t kProbeResumeName[] = L"Local\\pixora-ui-probe-resume-%lu";
/// The DLL's hook procedures: the system loads the DLL into the program to call the first one; the second one
/// is told of every window that is taken away, and stops the program there.
inline constexpr char kProbeHook[] = "PixoraUiProbeHook";
inline constexpr char kProbePauseHook[] = "PixoraUiProbePauseHook";
/// How long the program stops at most.
inline constexpr DWORD kProbePause_ms = 30'000;

}  // namespace pixora::ui
