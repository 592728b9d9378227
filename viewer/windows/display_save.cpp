#include "dialogs/windows/messages.h"
#include "platform/file_dialog.h"
#include "platform/screen.h"
#include "settings/settings_changes.h"
#include "viewer/region_file.h"
#include "viewer/windows/display.h"

namespace pixora {

void CDisplay::SaveRegionImage() {
    if (!state_->region_on) return;
    const Region region = state_->region;  // the one that the file is named after; a view may change it
    FileDialogRequest request;
    request.owner = Window();
    request.filter = kRegionFilter;
    request.initial_name = ProposedRegionPath(state_->image, region, context_.settings->PATH_SAVE);
    request.initial_folder = UsableFolder(context_.settings->PATH_SAVE);
    request.default_extension = RegionFileExtension(state_->image);
    const std::optional<std::filesystem::path> chosen = AskForFileToSave(request);
    if (!chosen) return;
    const bool saved = [&] {
        const BusyCursor busy;
        return SaveRegionOf(*state_, region, *chosen);
    }();
    if (!saved) return ShowErrorBox(Window(), RegionNotSaved(*chosen));
    StoreSaveFolder(context_.settings_path, *context_.settings, SaveFolderOf(*chosen));
    ShowOneshotMessage(Window(), std::wstring(kRegionSaved));
}

}  // namespace pixora
