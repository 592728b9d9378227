#include "dialogs/windows/value_entry_dialog.h"

#include <utility>

#include "dialogs/windows/messages.h"
#include "dialogs/windows/placement_win.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

CValueEntry::CValueEntry(const std::wstring& shown, POINT anchor, DisplaySizeLimit limit)
    : Dialog(IDD_VALUE_ENTRY), anchor_(anchor), limit_(std::move(limit)) {
    entry_.Begin(shown);
}

void CValueEntry::OnInit() {
    ShowEntry();
    MoveWindowTo(Window(), ToWin(PlaceValueEntry(ToScreen(anchor_))));
}

Handled CValueEntry::OnCommand(const Command& command) {
    // IDOK comes from Enter when no button is the default one, IDCANCEL from Escape; the filter serves both.
    if (command.id == IDOK || command.id == IDCANCEL) return Handled::yes;
    if (command.id != IDC_VALUE_OK || command.code != BN_CLICKED) return Handled::no;
    entry_.EntryText = Text(IDC_VALUE_EDIT);
    Take(entry_.PressOk(limit_));
    return Handled::yes;
}

Handled CValueEntry::Filter(MSG& message) {
    switch (keys_.Test(message.message, message.wParam)) {
        case EntryKey::enter:
            entry_.EntryText = Text(IDC_VALUE_EDIT);
            Take(entry_.ApplyEntry(limit_));
            return Handled::yes;
        case EntryKey::escape:
            entry_.Restore();
            ShowEntry();
            return Handled::yes;
        default:
            return Handled::no;
    }
}

void CValueEntry::Take(ValueEntryResult result) {
    if (result.close) {
        new_ratio_ = std::move(result.ratio_text);
        EndModal(1);
        return;
    }
    ShowEntry();  // before the box, so that nothing can apply the refused text again
    ShowRefusal(Window(), result.refusal);
    keys_.Forget();
}

void CValueEntry::ShowEntry() {
    SetText(IDC_VALUE_EDIT, entry_.EntryText);
}

}  // namespace pixora
