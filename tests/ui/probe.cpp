// A DLL that the tests load into the program, for what cannot be seen or done from outside: menus belong to
// their process, dropped files are handed over in memory of the target, and only the process itself can read
// the pixels of a covered window. It changes nothing in the program.
#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <cstring>

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

bool Serve(ProbeBlock& block) {
    HWND window = reinterpret_cast<HWND>(block.window);
    block.count = 0;
    switch (block.task) {
        case ProbeTask::menu:
            if (block.menu)
                ListMenu(block, nullptr, reinterpret_cast<HMENU>(block.menu), 0);
            else
                ListMenu(block, window, GetMenu(window), 0);
            return true;
        case ProbeTask::drop:
            return Drop(block, window);
        case ProbeTask::capture:
            return Capture(block, window);
        case ProbeTask::tooltips:
            ListTooltips(block, window);
            return true;
    }
    return false;
}

}  // namespace
}  // namespace pixora::ui

extern "C" __declspec(dllexport) DWORD WINAPI PixoraUiProbe(void*) {
    using namespace pixora::ui;
    wchar_t name[64];
    wsprintfW(name, kProbeBlockName, GetCurrentProcessId());
    HANDLE mapping = OpenFileMappingW(FILE_MAP_ALL_ACCESS, FALSE, name);
    if (!mapping) return 1;
    auto* block = static_cast<ProbeBlock*>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0));
    if (block) {
        if (!Serve(*block)) block->count = -1;
        UnmapViewOfFile(block);
    }
    CloseHandle(mapping);
    return block ? 0 : 1;
}
