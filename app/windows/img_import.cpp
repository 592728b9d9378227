#include "app/windows/img_import.h"

#include <utility>

#include "app/main_rules.h"
#include "dialogs/windows/passive_windows.h"
#include "platform/clipboard.h"
#include "platform/menu.h"
#include "platform/picture.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

namespace {

/// Posted to the main window when the settings file turns out to be unusable.
constexpr UINT kSettingsFaultMessage = WM_APP + 1;
/// The path box and its button while the path is edited.
constexpr COLORREF kEditModeColour = RGB(255, 248, 200);

}  // namespace

CImgImport::CImgImport(std::wstring startup_path)
    : Dialog(IDD_IMG_IMPORT),
      startup_path_(std::move(startup_path)),
      edit_mode_brush_(CreateSolidBrush(kEditModeColour)) {}

CImgImport::~CImgImport() {
    SetSettingsFaultHandler(nullptr);
}

void CImgImport::OnInit() {
    SetWindowIcons(Window(), IDI_PIXORA);
    CSplashPage().RunModal(nullptr);
    browse_.Attach(Item(IDC_MAIN_BROWSE));
    reload_.Attach(Item(IDC_MAIN_RELOAD));
    edit_.Attach(Item(IDC_MAIN_EDIT));
    ForwardContextMenu(Item(IDC_MAIN_PATH));
    DragAcceptFiles(Window(), TRUE);
    SetSettingsFaultHandler([window = Window()](const std::filesystem::path&) {
        PostMessageW(window, kSettingsFaultMessage, 0, 0);  // the box must not interrupt what found the fault
    });
    StartFromSettings();
    FillSizeList();
    OpenStartupPath();
    PlaceAtStart();
    path_box_.Empty();
    ShowPath();
    StartTicking();
}

Handled CImgImport::OnCommand(const Command& command) {
    // A command that was on its way when a box or the end began comes too late.
    if (command.id != IDM_FILE_EXIT && Busy()) return Handled::yes;
    switch (command.id) {
        case IDOK:
        case IDCANCEL:
            return Handled::yes;  // Enter and Escape never close the window
        case IDC_MAIN_BROWSE:
            AskAndOpen();
            return Handled::yes;
        case IDC_MAIN_RELOAD:
            Reload();
            return Handled::yes;
        case IDC_MAIN_EDIT:
            if (path_box_.Editing()) {
                EndPathEdit(false);
            } else {
                BeginPathEdit();
            }
            return Handled::yes;
        case IDC_MAIN_SIZE:
            if (command.code == CBN_SELCHANGE) ChooseSize();
            return Handled::yes;
        default:
            return OnMenuCommand(command.id);
    }
}

Handled CImgImport::OnMenuCommand(int id) {
    switch (id) {
        case IDM_FILE_OPEN:
            AskAndOpen();
            return Handled::yes;
        case IDM_FILE_CLOSE_ALL:
            CloseAllFiles();
            return Handled::yes;
        case IDM_FILE_RESTORE_DEFAULTS:
            RestoreDefaults();
            return Handled::yes;
        case IDM_FILE_EXIT:
            BeginExit();
            return Handled::yes;
        case IDM_OPTION_VIEWER:
            OpenOptions(viewer_option_, &SharedFlags::viewer_option_open);
            return Handled::yes;
        case IDM_OPTION_REGION_STYLE:
            OpenOptions(region_style_, &SharedFlags::region_style_open);
            return Handled::yes;
        case IDM_OPTION_MAIN:
            OpenOptions(main_option_, &SharedFlags::main_option_open);
            return Handled::yes;
        case IDM_HELP_ABOUT:
            CAboutBox().RunModal(Window());
            return Handled::yes;
        default:
            return Handled::no;
    }
}

Handled CImgImport::Filter(MSG& message) {
    const MainKey key = FilterMainKey(message.message, message.wParam, path_box_.Editing());
    if (key != MainKey::pass && Busy()) return Handled::yes;
    switch (key) {
        case MainKey::swallow:
            return Handled::yes;
        case MainKey::apply_size:
            ApplyTypedSize();
            return Handled::yes;
        case MainKey::leave_path_edit:
            EndPathEdit(true);
            return Handled::yes;
        default:
            return Handled::no;
    }
}

void CImgImport::OnTick() {
    if (stage_ == Stage::exiting) {
        ContinueExit();
        return;
    }
    FreeClosedWindows();
    if (const auto title = title_.Update(flags_.open_viewers)) SetCaption(*title);
    if (std::exchange(flags_.refresh_main, false)) {
        size_index_ = kTypedSize;  // only typed sizes and those of a viewer ask for it
        ShowSize();
    }
}

void CImgImport::FreeClosedWindows() {
    std::erase_if(viewers_, [](const auto& viewer) { return viewer->Gone() && !viewer->InModal(); });
    const auto free = [](auto& dialog) {
        if (dialog && !dialog->Window() && !dialog->InModal()) dialog.reset();
    };
    free(viewer_option_);
    free(region_style_);
    free(main_option_);
}

void CImgImport::OnDrop(HDROP drop) {
    if (Busy()) return;
    const UINT length = DragQueryFileW(drop, 0, nullptr, 0);  // of several files the first one alone
    std::wstring path(length, L'\0');
    DragQueryFileW(drop, 0, path.data(), length + 1);
    OpenImage(path);
}

std::optional<LRESULT> CImgImport::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_DRAWITEM:
            if (DrawColorButton(l, {&browse_, &reload_, &edit_})) return TRUE;
            return std::nullopt;
        case WM_CTLCOLOREDIT:
            return PathBoxColour(reinterpret_cast<HDC>(w), reinterpret_cast<HWND>(l));
        case WM_INITMENUPOPUP:
            PrepareMenu(reinterpret_cast<HMENU>(w));
            return 0;
        case WM_CONTEXTMENU:
            if (reinterpret_cast<HWND>(w) != Item(IDC_MAIN_PATH)) return std::nullopt;
            ShowPathMenu(l);
            return 0;
        case WM_SIZE:
            OnMainSize(flags_, w == SIZE_MINIMIZED);
            return std::nullopt;
        case WM_ENDSESSION:
            if (w) FinishExit();  // the process ends as soon as this message is answered
            return 0;
        case kSettingsFaultMessage:
            ShowSettingsFault();
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> CImgImport::PathBoxColour(HDC dc, HWND control) const {
    if (control != Item(IDC_MAIN_PATH) || !path_box_.Editing()) return std::nullopt;
    SetBkColor(dc, kEditModeColour);
    return reinterpret_cast<LRESULT>(edit_mode_brush_.Get());
}

void CImgImport::PrepareMenu(HMENU menu) const {
    EnableMenuItem(menu, IDM_FILE_CLOSE_ALL, AnyViewerOpen(flags_) ? MF_ENABLED : MF_GRAYED);
    EnableMenuItem(menu, IDM_FILE_OPEN, path_box_.Editing() ? MF_GRAYED : MF_ENABLED);
}

void CImgImport::ShowPathMenu(LPARAM position) {
    const UniqueMenu menu(CreatePopupMenu());
    AppendMenuW(menu.get(), MF_STRING, IDM_PATH_COPY, std::wstring(kCopyPathItem).c_str());
    static_cast<void>(TrackPopup(Window(), menu.get(), MenuPosition(Item(IDC_MAIN_PATH), position)));
    // Deliberate: the path is copied whether or not the item was chosen.
    if (const auto path = path_box_.ClipboardText()) PutTextOnClipboard(Window(), *path);
}

}  // namespace pixora
