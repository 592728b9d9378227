#include "settings/windows/option_dialogs.h"

#include <string>
#include <utility>

#include "dialogs/windows/placement_win.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "settings/option_placement.h"

namespace pixora {

OptionWindow::OptionWindow(int template_id, OptionDialog kind, WindowKind hide_kind,
                           bool SharedFlags::*open_flag, OptionContext context)
    : Dialog(template_id),
      kind_(kind),
      hide_kind_(hide_kind),
      open_flag_(open_flag),
      context_(std::move(context)),
      buttons_(kind) {}

bool OptionWindow::Open(HWND main_window) {
    if (!CreateModeless(main_window)) return false;
    Place(main_window);
    ShowWindow(Window(), SW_SHOW);
    return true;
}

void OptionWindow::Place(HWND main_window) const {
    const ScreenPoint corner = PlaceOptionDialog(kind_, ToScreen(ScreenRectangle(main_window)),
                                                 ToScreen(SizeOf(ScreenRectangle(Window()))),
                                                 ToScreen(WorkAreaOf(main_window)), CaptionHeight(Window()));
    MoveWindowTo(Window(), ToWin(corner));
}

void OptionWindow::BringToFront() const {
    SetWindowPos(Window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    SetForegroundWindow(Window());
}

void OptionWindow::OnInit() {
    SetWindowPos(Window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetCaption(std::wstring(OptionCaption(kind_)));
    // Else a radio button counts as clicked as soon as it gets the keyboard focus.
    for (const OptionChoice& choice : OptionChoices(kind_)) {
        SendMessageW(Item(choice.control), BM_SETDONTCLICK, TRUE, 0);
    }
    Flags().*open_flag_ = true;
    ShowSettings();
    StartTicking();
}

void OptionWindow::ShowSettings() {
    buttons_.Begin(*context_.settings);
    ShowStates();
}

void OptionWindow::ShowStates() const {
    for (const OptionChoice& choice : OptionChoices(kind_)) {
        CheckDlgButton(Window(), choice.control, buttons_.IsOn(choice.control) ? BST_CHECKED : BST_UNCHECKED);
        // A radio button that is off loses its tab stop, and with it the only way to it by keyboard.
        const HWND button = Item(choice.control);
        SetWindowLongPtrW(button, GWL_STYLE, GetWindowLongPtrW(button, GWL_STYLE) | WS_TABSTOP);
    }
    InvalidateRect(Window(), nullptr, TRUE);
}

Handled OptionWindow::OnCommand(const Command& command) {
    if (command.id == IDCANCEL) {  // Escape
        Destroy();
        return Handled::yes;
    }
    if (command.code != BN_CLICKED || !buttons_.Click(command.id, *context_.settings)) return Handled::no;
    ShowStates();
    const bool saved = SaveOptions(kind_, context_.settings_path, *context_.settings);
    if (RedrawsViewers(kind_, command.id)) Flags().redraw_viewer.fill(true);
    if (!saved) ShowPlainBox(Window(), std::wstring(kSaveNotComplete));
    return Handled::yes;
}

void OptionWindow::OnTick() {
    ShowUnless(Flags().Hidden(hide_kind_));
}

CViewerOption::CViewerOption(OptionContext context)
    : OptionWindow(IDD_VIEWER_OPTION, OptionDialog::viewer_option, WindowKind::viewer_option,
                   &SharedFlags::viewer_option_open, std::move(context)) {}

CRegionStyle::CRegionStyle(OptionContext context)
    : OptionWindow(IDD_REGION_STYLE, OptionDialog::region_style, WindowKind::region_style,
                   &SharedFlags::region_style_open, std::move(context)) {}

CMainOption::CMainOption(OptionContext context)
    : OptionWindow(IDD_MAIN_OPTION, OptionDialog::main_option, WindowKind::main_option,
                   &SharedFlags::main_option_open, std::move(context)) {}

void CMainOption::OnTick() {
    OptionWindow::OnTick();
    if (std::exchange(Flags().reload_main_option, false)) ShowSettings();
    if (Flags().close_main_option && !InModal()) {
        Flags().close_main_option = false;
        Destroy();  // clears the open flag
    }
}

}  // namespace pixora
