#include "app/main_rules.h"
#include "app/main_texts.h"
#include "app/windows/img_import.h"
#include "dialogs/value_check.h"
#include "dialogs/windows/messages.h"
#include "resources/resource.h"

namespace pixora {

void CImgImport::FillSizeList() {
    for (int index = 0; index < kListedSizes; ++index) {
        SendDlgItemMessageW(Window(), IDC_MAIN_SIZE, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(SizeItemText(index).c_str()));
    }
    size_index_ = ItemOfRatio(settings_.IMG_SIZE);
    ShowSize();
}

void CImgImport::ShowSize() {
    SendDlgItemMessageW(Window(), IDC_MAIN_SIZE, CB_SETCURSEL, static_cast<WPARAM>(size_index_), 0);
    if (size_index_ == kTypedSize) SetText(IDC_MAIN_SIZE, SizeBoxText(settings_.IMG_SIZE));
}

void CImgImport::ChooseSize() {
    size_index_ = static_cast<int>(SendDlgItemMessageW(Window(), IDC_MAIN_SIZE, CB_GETCURSEL, 0, 0));
    StoreListedDisplaySize(paths_.settings_file, settings_, RatioOfItem(size_index_));
}

void CImgImport::ApplyTypedSize() {
    SendDlgItemMessageW(Window(), IDC_MAIN_SIZE, CB_SHOWDROPDOWN, FALSE, 0);
    const std::wstring typed = Text(IDC_MAIN_SIZE);
    const DisplaySizeCheck check = ValidateDisplaySizeText(typed);
    if (!IsAccepted(check)) {
        ShowSize();  // before the box, so that nothing can apply the refused text again
        ShowRefusal(Window(), check);
        return;
    }
    size_index_ = kTypedSize;
    StoreTypedDisplaySize(paths_.settings_file, settings_, NormaliseDisplaySize(typed));
    flags_.refresh_main = true;
}

template <typename OptionKind>
void CImgImport::OpenOptions(std::unique_ptr<OptionKind>& dialog, bool SharedFlags::*open) {
    if (dialog && flags_.*open) {
        dialog->BringToFront();
        return;
    }
    dialog = std::make_unique<OptionKind>(OptionContext{&flags_, &settings_, paths_.settings_file});
    if (!dialog->Open(Window())) dialog.reset();
}
template void CImgImport::OpenOptions(std::unique_ptr<CViewerOption>&, bool SharedFlags::*);
template void CImgImport::OpenOptions(std::unique_ptr<CRegionStyle>&, bool SharedFlags::*);
template void CImgImport::OpenOptions(std::unique_ptr<CMainOption>&, bool SharedFlags::*);

void CImgImport::CloseAllFiles() {
    if (!AnyViewerOpen(flags_)) return;
    if (AskYesCancel(Window(), CloseAllQuestion())) RequestCloseAll(flags_);
}

void CImgImport::RestoreDefaults() {
    if (!AskYesCancel(Window(), RestoreDefaultsQuestion())) return;
    RestoreDefaultSettings(paths_.settings_file, folders_, settings_);
    size_index_ = ItemOfRatio(settings_.IMG_SIZE);  // the box itself goes on showing what it does
    flags_.reload_main_option = true;
    ShowInformation(Window(), DefaultsRestoredNotice());
}

}  // namespace pixora
