#include "dialogs/message.h"
#include "platform/menu.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "viewer/click.h"
#include "viewer/coordinates.h"
#include "viewer/edit_modes.h"
#include "viewer/edit_tick.h"
#include "viewer/marks.h"
#include "viewer/undo.h"
#include "viewer/windows/display.h"
#include "viewer/windows/geometry_win.h"

namespace pixora {
namespace {

// Where the quit menu opens, seen from the cursor.
constexpr POINT kQuitMenuOffset{15, 10};

// The button that the user presses as the right one, wherever it is on the mouse.
bool RightButtonHeld() {
    const int button = GetSystemMetrics(SM_SWAPBUTTON) ? VK_LBUTTON : VK_RBUTTON;
    return GetAsyncKeyState(button) < 0;
}

bool KeyHeld(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

void CDisplay::OnLeftButton() {
    // The cursor as it is now, not as it was when the message was sent.
    const Click click{ClientPoint(CursorPosition()), KeyHeld(VK_SHIFT), KeyHeld(VK_CONTROL)};
    const std::optional<Warning> warning = ClickViewer(*state_, click, context_.flags->play);
    if (warning) ShowWarningBox(Window(), warning->title, warning->text);
}

bool CDisplay::PickMarkInstead() {
    if (!EditsRegion(*state_)) return false;
    PickMark(*state_, ClientPoint(CursorPosition()));
    return true;
}

void CDisplay::FollowEditing() {
    // Posted, because ticks have to go on while the menu is open.
    const bool held = right_press_.Pressed() && RightButtonHeld();
    if (right_press_.Tick(held, AnyEditMode(*state_))) PostMessageW(Window(), kQuitMenuMessage, 0, 0);
    if (FollowEdits(*state_)) canvas_.Repaint();
    FollowCoordinates();
}

void CDisplay::FollowCoordinates() {
    if (coordinates_ || !CoordinatesWanted(*state_)) return;
    coordinates_ = std::make_unique<CCoordinate>(state_, *context_.flags);
    if (coordinates_->Open(Window())) return;
    coordinates_.reset();
    CoordinatesClosed(*state_);
}

void CDisplay::ShowQuitMenu() {
    if (InModal()) return;
    const UniqueMenu menu = LoadMenuResource(IDR_QUIT_MENU);
    const POINT cursor = CursorPosition();
    const int command = TrackPopup(Window(), GetSubMenu(menu.get(), 0),
                                   {cursor.x + kQuitMenuOffset.x, cursor.y + kQuitMenuOffset.y});
    if (command != 0) SendMessageW(Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
}

Handled CDisplay::OnQuitCommand(int id) {
    switch (id) {
        case IDM_QUIT_UNDO:
            UndoLastChange(*state_);
            return Handled::yes;
        case IDM_QUIT_EXIT_CHANGE:
            ExitRegionChange(*state_);
            return Handled::yes;
        default:
            return Handled::no;
    }
}

}  // namespace pixora
