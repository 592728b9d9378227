// Shows one of the program's message windows with any texts: the tests operate here what the program itself
// shows with other texts, or never.
//
//   pixora_ui_dialogs.exe KIND TEXT...
#include <windows.h>

#include <commctrl.h>

#include <new>
#include <string>
#include <vector>

#include "dialogs/windows/messages.h"
#include "resources/resource.h"

namespace {

using Texts = std::vector<std::wstring>;

/// A window whose OK button fails as nobody expects it to.
class Failing final : public pixora::Dialog {
public:
    Failing() : Dialog(IDD_CONFIRM_OK) {}

private:
    pixora::Handled OnCommand(const pixora::Command& command) override {
        if (command.id == IDOK) throw std::bad_alloc();
        return pixora::Handled::no;
    }
};

/// The message windows where the system puts them.
void ShowHere(const std::wstring& kind, const Texts& texts) {
    const pixora::Message message{texts.at(0), texts.at(1), texts.at(2), texts.at(3)};
    if (kind == L"error-here") pixora::CConfirmErr(pixora::ErrorBox(message), false).RunModal(nullptr);
    if (kind == L"information-here")
        pixora::CConfirmOK(pixora::InformationBox(message), false).RunModal(nullptr);
    if (kind == L"question-here")
        pixora::CConfirmYesCancel(pixora::QuestionBox(message), false).RunModal(nullptr);
    if (kind != L"notice-here") return;
    pixora::COneshotMsgPos notice(texts.at(0));
    notice.keep_position = true;
    notice.display_time_ms = 60'000;
    notice.RunModal(nullptr);
}

/// Exit code 1 for an accepted question.
int Show(const std::wstring& kind, const Texts& texts) {
    if (kind.ends_with(L"-here")) {
        ShowHere(kind, texts);
        return 0;
    }
    const auto message = [&] { return pixora::Message{texts.at(0), texts.at(1), texts.at(2), texts.at(3)}; };
    if (kind == L"failing") Failing().RunModal(nullptr);
    if (kind == L"error") pixora::ShowErrorBox(nullptr, texts.at(0), texts.at(1), texts.at(2), texts.at(3));
    if (kind == L"information") pixora::ShowInformation(nullptr, message());
    if (kind == L"question") return pixora::AskYesCancel(nullptr, message()) ? 1 : 0;
    if (kind == L"notice") pixora::ShowOneshotMessage(nullptr, texts.at(0));
    if (kind == L"range") {
        pixora::InputError input{.ErrorKind = std::stoi(texts.at(0)),
                                 .CheckMode = std::stoi(texts.at(1)),
                                 .InputText = texts.at(2),
                                 .Limit1 = std::stoi(texts.at(3)),
                                 .Limit2 = std::stoi(texts.at(4)),
                                 .ItemName = texts.at(5)};
        if (!pixora::CheckValue(input)) pixora::CPX_Error(input).RunModal(nullptr);
    }
    return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const INITCOMMONCONTROLSEX controls{sizeof controls, 0xFF};
    InitCommonControlsEx(&controls);
    if (count < 2) return 2;
    return Show(arguments[1], Texts(arguments + 2, arguments + count));
}
