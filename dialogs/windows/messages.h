// The program's own message, confirmation and notice windows.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "dialogs/message.h"
#include "dialogs/message_texts.h"
#include "dialogs/value_check.h"
#include "platform/dialog.h"
#include "platform/gdi.h"

namespace pixora {

/// Moves a dialog to the centre of the primary screen, a little above the middle.
void CentreOnScreen(HWND dialog);

/// What the three windows with a caption and three lines have in common.
class ThreeLineDialog : public Dialog {
protected:
    ThreeLineDialog(int template_id, BoxContent content, bool centre)
        : Dialog(template_id), content_(std::move(content)), centre_(centre) {}
    void OnInit() override;

private:
    BoxContent content_;
    bool centre_;
};

/// The error box: three lines beside an error symbol.
class CConfirmErr final : public ThreeLineDialog {
public:
    CConfirmErr(BoxContent content, bool centre);

private:
    void OnInit() override;
    UniqueBitmap symbol_;
};

/// The information box.
class CConfirmOK final : public ThreeLineDialog {
public:
    CConfirmOK(BoxContent content, bool centre);
};

/// The question with OK and CANCEL.
class CConfirmYesCancel final : public ThreeLineDialog {
public:
    CConfirmYesCancel(BoxContent content, bool centre);
    bool Accepted = false;

private:
    Handled OnCommand(const Command& command) override;
};

/// Tells why a typed number was refused.
class CPX_Error final : public Dialog {
public:
    explicit CPX_Error(InputError refused);

private:
    void OnInit() override;
    InputError refused_;
};

/// A notice that closes by itself.
class COneshotMsgPos final : public Dialog {
public:
    explicit COneshotMsgPos(std::wstring text);
    int display_time_ms = kOneshotInitial_ms;
    bool keep_position = false;

private:
    void OnInit() override;
    void OnTimer(UINT_PTR id) override;
    std::wstring text_;
};

// Each of these disables `owner` until the window is closed.

/// The one way in which errors are shown; an empty line stays empty.
void ShowErrorBox(HWND owner, const Message& message);
/// The same for texts.
/// @param caption_suffix  follows the program's name in the caption.
void ShowErrorBox(HWND owner, const std::wstring& caption_suffix, const std::wstring& line1,
                  const std::wstring& line2, const std::wstring& line3);
/// Shows a notice that the user closes by its OK button.
void ShowInformation(HWND owner, const Message& message);
/// @return true when the user chose OK.
[[nodiscard]] bool AskYesCancel(HWND owner, const Message& message);
/// Shows a notice for kOneshotShown_ms. Returns when it has closed by itself.
void ShowOneshotMessage(HWND owner, const std::wstring& text);
/// Tells why a typed display size was refused; shows nothing for an accepted one.
void ShowRefusal(HWND owner, const DisplaySizeCheck& check);

}  // namespace pixora
