// The main window.
#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/main_texts.h"
#include "app/path_box.h"
#include "app/size_list.h"
#include "base/flags.h"
#include "image/image_buffer.h"
#include "platform/dialog.h"
#include "platform/gdi.h"
#include "settings/settings.h"
#include "settings/settings_changes.h"
#include "settings/windows/color_button.h"
#include "settings/windows/option_dialogs.h"
#include "viewer/windows/display.h"

namespace pixora {

/// The main window: opens image files, each in a viewer of its own, and owns what all windows share.
class CImgImport final : public Dialog {
public:
    /// @param startup_path  the file to open at start, if any.
    explicit CImgImport(std::wstring startup_path);
    ~CImgImport() override;

private:
    // img_import.cpp: the window and its messages
    void OnInit() override;
    Handled OnCommand(const Command& command) override;
    void OnTick() override;
    void OnDrop(HDROP drop) override;
    void OnClose() override { BeginExit(); }
    Handled Filter(MSG& message) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;
    Handled OnMenuCommand(int id);
    void PrepareMenu(HMENU menu) const;
    std::optional<LRESULT> PathBoxColour(HDC dc, HWND control) const;
    void ShowPathMenu(LPARAM position);
    void FreeClosedWindows();
    /// True while the window takes no orders: one of its boxes is up, or the end has begun.
    [[nodiscard]] bool Busy() const { return InModal() || stage_ != Stage::running; }

    // img_import_start.cpp: start-up and the end
    void StartFromSettings();
    void OpenStartupPath();
    void PlaceAtStart();
    void ShowSettingsFault();
    void BeginExit();
    void ContinueExit();
    void FinishExit();

    // img_import_open.cpp: the ways of opening a file
    bool OpenImage(const std::filesystem::path& path);
    bool CreateViewer(const ImageBuffer& image);
    void AskAndOpen();
    void Reload();
    void BeginPathEdit();
    void EndPathEdit(bool by_enter);
    void EnableOpening();
    void ShowPath();

    // img_import_settings.cpp: the display size box, the options and the questions
    void FillSizeList();
    void ChooseSize();
    void ApplyTypedSize();
    void ShowSize();
    void CloseAllFiles();
    void RestoreDefaults();
    template <typename OptionKind>
    void OpenOptions(std::unique_ptr<OptionKind>& dialog, bool SharedFlags::*open);

    std::wstring startup_path_;
    SharedFlags flags_;
    Settings settings_;
    MonitorFacts monitor_ = MeasureMonitor();
    DataPaths paths_;
    UserFolders folders_;
    PathBox path_box_;
    int size_index_ = kTypedSize;
    TitleKeeper title_;
    bool choosing_file_ = false;  ///< the open dialog is up

    enum class Stage { running, exiting, ended };
    Stage stage_ = Stage::running;
    bool settings_usable_ = true;
    ULONGLONG exit_deadline_ms_ = 0;
    POINT exit_position_{};

    CColorButton browse_, reload_, edit_;
    UniqueBrush edit_mode_brush_;
    /// The viewers, also those that are closing while the next image already has their slot.
    std::vector<std::unique_ptr<CDisplay>> viewers_;
    std::unique_ptr<CViewerOption> viewer_option_;
    std::unique_ptr<CRegionStyle> region_style_;
    std::unique_ptr<CMainOption> main_option_;
};

}  // namespace pixora
