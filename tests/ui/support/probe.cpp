#include "tests/ui/support/probe.h"

#include <psapi.h>

#include <cstring>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {
namespace {

/// Where `path` is loaded in `process`.
const char* ModuleBase(HANDLE process, const std::filesystem::path& path) {
    HMODULE modules[512];
    DWORD bytes = 0;
    if (!EnumProcessModules(process, modules, sizeof modules, &bytes)) return nullptr;
    for (DWORD i = 0; i < bytes / sizeof(HMODULE); ++i) {
        wchar_t name[MAX_PATH] = L"";
        GetModuleBaseNameW(process, modules[i], name, MAX_PATH);
        if (_wcsicmp(name, path.filename().c_str()) == 0) return reinterpret_cast<const char*>(modules[i]);
    }
    return nullptr;
}

/// How far behind the DLL's start its entry lies.
std::ptrdiff_t EntryOffset(const std::filesystem::path& path) {
    static HMODULE own = LoadLibraryW(path.c_str());
    const FARPROC entry = own ? GetProcAddress(own, kProbeEntry) : nullptr;
    if (!entry) throw UiError("the probe could not be loaded: " + Narrow(path.wstring()));
    return reinterpret_cast<const char*>(entry) - reinterpret_cast<const char*>(own);
}

}  // namespace

Probe::Probe(HANDLE process, DWORD process_id) : process_(process) {
    wchar_t name[64];
    wsprintfW(name, kProbeBlockName, process_id);
    mapping_ = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(ProbeBlock), name);
    if (mapping_) block_ = static_cast<ProbeBlock*>(MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, 0));
    if (!block_) throw UiError("there is no memory for the probe");
    Load();
}

Probe::~Probe() {
    if (block_) UnmapViewOfFile(block_);
    if (mapping_) CloseHandle(mapping_);
}

void Probe::Load() {
    const std::filesystem::path path = ProbePath();
    const std::ptrdiff_t offset = EntryOffset(path);
    const std::wstring text = path.wstring();
    const SIZE_T bytes = (text.size() + 1) * sizeof(wchar_t);
    void* there = VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT, PAGE_READWRITE);
    if (!there || !WriteProcessMemory(process_, there, text.c_str(), bytes, nullptr))
        throw UiError("the probe's name could not be handed over");
    // The system's own DLLs lie at the same address in every process.
    (void)CallInside(reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(&LoadLibraryW)), there);
    VirtualFreeEx(process_, there, 0, MEM_RELEASE);
    const char* base = ModuleBase(process_, path);
    if (!base) throw UiError("the program did not load the probe");
    entry_ = reinterpret_cast<LPTHREAD_START_ROUTINE>(const_cast<char*>(base + offset));
}

DWORD Probe::CallInside(LPTHREAD_START_ROUTINE function, void* argument) {
    WatchStep("asking the probe");
    HANDLE thread = CreateRemoteThread(process_, nullptr, 0, function, argument, 0, nullptr);
    if (!thread) throw UiError("the probe could not be called");
    const bool ended = WaitForSingleObject(thread, kPatience_ms) == WAIT_OBJECT_0;
    DWORD code = 1;
    GetExitCodeThread(thread, &code);
    CloseHandle(thread);
    if (!ended) throw UiError("the probe did not answer");
    return code;
}

void Probe::Run(ProbeTask task) {
    block_->task = task;
    if (CallInside(entry_, nullptr) != 0 || block_->count < 0)
        throw UiError("the probe failed in its task " + std::to_string(static_cast<unsigned>(task)));
}

std::vector<ProbeMenuItem> Probe::ReadItems() {
    const auto* items = reinterpret_cast<const ProbeMenuItem*>(block_->data);
    return std::vector<ProbeMenuItem>(items, items + block_->count);
}

std::vector<ProbeMenuItem> Probe::MenuBar(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    block_->menu = 0;
    Run(ProbeTask::menu);
    return ReadItems();
}

std::vector<ProbeMenuItem> Probe::PopupItems(HMENU menu) {
    block_->menu = reinterpret_cast<std::uint64_t>(menu);
    Run(ProbeTask::menu);
    return ReadItems();
}

void Probe::Drop(const Window& window, const std::vector<std::filesystem::path>& files) {
    std::wstring names;
    for (const std::filesystem::path& file : files) names += file.wstring() + L'\0';
    std::memcpy(block_->data, names.c_str(), (names.size() + 1) * sizeof(wchar_t));
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    Run(ProbeTask::drop);
}

Picture Probe::Capture(const Window& window) {
    const RECT client = window.Client();
    Picture picture(client.right - client.left, client.bottom - client.top);
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    block_->x = block_->y = 0;
    block_->width = picture.width;
    block_->height = picture.height;
    Run(ProbeTask::capture);
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(block_->data);
    for (std::uint32_t& pixel : picture.pixels) pixel = *pixels++ & 0xFFFFFF;
    return picture;
}

std::vector<std::wstring> Probe::Tooltips(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    Run(ProbeTask::tooltips);
    const auto* texts = reinterpret_cast<const wchar_t(*)[256]>(block_->data);
    return std::vector<std::wstring>(texts, texts + block_->count);
}

}  // namespace pixora::ui
