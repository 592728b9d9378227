#include "platform/dialog.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/failure_text.h"

namespace pixora {

namespace {

constexpr UINT_PTR kTickTimer = 1;
constexpr UINT kTickMs = 100;

/// The modal dialogs that run, the latest last. One user-interface thread uses it.
std::vector<Dialog*>& RunningModals() {
    static std::vector<Dialog*> running;
    return running;
}

/// The windows that tick, in the order in which they started. One user-interface thread uses it.
struct Ticking {
    std::vector<HWND> windows;  ///< one that has ended leaves an empty place until nothing runs over them
    int runs = 0;               ///< more than one when a box that a tick opened lets the next ones in
};

Ticking& TickingWindows() {
    static Ticking ticking;
    return ticking;
}

/// One timer of the system serves all windows: a window's own costs the system more than what the window does
/// at an idle tick. Each gets its timer message all the same; one that starts meanwhile gets the next.
void CALLBACK TickAll(HWND, UINT, UINT_PTR, DWORD) noexcept {
    Ticking& ticking = TickingWindows();
    ++ticking.runs;
    const std::size_t count = ticking.windows.size();
    for (std::size_t i = 0; i < count; ++i)
        if (const HWND window = ticking.windows[i]) SendMessageW(window, WM_TIMER, kTickTimer, 0);
    if (--ticking.runs == 0) std::erase(ticking.windows, nullptr);
}

void StartTicks(HWND window) {
    static UINT_PTR timer = 0;
    if (timer == 0) timer = SetTimer(nullptr, 0, kTickMs, &TickAll);
    TickingWindows().windows.push_back(window);
}

void EndTicks(HWND window) {
    std::ranges::replace(TickingWindows().windows, window, nullptr);
}

HWND RootOf(HWND window) {
    return window ? GetAncestor(window, GA_ROOT) : nullptr;
}

/// What the user sees of a failure that no handler expected, such as memory that cannot be had. It asks for
/// none itself: whatever it threw would end the program.
void ReportUnexpected(HWND window) noexcept {
    static bool reporting = false;
    if (std::exchange(reporting, true)) return;  // the box serves messages, and one of them may fail as well
    const HWND root = RootOf(window);
    const Dialog::ModalScope scope(root);
    MessageBoxW(root, kUnexpectedFailure, L"", MB_OK | MB_TOPMOST | MB_SETFOREGROUND);
    reporting = false;
}

/// Messages whose dialog procedure returns the result itself instead of storing it.
bool ReturnsResultDirectly(UINT message) {
    switch (message) {
        case WM_CHARTOITEM:
        case WM_COMPAREITEM:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_QUERYDRAGICON:
        case WM_VKEYTOITEM:
            return true;
        default:
            return false;
    }
}

/// Closes message boxes and file dialogs, which no dialog object stands behind.
BOOL CALLBACK CloseSystemDialog(HWND window, LPARAM) noexcept {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) == L"#32770" && IsWindowVisible(window) && !Dialog::FromWindow(window)) {
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    return TRUE;
}

}  // namespace

/// Everything that holds from the creation of a modal dialog to its end, undone on every way out.
class Dialog::ModalRun {
public:
    ModalRun(Dialog& dialog, HWND owner) : scope_(owner), dialog_(dialog) {
        RunningModals().push_back(&dialog);
        dialog_.modal_ = true;
        dialog_.ended_ = false;
        dialog_.result_ = -1;
        if (owner && IsWindowEnabled(owner)) {
            dialog_.disabled_owner_ = owner;
            EnableWindow(owner, FALSE);
        }
    }
    ~ModalRun() {
        // The owner comes first, else the system activates a window of another program.
        dialog_.EnableOwner();
        dialog_.Destroy();
        std::erase(RunningModals(), &dialog_);
    }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;

private:
    ModalScope scope_;
    Dialog& dialog_;
};

Dialog::ModalScope::ModalScope(HWND owner) noexcept : dialog_(FromWindow(RootOf(owner))) {
    if (dialog_) ++dialog_->modal_depth_;
}

Dialog::~Dialog() {
    if (!window_) return;
    EndTicks(window_);
    // The derived part of the object is gone already; no message may reach it any more.
    SetWindowLongPtrW(window_, DWLP_USER, 0);
    DestroyWindow(window_);
}

Dialog* Dialog::FromWindow(HWND window) noexcept {
    if (!window || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return nullptr;
    if (GetClassLongPtrW(window, GCW_ATOM) != reinterpret_cast<ULONG_PTR>(WC_DIALOG)) return nullptr;
    if (GetWindowLongPtrW(window, DWLP_DLGPROC) != reinterpret_cast<LONG_PTR>(&Dialog::Procedure))
        return nullptr;
    return reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
}

int Dialog::RunModal(HWND owner) {
    owner = RootOf(owner);
    const ModalRun run(*this, owner);
    if (!CreateModeless(owner)) return ended_ ? result_ : -1;
    if (!ended_) {
        SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        ShowWindow(window_, SW_SHOWNORMAL);
    }
    ServeUntilEnded();
    return result_;
}

void Dialog::ServeUntilEnded() {
    MSG message;
    while (!ended_ && window_) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the loops below this one
            result_ = IDCANCEL;
            return;
        }
        Serve(message);
    }
}

bool Dialog::CreateModeless(HWND owner) {
    CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(template_id_), owner, &Dialog::Procedure,
                       reinterpret_cast<LPARAM>(this));
    return window_ != nullptr;  // OnInit() may have destroyed it again
}

void Dialog::Destroy() {
    if (window_) DestroyWindow(window_);
}

void Dialog::EnableOwner() noexcept {
    if (const HWND owner = std::exchange(disabled_owner_, nullptr)) EnableWindow(owner, TRUE);
}

void Dialog::EndModal(int result) {
    if (!modal_ || ended_) return;
    ended_ = true;
    result_ = result;
    // At once, because another modal dialog's loop may run above this one's and end later.
    EnableOwner();
    ShowWindow(window_, SW_HIDE);
    PostMessageW(window_, WM_NULL, 0, 0);  // wakes the loop
}

void Dialog::CancelLaterModals() {
    const std::vector<Dialog*> running = RunningModals();
    const auto self = std::find(running.begin(), running.end(), this);
    if (self != running.end()) {
        std::for_each(self + 1, running.end(), [](Dialog* dialog) { dialog->EndModal(IDCANCEL); });
    }
    EndMenu();
    EnumThreadWindows(GetCurrentThreadId(), &CloseSystemDialog, 0);
}

void Dialog::Serve(MSG& message) {
    const HWND root = RootOf(message.hwnd);
    if (Dialog* dialog = FromWindow(root)) {
        try {
            if (dialog->Filter(message) == Handled::yes) return;
        } catch (...) {
            ReportUnexpected(root);
            return;
        }
        if (IsDialogMessageW(root, &message)) return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void Dialog::StartTicking() {
    StartTicks(window_);
}

void Dialog::ShowUnless(bool hidden) {
    if (hidden == std::exchange(hidden_, hidden)) return;
    ShowWindow(window_, hidden ? SW_HIDE : SW_SHOWNA);
}

std::wstring Dialog::Text(int id) const {
    const HWND item = Item(id);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(item)), L'\0');
    const int length = GetWindowTextW(item, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void Dialog::OnClose() {
    if (modal_) {
        EndModal(IDCANCEL);
    } else {
        Destroy();
    }
}

void Dialog::Tick() {
    if (in_tick_) return;  // a message box opened by OnTick() lets the next tick in
    struct Leave {
        bool& in_tick;
        ~Leave() { in_tick = false; }
    } const leave{in_tick_ = true};
    OnTick();
}

INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    if (message == WM_INITDIALOG) {
        reinterpret_cast<Dialog*>(l)->window_ = window;
        SetWindowLongPtrW(window, DWLP_USER, l);
    }
    auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;  // before WM_INITDIALOG, after WM_NCDESTROY
    try {
        return self->Dispatch(message, w, l);
    } catch (...) {
        ReportUnexpected(window);
        if (message == WM_INITDIALOG) self->Abandon();
        return FALSE;
    }
}

void Dialog::Abandon() {
    if (modal_) {
        EndModal(-1);
    } else {
        Destroy();
    }
}

INT_PTR Dialog::Dispatch(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_INITDIALOG:
            return Init();
        case WM_COMMAND:
            return DispatchCommand({LOWORD(w), HIWORD(w), reinterpret_cast<HWND>(l)});
        case WM_TIMER:
            if (w == kTickTimer) {
                Tick();
            } else {
                OnTimer(w);
            }
            return TRUE;
        case WM_DROPFILES: {
            struct Finish {
                HDROP drop;
                ~Finish() { DragFinish(drop); }
            } const finish{reinterpret_cast<HDROP>(w)};
            OnDrop(finish.drop);
            return TRUE;
        }
        case WM_CLOSE:
            OnClose();
            return TRUE;
        case WM_DESTROY:
            OnDestroy();
            return FALSE;
        case WM_NCDESTROY:
            Released();
            return FALSE;  // FALSE lets the system free the dialog's font
        default:
            return DispatchOther(message, w, l);
    }
}

INT_PTR Dialog::Init() {
    OnInit();
    // TRUE lets the system focus the first control.
    const HWND focus = GetFocus();
    return !(focus && IsChild(window_, focus));
}

INT_PTR Dialog::DispatchCommand(const Command& command) {
    if (OnCommand(command) == Handled::yes) return TRUE;
    if (!modal_ || command.code != 0) return FALSE;
    if (command.id == IDOK) EndModal(IDOK);
    if (command.id == IDCANCEL) OnClose();
    return TRUE;
}

INT_PTR Dialog::DispatchOther(UINT message, WPARAM w, LPARAM l) {
    const std::optional<LRESULT> result = OnMessage(message, w, l);
    if (!result) return FALSE;
    if (ReturnsResultDirectly(message)) return *result;
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, *result);
    return TRUE;
}

void Dialog::Released() {
    EndTicks(window_);
    SetWindowLongPtrW(window_, DWLP_USER, 0);
    window_ = nullptr;
    OnGone();
}

}  // namespace pixora
