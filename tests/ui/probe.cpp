// A DLL that the tests load into the program, for what cannot be seen or done from outside: menus belong to
// their process, dropped files are handed over in memory of the target, and only the process itself can read
// the pixels of a covered window. It changes nothing in the program.
#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>
#include <winternl.h>

#include <array>
#include <atomic>
#include <cstring>
#include <cwchar>
#include <initializer_list>

#include "tests/ui/probe_calls.h"
#include "tests/ui/support/probe_block.h"

namespace pixora::ui {
namespace {

/// `window` 0 stands for an open popup, whose window the system finds by its handle.
void ListMenu(ProbeBlock& block, HWND window, HMENU menu, std::uint32_t depth) {
    constexpr std::int32_t kLimit = 200;
    auto* items = reinterpret_cast<ProbeMenuItem*>(block.data);
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count && block.count < kLimit; ++i) {
        ProbeMenuItem& item = items[block.count++];
        item = {};
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
        info.dwTypeData = item.text;
        info.cch = 96;
        GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info);
        item.depth = depth;
        item.id = info.wID;
        item.state = info.fState;
        item.separator = (info.fType & MFT_SEPARATOR) != 0;
        item.has_items = info.hSubMenu != nullptr;
        if (depth == 0) GetMenuItemRect(window, menu, static_cast<UINT>(i), &item.place);
        if (info.hSubMenu) ListMenu(block, window, info.hSubMenu, depth + 1);
    }
}

bool Drop(const ProbeBlock& block, HWND window) {
    const auto* names = reinterpret_cast<const wchar_t*>(block.data);
    std::size_t length = 1;
    while (names[length - 1] || names[length]) ++length;
    const std::size_t bytes = (length + 1) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
    auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
    if (!drop) return false;
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, names, bytes);
    GlobalUnlock(memory);
    return PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

bool Capture(ProbeBlock& block, HWND window) {
    const std::size_t bytes =
        static_cast<std::size_t>(block.width) * static_cast<std::size_t>(block.height) * 4;
    if (block.width < 1 || block.height < 1 || bytes > sizeof block.data) return false;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = block.width;
    info.bmiHeader.biHeight = -block.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HDC source = GetDC(window);
    HDC copy = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    bool copied = false;
    if (bitmap) {
        HGDIOBJ previous = SelectObject(copy, bitmap);
        copied = BitBlt(copy, 0, 0, block.width, block.height, source, block.x, block.y, SRCCOPY);
        GdiFlush();
        if (copied) std::memcpy(block.data, bits, bytes);
        SelectObject(copy, previous);
        DeleteObject(bitmap);
    }
    DeleteDC(copy);
    ReleaseDC(window, source);
    return copied;
}

void ListTooltips(ProbeBlock& block, HWND window) {
    constexpr int kLength = 256, kLimit = 64;
    auto* texts = reinterpret_cast<wchar_t(*)[kLength]>(block.data);
    const LRESULT count = SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0);
    for (int i = 0; i < count && i < kLimit; ++i) {
        texts[i][0] = L'\0';
        wchar_t buffer[kLength] = L"";
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.lpszText = buffer;
        if (!SendMessageW(window, TTM_ENUMTOOLSW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tool)))
            continue;
        tool.lpszText = buffer;
        SendMessageW(window, TTM_GETTEXTW, kLength, reinterpret_cast<LPARAM>(&tool));
        std::memcpy(texts[block.count++], buffer, sizeof buffer);
    }
}

bool ReadFont(ProbeBlock& block, HWND control) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    return font && GetObjectW(font, sizeof(LOGFONTW), block.data) != 0;
}

/// Used entries of the table of GDI handles, which the process environment block points at.
std::int32_t CountGdiHandles() {
    constexpr std::size_t kTableInBlock = 0xF8, kEntries = 65'536, kEntryBytes = 24, kTypeInEntry = 14;
    PROCESS_BASIC_INFORMATION facts{};
    if (NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &facts, sizeof facts,
                                  nullptr))
        return 0;
    const auto* block = reinterpret_cast<const unsigned char*>(facts.PebBaseAddress);
    const auto* table = *reinterpret_cast<const unsigned char* const*>(block + kTableInBlock);
    std::int32_t count = 0;
    for (std::size_t i = 0; table && i < kEntries; ++i)
        if (table[i * kEntryBytes + kTypeInEntry] != 0) ++count;
    return count;
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
    ++*reinterpret_cast<std::int32_t*>(count);
    return TRUE;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    EnumChildWindows(window, &CountChild, count);
    return CountChild(window, count);
}

/// All windows of the process with their controls, and its menus.
std::int32_t CountWindowsAndMenus() {
    std::int32_t count = 0;
    EnumWindows(&CountWindow, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));)
        CountWindow(window, reinterpret_cast<LPARAM>(&count));
    for (std::uintptr_t handle = 0x20; handle < 0xFFF0; handle += 2)
        if (IsMenu(reinterpret_cast<HMENU>(handle))) ++count;
    return count;
}

void CountHandles(ProbeBlock& block) {
    // A system that counts them itself knows best; where it does not, its answer is 0.
    const auto gdi = static_cast<std::int32_t>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    const auto user = static_cast<std::int32_t>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
    *reinterpret_cast<HandleCounts*>(block.data) = {gdi ? gdi : CountGdiHandles(),
                                                    user ? user : CountWindowsAndMenus()};
}

/// From inside, because not every system tells it to other processes.
bool ReadTimes(ProbeBlock& block) {
    FILETIME created{}, ended{}, kernel{}, user{};
    if (!GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user)) return false;
    const auto whole = [](const FILETIME& time) {
        return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    };
    *reinterpret_cast<std::uint64_t*>(block.data) = whole(kernel) + whole(user);
    return true;
}

/// A window whose messages pass by here before it gets them.
struct Watched {
    std::atomic<HWND> window{nullptr};
    WNDPROC procedure = nullptr;
    std::atomic<std::int32_t> ticks{0}, plots{0}, paints{0};
};
std::array<Watched, 16> watched_windows;

Watched* FindWatched(HWND window) {
    for (Watched& watched : watched_windows)
        if (watched.window == window) return &watched;
    return nullptr;
}

LRESULT CALLBACK WatchedProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    Watched* watched = FindWatched(window);
    if (!watched) return DefWindowProcW(window, message, w, l);
    if (message == WM_DRAWITEM) ++watched->plots;
    const bool of_control = message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    if (message == WM_PAINT || message == WM_ERASEBKGND || message == WM_DRAWITEM || of_control)
        ++watched->paints;
    const WNDPROC procedure = watched->procedure;
    if (message == WM_NCDESTROY) watched->window = nullptr;
    const LRESULT result = CallWindowProcW(procedure, window, message, w, l);
    if (message == WM_TIMER) ++watched->ticks;
    return result;
}

bool Watch(HWND window) {
    Watched* watched = FindWatched(window);
    if (!watched) {
        watched = FindWatched(nullptr);
        if (!watched) return false;
        watched->procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
        watched->window = window;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WatchedProcedure));
    }
    watched->ticks = watched->plots = watched->paints = 0;
    return true;
}

bool ReportWatched(ProbeBlock& block, HWND window) {
    const Watched* watched = FindWatched(window);
    if (!watched) return false;
    *reinterpret_cast<WindowCounts*>(block.data) = {watched->ticks, watched->plots, watched->paints};
    return true;
}

bool Serve(ProbeBlock& block) {
    HWND window = reinterpret_cast<HWND>(block.window);
    block.count = 0;
    switch (block.task) {
        case ProbeTask::nothing:
            return true;
        case ProbeTask::menu:
            if (block.menu)
                ListMenu(block, nullptr, reinterpret_cast<HMENU>(block.menu), 0);
            else
                ListMenu(block, window, GetMenu(window), 0);
            return true;
        case ProbeTask::system_menu:
            ListMenu(block, nullptr, GetSystemMenu(window, FALSE), 0);
            return true;
        case ProbeTask::icons:
            for (const WPARAM kind : {ICON_BIG, ICON_SMALL})
                if (SendMessageW(window, WM_GETICON, kind, 0)) ++block.count;
            return true;
        case ProbeTask::drop:
            return Drop(block, window);
        case ProbeTask::capture:
            return Capture(block, window);
        case ProbeTask::tooltips:
            ListTooltips(block, window);
            return true;
        case ProbeTask::font:
            return ReadFont(block, window);
        case ProbeTask::handles:
            CountHandles(block);
            return true;
        case ProbeTask::watch:
            return Watch(window);
        case ProbeTask::watched:
            return ReportWatched(block, window);
        case ProbeTask::count_calls:
            return CountCalls();
        case ProbeTask::counted_calls:
            *reinterpret_cast<CallCounts*>(block.data) = CountedCalls();
            return true;
        case ProbeTask::times:
            return ReadTimes(block);
    }
    return false;
}

HANDLE OpenShared(const wchar_t* name_format, HANDLE (*open)(const wchar_t*)) {
    wchar_t name[64];
    wsprintfW(name, name_format, GetCurrentProcessId());
    return open(name);
}

ProbeBlock* shared_block = nullptr;

/// Tells the tests that the program stops here, and waits until it may go on.
void Pause() {
    constexpr auto open_event = [](const wchar_t* name) {
        return OpenEventW(SYNCHRONIZE | EVENT_MODIFY_STATE, FALSE, name);
    };
    HANDLE paused = OpenShared(kProbePausedName, open_event),
           resume = OpenShared(kProbeResumeName, open_event);
    if (paused && resume) {
        SetEvent(paused);
        WaitForSingleObject(resume, kProbePause_ms);
    }
    for (HANDLE event : {paused, resume})
        if (event) CloseHandle(event);
}

/// Serves tasks until the program ends. Only one thread ever lives here: starting one for each task would
/// depend on how the system finds a thread of the program to start it.
DWORD WINAPI ServeTasks(void* shared) {
    constexpr auto open_event = [](const wchar_t* name) {
        return OpenEventW(SYNCHRONIZE | EVENT_MODIFY_STATE, FALSE, name);
    };
    HANDLE task = OpenShared(kProbeTaskName, open_event), done = OpenShared(kProbeDoneName, open_event);
    auto* block = static_cast<ProbeBlock*>(MapViewOfFile(shared, FILE_MAP_ALL_ACCESS, 0, 0, 0));
    if (!task || !done || !block) return 1;
    shared_block = block;
    while (WaitForSingleObject(task, INFINITE) == WAIT_OBJECT_0) {
        if (!Serve(*block)) block->count = -1;
        SetEvent(done);
    }
    return 0;
}

/// In a process that has no block, the tests' own, nothing starts.
void StartServing(HINSTANCE self) {
    HANDLE shared = OpenShared(kProbeBlockName, [](const wchar_t* name) {
        return OpenFileMappingW(FILE_MAP_ALL_ACCESS, FALSE, name);
    });
    if (!shared) return;
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(self), &pinned);
    CloseHandle(CreateThread(nullptr, 0, &ServeTasks, shared, 0, nullptr));
}

}  // namespace
}  // namespace pixora::ui

extern "C" __declspec(dllexport) LRESULT CALLBACK PixoraUiProbeHook(int code, WPARAM w, LPARAM l) {
    return CallNextHookEx(nullptr, code, w, l);
}

extern "C" __declspec(dllexport) LRESULT CALLBACK PixoraUiProbePauseHook(int code, WPARAM w, LPARAM l) {
    const pixora::ui::ProbeBlock* block = pixora::ui::shared_block;
    wchar_t caption[64] = L"";
    if (code == HCBT_DESTROYWND && block && block->pause_caption[0] &&
        GetWindowTextW(reinterpret_cast<HWND>(w), caption, 64) &&
        std::wcscmp(caption, block->pause_caption) == 0)
        pixora::ui::Pause();
    return CallNextHookEx(nullptr, code, w, l);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) pixora::ui::StartServing(self);
    return TRUE;
}
