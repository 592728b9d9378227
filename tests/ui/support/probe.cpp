#include "tests/ui/support/probe.h"

#include <cstring>
#include <iterator>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

namespace pixora::ui {
namespace {

std::wstring NameFor(const wchar_t* format, DWORD process_id) {
    wchar_t name[64];
    wsprintfW(name, format, process_id);
    return name;
}

/// The DLL in the tests' own process; only the place of its hook procedure is of use here.
HMODULE OwnCopy() {
    static HMODULE copy = LoadLibraryW(ProbePath().c_str());
    return copy;
}

HOOKPROC HookProcedure(const char* name) {
    const FARPROC procedure = OwnCopy() ? GetProcAddress(OwnCopy(), name) : nullptr;
    if (!procedure) throw UiError("the probe could not be loaded: " + Narrow(ProbePath().wstring()));
    return reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(procedure));
}

}  // namespace

Probe::Probe(const Window& window) {
    const DWORD id = window.ProcessId();
    mapping_ = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(ProbeBlock),
                                  NameFor(kProbeBlockName, id).c_str());
    task_ = CreateEventW(nullptr, FALSE, FALSE, NameFor(kProbeTaskName, id).c_str());
    done_ = CreateEventW(nullptr, FALSE, FALSE, NameFor(kProbeDoneName, id).c_str());
    if (mapping_) block_ = static_cast<ProbeBlock*>(MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, 0));
    if (!block_ || !task_ || !done_) throw UiError("there is no memory for the probe");
    Load(window);
}

Probe::~Probe() {
    if (block_) UnmapViewOfFile(block_);
    for (HANDLE handle : {mapping_, task_, done_})
        if (handle) CloseHandle(handle);
}

void Probe::Load(const Window& window) {
    WatchStep("loading the probe");
    const DWORD thread = GetWindowThreadProcessId(window.Handle(), nullptr);
    HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, HookProcedure(kProbeHook), OwnCopy(), thread);
    if (!hook) throw UiError("the program does not take the probe");
    window.Post(WM_NULL);  // the next message that the program takes loads the DLL
    try {
        Run(ProbeTask::nothing);
    } catch (...) {
        UnhookWindowsHookEx(hook);
        throw;
    }
    UnhookWindowsHookEx(hook);
}

void Probe::Run(ProbeTask task) {
    WatchStep("asking the probe");
    block_->task = task;
    SetEvent(task_);
    WaitFor("the probe's answer", [this] { return WaitForSingleObject(done_, 20) == WAIT_OBJECT_0; });
    if (block_->count < 0)
        throw UiError("the probe failed in its task " + std::to_string(static_cast<unsigned>(task)));
}

std::vector<ProbeMenuItem> Probe::ReadItems() const {
    const auto* items = reinterpret_cast<const ProbeMenuItem*>(block_->data);
    return std::vector<ProbeMenuItem>(items, items + block_->count);
}

std::vector<ProbeMenuItem> Probe::MenuBar(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    block_->menu = 0;
    Run(ProbeTask::menu);
    return ReadItems();
}

std::vector<ProbeMenuItem> Probe::SystemMenu(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    Run(ProbeTask::system_menu);
    return ReadItems();
}

int Probe::Icons(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    Run(ProbeTask::icons);
    return block_->count;
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

LOGFONTW Probe::Font(const Window& control) {
    block_->window = reinterpret_cast<std::uint64_t>(control.Handle());
    Run(ProbeTask::font);
    return *reinterpret_cast<const LOGFONTW*>(block_->data);
}

HandleCounts Probe::Handles() {
    Run(ProbeTask::handles);
    return *reinterpret_cast<const HandleCounts*>(block_->data);
}

void Probe::Watch(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    Run(ProbeTask::watch);
}

WindowCounts Probe::Watched(const Window& window) {
    block_->window = reinterpret_cast<std::uint64_t>(window.Handle());
    Run(ProbeTask::watched);
    return *reinterpret_cast<const WindowCounts*>(block_->data);
}

CallCounts Probe::CountedCalls() {
    Run(ProbeTask::counted_calls);
    return *reinterpret_cast<const CallCounts*>(block_->data);
}

double Probe::ProcessorTime_s() {
    Run(ProbeTask::times);
    return static_cast<double>(*reinterpret_cast<const std::uint64_t*>(block_->data)) * 1e-7;
}

PauseBeforeEnd::PauseBeforeEnd(Probe& probe, const Window& main, std::wstring_view caption) : probe_(probe) {
    const DWORD id = main.ProcessId();
    paused_ = CreateEventW(nullptr, FALSE, FALSE, NameFor(kProbePausedName, id).c_str());
    resume_ = CreateEventW(nullptr, FALSE, FALSE, NameFor(kProbeResumeName, id).c_str());
    caption.copy(probe_.block_->pause_caption, std::size(probe_.block_->pause_caption) - 1);
    hook_ = SetWindowsHookExW(WH_CBT, HookProcedure(kProbePauseHook), OwnCopy(),
                              GetWindowThreadProcessId(main.Handle(), nullptr));
    if (!paused_ || !resume_ || !hook_) throw UiError("the program cannot be stopped at a window's end");
}

PauseBeforeEnd::~PauseBeforeEnd() {
    std::memset(probe_.block_->pause_caption, 0, sizeof probe_.block_->pause_caption);
    GoOn();
    UnhookWindowsHookEx(hook_);
    CloseHandle(paused_);
    CloseHandle(resume_);
}

bool PauseBeforeEnd::Reached() const {
    return WaitForSingleObject(paused_, 0) == WAIT_OBJECT_0;
}

void PauseBeforeEnd::GoOn() const {
    SetEvent(resume_);
}

}  // namespace pixora::ui
