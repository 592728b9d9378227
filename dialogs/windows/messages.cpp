#include "dialogs/windows/messages.h"

#include <utility>

#include "dialogs/windows/placement_win.h"
#include "platform/picture.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

namespace {

constexpr UINT_PTR kCloseTimer = 2;

/// Moves a line to another height; it keeps its left edge and its size.
void MoveLine(HWND line, int top) {
    const RECT now = ClientRectangleOf(line);
    MoveWindowTo(line, {now.left, ScaleForDpi(line, top)});
}

}  // namespace

void CentreOnScreen(HWND dialog) {
    const SIZE size = SizeOf(ScreenRectangle(dialog));
    MoveWindowTo(dialog, ToWin(PlaceCentred(ToScreen(PrimaryScreenSize()), ToScreen(size))));
}

void ThreeLineDialog::OnInit() {
    SetCaption(content_.caption);
    for (const BoxLine& line : content_.lines) {
        SetText(line.control, line.text);
        // An empty line may lie over its neighbour.
        ShowWindow(Item(line.control), line.text.empty() ? SW_HIDE : SW_SHOWNA);
        if (line.top) MoveLine(Item(line.control), *line.top);
    }
    if (centre_) CentreOnScreen(Window());
}

CConfirmErr::CConfirmErr(BoxContent content, bool centre)
    : ThreeLineDialog(IDD_CONFIRM_ERR, std::move(content), centre) {}

void CConfirmErr::OnInit() {
    ThreeLineDialog::OnInit();
    symbol_ = ShowPicture(Item(IDC_CONFIRM_PICTURE), IDB_ERROR, true);
}

CConfirmOK::CConfirmOK(BoxContent content, bool centre)
    : ThreeLineDialog(IDD_CONFIRM_OK, std::move(content), centre) {}

CConfirmYesCancel::CConfirmYesCancel(BoxContent content, bool centre)
    : ThreeLineDialog(IDD_CONFIRM_YES_CANCEL, std::move(content), centre) {}

Handled CConfirmYesCancel::OnCommand(const Command& command) {
    if (command.id != IDOK && command.id != IDC_ASK_CANCEL) return Handled::no;
    Accepted = command.id == IDOK;
    EndModal(Accepted ? IDOK : IDCANCEL);
    return Handled::yes;
}

CPX_Error::CPX_Error(InputError refused) : Dialog(IDD_PX_ERROR), refused_(std::move(refused)) {}

void CPX_Error::OnInit() {
    const InputErrorTexts texts = ComposeInputError(refused_);
    SetCaption(texts.caption);
    SetText(IDC_PX_LINE1, texts.Line1);
    SetText(IDC_PX_LINE2, texts.Line2);
    SetText(IDC_PX_LINE3, texts.Line3);
}

COneshotMsgPos::COneshotMsgPos(std::wstring text) : Dialog(IDD_ONESHOT_MESSAGE), text_(std::move(text)) {}

void COneshotMsgPos::OnInit() {
    SetCaption(std::wstring(kOneshotCaption));
    SetText(kOneshotControl, text_);
    SetTimer(Window(), kCloseTimer, static_cast<UINT>(display_time_ms), nullptr);
    if (!keep_position) CentreOnScreen(Window());
}

void COneshotMsgPos::OnTimer(UINT_PTR id) {
    if (id == kCloseTimer) EndModal(1);
}

void ShowErrorBox(HWND owner, const Message& message) {
    CConfirmErr(ErrorBox(message), true).RunModal(owner);
}

void ShowErrorBox(HWND owner, const std::wstring& caption_suffix, const std::wstring& line1,
                  const std::wstring& line2, const std::wstring& line3) {
    ShowErrorBox(owner, Message{caption_suffix, line1, line2, line3});
}

void ShowInformation(HWND owner, const Message& message) {
    CConfirmOK(InformationBox(message), true).RunModal(owner);
}

bool AskYesCancel(HWND owner, const Message& message) {
    CConfirmYesCancel question(QuestionBox(message), true);
    question.RunModal(owner);
    return question.Accepted;
}

void ShowOneshotMessage(HWND owner, const std::wstring& text) {
    COneshotMsgPos notice(text);
    notice.display_time_ms = kOneshotShown_ms;
    notice.RunModal(owner);
}

void ShowRefusal(HWND owner, const DisplaySizeCheck& check) {
    if (const auto* message = std::get_if<Message>(&check)) ShowErrorBox(owner, *message);
    if (const auto* input = std::get_if<InputError>(&check)) CPX_Error(*input).RunModal(owner);
}

}  // namespace pixora
