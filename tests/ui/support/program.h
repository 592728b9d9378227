// pixora.exe under a person's hands: started, used and left.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/menu.h"
#include "tests/ui/support/picture.h"
#include "tests/ui/support/probe.h"
#include "tests/ui/support/process.h"

namespace pixora::ui {

/// How a test wants the program to start.
struct Start {
    std::wstring arguments = {};    ///< what follows the program's path and a blank; as it stands
    SettingValues settings = {};    ///< what differs from TestSettings()
    bool keep_data_folder = false;  ///< start with the data folder as it is; else an own, new one
    /// What is to be done before the main window shows, after the splash page.
    std::function<void(const Process&)> meanwhile = {};
};

/// One run of the program. Starting skips the splash page by closing it. A test ends with Exit().
class Program {
public:
    explicit Program(const Start& start = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] const Process& Running() const { return *process_; }
    [[nodiscard]] const Window& Main() const { return main_; }
    /// Control `id` of the main window.
    [[nodiscard]] Window Item(int id) const { return main_.Item(id); }
    [[nodiscard]] Probe& Inside();

    /// Posts the command of the main menu's item with this text.
    void Choose(std::wstring_view item);
    /// Opens an entry of the main window's menu bar with the mouse.
    [[nodiscard]] OpenMenu OpenMainMenu(std::wstring_view entry);

    /// Drops files on the main window.
    void Drop(const std::vector<std::filesystem::path>& files) { Inside().Drop(main_, files); }
    /// Drops one file and waits for its viewer, number 1 to 8.
    Window Open(const std::filesystem::path& file, int number = 1);

    /// Closes a viewer with the button in its caption.
    void Close(const Window& viewer);

    /// The viewer with this number, when it is to be seen.
    [[nodiscard]] std::optional<Window> FindViewer(int number) const;
    /// Waits for it and for its picture.
    Window WaitForViewer(int number);
    /// The captions of all viewers, in the order of their numbers.
    [[nodiscard]] std::vector<std::wstring> Viewers() const;
    /// What a viewer's client area shows.
    [[nodiscard]] Picture See(const Window& window) { return Inside().Capture(window); }

    /// Waits until a display copy stands in the data folder for exactly these slots, 0 to 7.
    void WaitForSlots(const std::vector<int>& slots) const;
    void WaitForTitle(const std::wstring& title) const;

    /// Leaves by File > Exit and checks that nothing is left: no window, no temporary copy, exit code 0.
    void Exit();
    /// The same checks for a program that was told to end in another way.
    void CheckEnded();

private:
    Window main_;
    std::unique_ptr<Process> process_;
    std::unique_ptr<Probe> probe_;
};

/// Control ids of the main window.
inline constexpr int kPathBox = 1173, kBrowse = 1300, kReload = 1303, kSizeLabel = 1296, kSizeBox = 1209,
                     kEdit = 1065;

/// What the path box shows for a path of Latin letters: up to 45 characters all of it, else five, five dots
/// and the last 36. A viewer's caption has five characters more.
[[nodiscard]] std::wstring ShownPath(const std::filesystem::path& path, std::size_t characters = 45);

[[nodiscard]] bool IsMainWindow(const Window& window);
[[nodiscard]] bool IsSplash(const Window& window);
/// A viewer's caption begins with its number in brackets.
[[nodiscard]] bool IsViewer(const Window& window);

/// Where a run leaves a picture of the screen when a test fails: the folder PIXORA_UI_SHOTS, if it is set.
void SaveFailureShot();

}  // namespace pixora::ui
