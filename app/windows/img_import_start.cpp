#include "app/command_line.h"
#include "app/main_placement.h"
#include "app/main_rules.h"
#include "app/main_texts.h"
#include "app/windows/img_import.h"
#include "dialogs/windows/placement_win.h"
#include "platform/folders.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

namespace {

/// How long Exit waits for the viewers to close by themselves.
constexpr ULONGLONG kExitPatience_ms = 1000;

}  // namespace

void CImgImport::StartFromSettings() {
    paths_ = DataPathsIn(ApplicationDataFolder());
    folders_ = {DocumentsFolder(), PicturesFolder()};
    CreateDataFolder(paths_);
    flags_ = {};
    StartedSettings started = StartSettings(paths_.settings_file, folders_);
    settings_ = std::move(started.settings);
    settings_usable_ = !started.unusable;
    if (started.created_default) ShowPlainBox(Window(), std::wstring(kDefaultFileCreated));
    DeleteTemporaryCopies(paths_.folder);
}

void CImgImport::OpenStartupPath() {
    if (OpensAtStart(startup_path_) && settings_usable_) OpenImage(FullPath(startup_path_));
}

void CImgImport::PlaceAtStart() {
    const ScreenPoint corner =
        PlaceMainWindow(settings_, ToScreen(PrimaryScreenSize()), ToScreen(SizeOf(ScreenRectangle(Window()))),
                        [](ScreenPoint point) { return IsOnMonitor(ToWin(point)); });
    MoveWindowTo(Window(), ToWin(corner));
}

void CImgImport::ShowSettingsFault() {
    if (stage_ != Stage::running) return;
    settings_usable_ = false;
    ShowPlainBox(Window(), SettingsFaultText(paths_.settings_file));
    BeginExit();
}

void CImgImport::BeginExit() {
    if (stage_ != Stage::running) return;
    stage_ = Stage::exiting;
    exit_position_ = RestoredPosition(Window());
    exit_deadline_ms_ = GetTickCount64() + kExitPatience_ms;
    RequestCloseAll(flags_);
    flags_.close_main_option = true;
    // What is modal would hold its window open. The code that runs it lies below this call and has to return
    // first; the rest is left to the ticks.
    CancelLaterModals();
}

void CImgImport::ContinueExit() {
    if (flags_.open_viewers > 0 && GetTickCount64() < exit_deadline_ms_) return;
    FinishExit();
}

void CImgImport::FinishExit() {
    if (stage_ == Stage::ended) return;
    if (stage_ == Stage::running) exit_position_ = RestoredPosition(Window());
    stage_ = Stage::ended;
    for (const auto& viewer : viewers_) viewer->Destroy();
    if (viewer_option_) viewer_option_->Destroy();
    if (region_style_) region_style_->Destroy();
    if (main_option_) main_option_->Destroy();
    DeleteTemporaryCopies(paths_.folder);
    if (settings_usable_) {
        StoreMainPosition(paths_.settings_file, settings_, exit_position_.x, exit_position_.y);
    }
    PostQuitMessage(0);
    EndModal(IDOK);
}

}  // namespace pixora
