#include "analysis/windows/plot_dialog.h"

#include <windowsx.h>

#include <utility>

#include "analysis/channel.h"
#include "dialogs/windows/messages.h"
#include "image/image_buffer.h"
#include "platform/menu.h"
#include "platform/screen.h"

namespace pixora {
namespace {

constexpr LPARAM kAskedByKeyboard = -1;

}  // namespace

PlotDialog::PlotDialog(int template_id, WindowKind kind, bool ViewFlags::*flag, const PlotParts& parts,
                       ViewContext context)
    : AnalysisView(template_id, kind, flag, std::move(context)),
      parts_(parts),
      level_(EffectiveBits(State().image), Context().settings->LVL_CURSOR) {}

void PlotDialog::Begin() {
    plot_.Attach(Item(parts_.plot));
    ShowWindow(Item(parts_.channel), IsColour() ? SW_SHOWNA : SW_HIDE);
    ShowLevelCursor();
}

void PlotDialog::FollowTitle() {
    if (caption_style_ == State().caption_style) return;
    caption_style_ = State().caption_style;
    SetCaption(Title());
}

void PlotDialog::FollowChannel() {
    if (channel_ == State().channel) return;
    channel_ = State().channel;
    SetText(parts_.channel, std::wstring(ChannelCaption(*channel_, IsColour())));
}

void PlotDialog::FollowLevel() {
    if (level_shown_ == level_.Level()) return;
    level_shown_ = level_.Level();
    SetText(parts_.level, level_.Text());
}

void PlotDialog::ShowLevelCursor() {
    SetText(parts_.level_on, std::wstring(level_.ButtonCaption()));
    EnableWindow(Item(parts_.level), level_.Shown());
}

Handled PlotDialog::OnCommand(const Command& command) {
    if (command.code != BN_CLICKED || InModal()) return Handled::no;
    if (command.id == parts_.export_command) {
        Export();
        return Handled::yes;
    }
    if (command.id == parts_.channel) {
        AdvanceChannel();
    } else if (!OnLevelButton(command.id) && !OnOwnButton(command.id)) {
        return Handled::no;
    }
    if (Window()) Changed();  // a box may have let the window go
    return Handled::yes;
}

void PlotDialog::AdvanceChannel() {
    State().channel = NextChannel(State().channel, IsColour());
    State().edit.redraw = kAllViews;
}

bool PlotDialog::OnLevelButton(int id) {
    if (id == parts_.level_centre) {
        level_.Centre();
    } else if (id == parts_.level_up) {
        level_.Up();
    } else if (id == parts_.level_down) {
        level_.Down();
    } else if (id == parts_.level_enter) {
        ApplyLevel();
    } else if (id == parts_.level_on) {
        level_.Toggle();
        ShowLevelCursor();
    } else {
        return false;
    }
    return true;
}

Handled PlotDialog::Filter(MSG& message) {
    const KeyVerdict verdict = keys_.Test(message.message, message.wParam);
    if (verdict.act == parts_.step_up) level_.Up();
    if (verdict.act == parts_.step_down) level_.Down();
    if (verdict.act == PlotKey::enter) ApplyEntries();
    if (!Window()) return Handled::yes;  // a box let the window go
    if (verdict.act != PlotKey::none) Changed();
    return verdict.swallow && !IsForBox(message) ? Handled::yes : Handled::no;
}

// Shown or not: the level counts also while its cursor is hidden.
void PlotDialog::ApplyLevel() {
    const LevelEntry entry = CheckLevelEntry(Text(parts_.level), level_.Bits());
    if (entry.level) level_.Set(*entry.level);
    level_shown_.reset();  // also "007" is shown as it counts
    FollowLevel();
    if (!entry.level) Refuse(entry.refusal);
}

void PlotDialog::Refuse(const InputError& refusal) {
    ShowRefusal(Window(), refusal);
    keys_.Forget();
}

std::optional<LRESULT> PlotDialog::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_DRAWITEM:
            return plot_.Draw(l) ? std::optional<LRESULT>(TRUE) : std::nullopt;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:  // the second one of two fast clicks
            ClickPlot({GET_X_LPARAM(l), GET_Y_LPARAM(l)});
            return 0;
        case WM_CONTEXTMENU:
            return ShowMenu(reinterpret_cast<HWND>(w), l) ? std::optional<LRESULT>(0) : std::nullopt;
        default:
            return std::nullopt;
    }
}

void PlotDialog::ClickPlot(POINT client) {
    const std::optional<std::uint32_t> level = LevelAtPoint(client);
    if (!level) return;
    level_.Set(*level);
    Changed();
}

RECT PlotDialog::MenuArea() const {
    RECT area{};
    GetClientRect(Window(), &area);
    return area;
}

bool PlotDialog::ShowMenu(HWND control, LPARAM position) {
    const POINT at = MenuPosition(control, position);
    POINT client = at;
    ScreenToClient(Window(), &client);
    const RECT area = MenuArea();
    // The mouse asks for the menu of what it points at: the caption, for one, has the system's.
    if (InModal() || (position != kAskedByKeyboard && !PtInRect(&area, client))) return false;
    const UniqueMenu menu = LoadMenuResource(parts_.menu);
    const int command = TrackPopup(Window(), GetSubMenu(menu.get(), 0), at);
    if (command != 0) SendMessageW(Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    return true;
}

}  // namespace pixora
