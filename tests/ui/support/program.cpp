#include "tests/ui/support/program.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <exception>

#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"

namespace pixora::ui {
namespace {

bool IsDialog(const Window& window) {
    return window.Class() == L"#32770";
}

/// Waits for the main window; closes the splash page before.
Window WaitForMain(const Process& process, const std::function<void(const Process&)>& meanwhile) {
    const Window splash = process.WaitForWindow("the splash page", IsSplash);
    splash.Post(WM_CLOSE);
    WaitFor("the splash page to close", [&] { return !splash.Exists(); });
    if (meanwhile) meanwhile(process);
    const Window main = process.WaitForWindow("the main window", IsMainWindow);
    // The first tick replaces the template's caption: from now on the window answers.
    WaitFor("the main window's title",
            [&] { return main.Text().rfind(L"Pixora [", 0) == std::wstring::npos; });
    return main;
}

}  // namespace

std::wstring ShownPath(const std::filesystem::path& path, std::size_t characters) {
    const std::wstring text = path.wstring();
    if (text.size() <= characters) return text;
    // One more than fits: the character that crosses the limit stays.
    return text.substr(0, 5) + L"....." + text.substr(text.size() - (characters - 9));
}

bool IsMainWindow(const Window& window) {
    return IsDialog(window) && window.FindItem(kReload) && window.FindItem(kSizeBox);
}

bool IsSplash(const Window& window) {
    constexpr int kVersion = 1165, kAboutOk = IDOK;
    return IsDialog(window) && window.FindItem(kVersion) && !window.FindItem(kAboutOk);
}

bool IsViewer(const Window& window) {
    const std::wstring caption = window.Text();
    return IsDialog(window) && caption.size() > 4 && caption[0] == L'[' && caption.substr(2, 3) == L" ] ";
}

Program::Program(const Start& start) {
    ReleaseAll();
    if (!start.keep_data_folder) {
        DeleteDataFolder();
        WriteSettings(start.settings);
    }
    std::wstring command = QuotedProgram();
    if (!start.arguments.empty()) command += L' ' + start.arguments;
    process_ = std::make_unique<Process>(command);
    SetWatch([this] { process_->CheckAlive(); });
    try {
        main_ = WaitForMain(*process_, start.meanwhile);
    } catch (...) {
        SetWatch(nullptr);
        SaveFailureShot();
        throw;
    }
}

Program::~Program() {
    SetWatch(nullptr);
    if (std::uncaught_exceptions() > 0) SaveFailureShot();
}

Probe& Program::Inside() {
    if (!probe_) probe_ = std::make_unique<Probe>(main_);
    return *probe_;
}

void Program::Choose(std::wstring_view item) {
    main_.Command(CommandOf(Inside().MenuBar(main_), item));
}

OpenMenu Program::OpenMainMenu(std::wstring_view entry) {
    return OpenFromBar(*process_, Inside(), main_, entry);
}

Window Program::Open(const std::filesystem::path& file, int number) {
    Drop({file});
    return WaitForViewer(number);
}

std::optional<Window> Program::FindViewer(int number) const {
    return process_->FindWindow([number](const Window& window) {
        return IsViewer(window) && window.Text()[1] == static_cast<wchar_t>(L'0' + number);
    });
}

Window Program::WaitForViewer(int number) {
    const Window viewer = WaitForSome("viewer " + std::to_string(number), [&] { return FindViewer(number); });
    // The window shows at its second tick and is laid out at one of its ticks.
    WaitFor("the viewer's layout", [&] { return viewer.Text().find(L"%)") != std::wstring::npos; });
    return viewer;
}

void Program::Close(const Window& viewer) {
    ClickCloseButton(viewer);
    WaitFor("the viewer to close", [&] { return !viewer.Exists(); });
}

std::vector<std::wstring> Program::Viewers() const {
    std::vector<std::wstring> captions;
    for (const Window& window : process_->Windows())
        if (IsViewer(window)) captions.push_back(window.Text());
    std::sort(captions.begin(), captions.end());
    return captions;
}

void Program::WaitForSlots(const std::vector<int>& slots) const {
    std::vector<std::wstring> wanted;
    for (const int slot : slots) wanted.push_back(L"import_img_0" + std::to_wstring(slot) + L".bmp");
    WaitFor("the slots' display copies", [&] {
        std::vector<std::wstring> copies = TemporaryCopies();
        std::erase_if(copies,
                      [](const std::wstring& name) { return name.find(L".bmp") == std::wstring::npos; });
        return copies == wanted;
    });
}

void Program::WaitForTitle(const std::wstring& title) const {
    WaitFor("the title \"" + Narrow(title) + '"', [&] { return main_.Text() == title; });
}

void Program::Exit() {
    process_->CheckAlive();
    Choose(L"Exit (&E)");
    CheckEnded();
}

void Program::CheckEnded() {
    SetWatch(nullptr);
    CHECK(process_->WaitForEnd() == 0);
    CHECK(process_->Windows().empty());
    CHECK(TemporaryCopies() == std::vector<std::wstring>{});
}

void SaveFailureShot() {
    wchar_t folder[MAX_PATH] = L"";
    if (!GetEnvironmentVariableW(L"PIXORA_UI_SHOTS", folder, MAX_PATH)) return;
    static int number = 0;
    try {
        const std::wstring name = L"failure-" + std::to_wstring(++number) + L".bmp";
        SavePicture(std::filesystem::path(folder) / name,
                    CaptureScreen(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    } catch (const UiError&) {
        // A missing picture changes nothing about the failure itself.
    }
}

}  // namespace pixora::ui
