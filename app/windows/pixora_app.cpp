#include "app/windows/pixora_app.h"

#include <commctrl.h>

#include <array>
#include <utility>

#include "app/command_line.h"
#include "app/main_texts.h"
#include "app/windows/img_import.h"
#include "dialogs/windows/passive_windows.h"
#include "platform/message_box.h"
#include "platform/picture.h"
#include "resources/resource.h"

namespace pixora {

namespace {

/// The system sets the lower four bits of a system command itself.
constexpr WPARAM kSystemCommandBits = 0xFFF0;

}  // namespace

bool CPixoraApp::InitInstance() {
    // The eight classes of controls that version 4 of the library had.
    const INITCOMMONCONTROLSEX controls{sizeof controls, 0xFF};
    InitCommonControlsEx(&controls);
    // The visual style comes from the manifest; the program stores nothing in the registry.
    CPixoraDlg(GetCommandLineW()).RunModal(nullptr);
    return false;
}

CPixoraDlg::CPixoraDlg(std::wstring command_line)
    : Dialog(IDD_PIXORA), command_line_(std::move(command_line)) {}

void CPixoraDlg::OnInit() {
    AddAboutToSystemMenu();
    SetWindowIcons(Window(), IDI_PIXORA);
    // Before anything else: a second copy must not touch the files of the first one.
    if (IsOnlyCopy()) CImgImport(StartupPath(command_line_)).RunModal(nullptr);
    EndModal(IDOK);
}

void CPixoraDlg::AddAboutToSystemMenu() const {
    std::array<wchar_t, 128> text{};
    if (!LoadStringW(GetModuleHandleW(nullptr), IDS_ABOUTBOX, text.data(), static_cast<int>(text.size())))
        return;
    const HMENU menu = GetSystemMenu(Window(), FALSE);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, IDM_ABOUTBOX, text.data());
}

bool CPixoraDlg::IsOnlyCopy() const {
    // Held until the process ends, which releases it in every case.
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Pixora.exe");
    const bool exists = GetLastError() == ERROR_ALREADY_EXISTS;
    if (!mutex) {
        ShowPlainBox(nullptr, std::wstring(kOpeningError));
        return false;
    }
    if (exists) ShowPlainBox(nullptr, std::wstring(kAlreadyOpen));
    return !exists;
}

std::optional<LRESULT> CPixoraDlg::OnMessage(UINT message, WPARAM w, LPARAM) {
    if (message != WM_SYSCOMMAND || (w & kSystemCommandBits) != IDM_ABOUTBOX) return std::nullopt;
    CAboutBox().RunModal(Window());
    return 0;
}

}  // namespace pixora
