// The base of every window of the program: a Win32 dialog made from a template, its messages decoded once.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <optional>
#include <string>

namespace pixora {

/// A WM_COMMAND, decoded: a control's notification, a menu item (code 0) or an accelerator.
struct Command {
    int id = 0;
    int code = 0;
    HWND control = nullptr;
};

/// Whether a handler has dealt with a message itself.
enum class Handled : bool { no = false, yes = true };

/// One dialog window. Modal ones live on the stack and end with EndModal(); modeless ones are owned by a
/// smart pointer and freed by their owner's next tick after WM_NCDESTROY, never by themselves or by one of
/// their handlers. Nothing thrown leaves the window procedure. Handlers do nothing by default.
class Dialog {
public:
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog();

    /// Creates the window above all others, disables `owner` (when there is one), counts as a modal operation
    /// of it and serves messages until EndModal(). The window shows once OnInit() is through.
    /// @return the result given to EndModal(), IDCANCEL when the program quits meanwhile, or -1 when the
    ///         window could not be created.
    int RunModal(HWND owner);
    /// Creates the window, hidden unless its template is WS_VISIBLE, and returns at once.
    /// @return false when it could not be created.
    [[nodiscard]] bool CreateModeless(HWND owner);
    /// Destroys the window if there is one.
    void Destroy();

    [[nodiscard]] HWND Window() const noexcept { return window_; }
    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(window_, id); }
    /// True while a modal box, file dialog or menu of this window runs; the window must not be destroyed
    /// then.
    [[nodiscard]] bool InModal() const noexcept { return modal_depth_ > 0; }

    /// The dialog object behind a window; nullptr for a window of another kind.
    [[nodiscard]] static Dialog* FromWindow(HWND window) noexcept;

    /// Counts one modal operation of a window for as long as it lives. RunModal() and the boxes, file dialogs
    /// and menus of platform/ do it themselves for the window that owns them.
    class [[nodiscard]] ModalScope {
    public:
        explicit ModalScope(Dialog& dialog) noexcept : dialog_(&dialog) { ++dialog_->modal_depth_; }
        /// For the dialog that `owner` is or lies in; counts nothing when there is none.
        explicit ModalScope(HWND owner) noexcept;
        ~ModalScope() {
            if (dialog_) --dialog_->modal_depth_;
        }
        ModalScope(const ModalScope&) = delete;
        ModalScope& operator=(const ModalScope&) = delete;

    private:
        Dialog* dialog_;
    };

    /// Serves one message taken from the queue: the filter of the dialog it belongs to, the dialog keys, then
    /// the window procedure. Every message loop of the program uses it.
    static void Serve(MSG& message);

    /// Ends everything modal that was started after this modal dialog: dialogs, message boxes, file dialogs
    /// and open menus. They disappear at once; the code that runs them goes on when this call has returned.
    void CancelLaterModals();

protected:
    /// @param template_id  IDD_... of the dialog template in the program's resources.
    explicit Dialog(int template_id) noexcept : template_id_(template_id) {}

    /// WM_INITDIALOG. The first control gets the focus unless one was focused here.
    virtual void OnInit() {}
    /// Left alone, IDOK and IDCANCEL (also Enter and Escape) end a modal dialog and do nothing to a modeless
    /// one.
    virtual Handled OnCommand(const Command&) { return Handled::no; }
    /// Every tick of timer 1; not re-entered while a tick is still being served.
    virtual void OnTick() {}
    /// Any other timer.
    virtual void OnTimer(UINT_PTR) {}
    /// Files were dropped on the window; the handle is released by the caller.
    virtual void OnDrop(HDROP) {}
    /// The user wants the window closed (close button, Alt+F4). By default a modal dialog ends with IDCANCEL
    /// and a modeless one is destroyed.
    virtual void OnClose();
    /// WM_DESTROY, while the window and its children still exist.
    virtual void OnDestroy() {}
    /// The window is gone. The object must outlive the handler that is running: its owner frees it at its
    /// next tick.
    virtual void OnGone() {}
    /// Sees each posted message of this window and its children before dispatch. @return yes to swallow it.
    virtual Handled Filter(MSG&) { return Handled::no; }
    /// Any message that has no handler of its own here. @return the message's result to end its handling.
    virtual std::optional<LRESULT> OnMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }

    /// Hides a modal dialog, enables its owner and lets RunModal() return.
    void EndModal(int result);
    /// Starts the ticks: WM_TIMER of timer 1 every 100 ms, which drives OnTick(). The first comes at any time
    /// within that.
    void StartTicking();
    /// Hides the window, or shows it again without activating it, when that differs from what was asked last.
    /// A window counts as shown until it is asked for the first time.
    void ShowUnless(bool hidden);
    void SetText(int id, const std::wstring& text) const { SetDlgItemTextW(window_, id, text.c_str()); }
    void SetCaption(const std::wstring& text) const { SetWindowTextW(window_, text.c_str()); }
    [[nodiscard]] std::wstring Text(int id) const;

private:
    class ModalRun;

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    INT_PTR Dispatch(UINT message, WPARAM w, LPARAM l);
    INT_PTR Init();
    INT_PTR DispatchCommand(const Command& command);
    INT_PTR DispatchOther(UINT message, WPARAM w, LPARAM l);
    void Released();
    /// Ends a window whose start failed.
    void Abandon();
    void EnableOwner() noexcept;
    void Tick();
    void ServeUntilEnded();

    int template_id_;
    HWND window_ = nullptr;
    HWND disabled_owner_ = nullptr;
    bool modal_ = false;
    bool ended_ = false;
    bool in_tick_ = false;
    bool hidden_ = false;
    int result_ = 0;
    int modal_depth_ = 0;
};

}  // namespace pixora
