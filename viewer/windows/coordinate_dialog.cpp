#include "viewer/windows/coordinate_dialog.h"

#include <utility>

#include "dialogs/windows/messages.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "viewer/edit_modes.h"
#include "viewer/menu_rules.h"
#include "viewer/view_placement.h"
#include "viewer/windows/geometry_win.h"

namespace pixora {
namespace {

constexpr int kEntries[] = {IDC_COORD_LEFT, IDC_COORD_TOP, IDC_COORD_RIGHT, IDC_COORD_BOTTOM};

}  // namespace

CCoordinate::CCoordinate(std::shared_ptr<ViewerState> state, const SharedFlags& flags)
    : Dialog(IDD_COORDINATE), state_(std::move(state)), flags_(flags), entry_(state_->region) {}

CCoordinate::~CCoordinate() {
    Destroy();  // while the handlers of this class can still be called
}

bool CCoordinate::Open(HWND viewer) {
    if (!CreateModeless(viewer)) return false;
    Place(viewer);
    ShowWindow(Window(), SW_SHOW);
    return true;
}

// After the places of the views.
void CCoordinate::Place(HWND viewer) const {
    const ViewPlace place{FromWin(ScreenRectangle(viewer)), FromWin(WorkAreaOf(viewer)),
                          static_cast<int>(kViews), CaptionHeight(viewer)};
    const PixelPoint corner = PlaceView(place, SizeOf(FromWin(ScreenRectangle(Window()))));
    MoveWindowTo(Window(), {corner.x, corner.y});
}

void CCoordinate::OnInit() {
    SetCaption(CoordinatesCaption(state_->image.slot));
    edit_.Attach(Item(IDC_COORD_EDIT));
    enter_.Attach(Item(IDC_COORD_ENTER));
    edit_.SetCaption(kCoordinatesEdit);
    enter_.SetCaption(kCoordinatesEnter);
    SetEditing(false);
    ShowEntries();
    CoordinatesOpened(*state_);
    StartTicking();
}

void CCoordinate::OnTick() {
    if (!CoordinatesWanted(*state_) && !InModal()) return Destroy();
    ShowUnless(flags_.Hidden(WindowKind::coordinates));
    if (entry_.Follow(state_->region)) ShowEntries();
}

void CCoordinate::OnClose() {
    if (!InModal()) Destroy();
}

Handled CCoordinate::OnCommand(const Command& command) {
    if (command.id == IDCANCEL) {  // Escape
        OnClose();
        return Handled::yes;
    }
    if (command.code != BN_CLICKED || InModal()) return Handled::no;
    switch (command.id) {
        case IDC_COORD_EDIT:
            BeginEdit();
            return Handled::yes;
        case IDC_COORD_ENTER:
            Enter();
            return Handled::yes;
        default:
            return Handled::no;
    }
}

std::optional<LRESULT> CCoordinate::OnMessage(UINT message, WPARAM, LPARAM l) {
    if (message == WM_DRAWITEM && DrawColorButton(l, {&edit_, &enter_})) return TRUE;
    return std::nullopt;
}

void CCoordinate::ShowEntries() const {
    const CoordinateTexts texts = TextsOf(state_->region);
    SetText(IDC_COORD_LEFT, texts.left);
    SetText(IDC_COORD_TOP, texts.top);
    SetText(IDC_COORD_RIGHT, texts.right);
    SetText(IDC_COORD_BOTTOM, texts.bottom);
}

CoordinateTexts CCoordinate::ReadEntries() const {
    return {Text(IDC_COORD_LEFT), Text(IDC_COORD_TOP), Text(IDC_COORD_RIGHT), Text(IDC_COORD_BOTTOM)};
}

void CCoordinate::SetEditing(bool editing) {
    for (const int entry : kEntries) SendMessageW(Item(entry), EM_SETREADONLY, !editing, 0);
    enter_.Enable(editing);
}

void CCoordinate::BeginEdit() {
    SetEditing(true);
    SetFocus(Item(IDC_COORD_LEFT));
    SendMessageW(Item(IDC_COORD_LEFT), EM_SETSEL, 0, -1);
}

void CCoordinate::Enter() {
    const CoordinateCheck check = CheckCoordinates(ReadEntries(), ImageSizeOf(*state_));
    // A viewer that is asked to close waits for the boxes; it gets no further ones.
    for (const Warning& warning : check.warnings)
        if (!ViewerIsToClose(*state_, flags_)) ShowWarningBox(Window(), warning.title, warning.text);
    if (check.order && !ViewerIsToClose(*state_, flags_)) ShowErrorBox(Window(), *check.order);
    if (!Window()) return;  // the program has ended meanwhile
    entry_.Apply(check, *state_);
    ShowEntries();
}

}  // namespace pixora
