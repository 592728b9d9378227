#include "viewer/windows/display.h"

#include <windowsx.h>

#include <utility>
#include <vector>

#include "platform/message_box.h"
#include "platform/picture.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "viewer/caption.h"
#include "viewer/temporary_copies.h"
#include "viewer/windows/copy_removal.h"
#include "viewer/windows/geometry_win.h"

namespace pixora {
namespace {

// Without an answer of its own, a window is held to the size of the screen and to the width of its buttons.
void AllowEverySize(MINMAXINFO& limits) {
    limits.ptMinTrackSize = {1, 1};
    limits.ptMaxTrackSize = {kLargestCanvasSide, kLargestCanvasSide};
}

}  // namespace

CDisplay::CDisplay(ImageBuffer image, ViewerContext context)
    : Dialog(IDD_DISPLAY),
      context_(std::move(context)),
      state_(std::make_shared<ViewerState>(NewViewerState(std::move(image), SampleBuffer{}))) {}

CDisplay::~CDisplay() {
    Destroy();  // while the handlers of this class can still be called
}

bool CDisplay::Open() {
    std::optional<SampleBuffer> samples = ReadSampleBuffer(state_->image);
    if (!samples) return false;
    SetSamples(*state_, *std::move(samples));
    ApplySettings(*context_.settings, *state_);
    return CreateModeless(nullptr);
}

bool& CDisplay::SlotFlag(SlotFlags SharedFlags::*flags) const {
    return (context_.flags->*flags)[state_->image.slot];
}

void CDisplay::OnInit() {
    SlotFlag(&SharedFlags::close_viewer) = SlotFlag(&SharedFlags::redraw_viewer) = false;
    SlotFlag(&SharedFlags::viewer_open) = true;
    ++context_.flags->open_viewers;
    counted_ = true;
    SetWindowIcons(Window(), IDI_PIXORA);
    MoveWindowTo(Window(), context_.position);
    if (!canvas_.Create(Window(), {state_, &state_->canvas})) return Destroy();
    StartTicking();
}

void CDisplay::OnTick() {
    FreeClosedWindows();
    if (closing_) return EndClosing();  // the slot may be another viewer's by now
    if (SlotFlag(&SharedFlags::close_viewer) && MayClose()) return Close();
    FollowVisibility();
    FollowEditing();
    measurements_.Follow(*state_, ClientPoint(CursorPosition()));
    FollowSettings();
    FollowLayoutRequest();
}

void CDisplay::FollowVisibility() {
    switch (visibility_.Tick(context_.flags->Hidden(WindowKind::viewer))) {
        case Visibility::Change::none:
            break;
        case Visibility::Change::show_first:
            ShowWindow(Window(), SW_SHOW);
            break;
        case Visibility::Change::show_again:
            ShowWindow(Window(), SW_SHOWNA);
            break;
        case Visibility::Change::hide:
            ShowWindow(Window(), SW_HIDE);
            break;
    }
}

void CDisplay::FollowSettings() {
    if (!std::exchange(SlotFlag(&SharedFlags::redraw_viewer), false)) return;
    ApplySettings(*context_.settings, *state_);
    canvas_.Repaint();
    ShowCaption();
}

void CDisplay::FollowLayoutRequest() {
    // Answered before the work, so that what fails for want of memory is not tried again at every tick.
    if (IsIconic(Window()) || !std::exchange(state_->layout_requested, false)) return;
    state_->wheel_pending = false;
    LayOut();
}

void CDisplay::LayOut() {
    const PixelSize canvas = CanvasSize(ImageSizeOf(*state_), RatioOf(*state_));
    // The second round settles the window after the first one has moved and resized it.
    for (int round = 0; round < 2; ++round) {
        const PixelRect window = FromWin(ScreenRectangle(Window()));
        canvas_.Load(state_->image.display_copy);
        UpdateCanvas(*state_);
        canvas_.Repaint();
        const PixelRect placed = PlaceWindow(window, FromWin(FrameExtent(Window())), canvas, state_->anchor);
        const PixelSize size = SizeOf(placed);
        SetWindowPos(Window(), nullptr, placed.left, placed.top, size.width, size.height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        canvas_.Resize(canvas);
        state_->anchor = {};
        ShowCaption();
    }
}

void CDisplay::ShowCaption() {
    SetCaption(ViewerCaption(state_->image, state_->caption_style, state_->ratio_text));
}

std::optional<LRESULT> CDisplay::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_GETMINMAXINFO:
            AllowEverySize(*reinterpret_cast<MINMAXINFO*>(l));
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // the canvas covers the client area
        case WM_DPICHANGED:
            state_->layout_requested = true;  // the frame changes, the image never does
            return 0;
        case WM_CONTEXTMENU:
            return ShowContextMenu(l) ? std::optional<LRESULT>(0) : std::nullopt;
        case kQuitMenuMessage:
            ShowQuitMenu();
            return 0;
        default:
            return OnMouse(message, w, l);
    }
}

std::optional<LRESULT> CDisplay::OnMouse(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:  // the second one of two fast clicks, here and below
            OnLeftButton();
            return 0;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            right_press_.Begin();
            return std::nullopt;
        case WM_MOUSEWHEEL:
            OnWheel(w, l);
            return std::nullopt;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            BeginDrag(MousePoint(l));
            return 0;
        case WM_MOUSEMOVE:
            Drag((w & MK_MBUTTON) != 0);
            return 0;
        case WM_MBUTTONUP:
            if (drag_.Active()) ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            drag_.End();
            return 0;
        default:
            return std::nullopt;
    }
}

// On the screen, where the button went down: the cursor itself may be further by now.
PixelPoint CDisplay::MousePoint(LPARAM l) const {
    POINT point{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
    ClientToScreen(Window(), &point);
    return FromWin(point);
}

void CDisplay::BeginDrag(PixelPoint cursor) {
    SetCapture(Window());
    drag_.Begin(cursor);
}

void CDisplay::Drag(bool button_held) {
    if (!drag_.Active()) return;
    if (!button_held) {  // released where no message could tell
        ReleaseCapture();
        return;
    }
    const PixelRect moved = drag_.Follow(FromWin(ScreenRectangle(Window())), FromWin(CursorPosition()));
    MoveWindowTo(Window(), {moved.left, moved.top});
}

void CDisplay::OnTimer(UINT_PTR timer) {
    if (timer == ZoomTip::kTimer) zoom_tip_.Hide();
}

Handled CDisplay::OnCommand(const Command& command) {
    if (InModal()) return Handled::yes;  // a late one, from before the box
    if (command.id == IDM_VIEW_CLOSE) {
        OnClose();
        return Handled::yes;
    }
    for (const auto handle : {&CDisplay::OnViewCommand, &CDisplay::OnQuitCommand, &CDisplay::OnSizeCommand})
        if ((this->*handle)(command.id) == Handled::yes) return Handled::yes;
    return Handled::no;
}

void CDisplay::OnClose() {
    if (MayClose())
        Close();
    else if (!InModal())
        SlotFlag(&SharedFlags::close_viewer) = true;  // once the box of a view is gone
}

bool CDisplay::MayClose() const {
    return !InModal() && !AnyViewModal();
}

void CDisplay::Close() {
    if (std::exchange(closing_, true)) return;  // a failure box lets ticks in
    const std::vector<std::wstring> failures = DeleteTemporaryCopies();
    LeaveSlot();  // without its display copy the slot is free, while the boxes still show
    state_->closing = true;
    for (const std::wstring& failure : failures) ShowPlainBox(Window(), failure);
    ShowWindow(Window(), SW_HIDE);
    EndClosing();
}

// Destroying the window would take its views' windows along, whatever they are doing: they go first.
void CDisplay::EndClosing() {
    if (!InModal() && Alone()) Destroy();
}

std::vector<std::wstring> CDisplay::DeleteTemporaryCopies() const {
    std::vector<std::wstring> failures;
    for (const std::filesystem::path& copy : TemporaryCopiesOf(state_->image))
        if (const std::optional<DWORD> error = RemoveCopy(copy))
            failures.push_back(DeleteFailureText(copy, *error));
    return failures;
}

void CDisplay::LeaveSlot() {
    if (!std::exchange(counted_, false)) return;
    --context_.flags->open_viewers;
    SlotFlag(&SharedFlags::viewer_open) = false;
    SlotFlag(&SharedFlags::close_viewer) = SlotFlag(&SharedFlags::redraw_viewer) = false;
}

void CDisplay::OnDestroy() {
    state_->closing = true;
    LeaveSlot();
}

}  // namespace pixora
