#include "analysis/windows/profile.h"

#include <windowsx.h>

#include <array>
#include <utility>

#include "analysis/channel.h"
#include "analysis/csv.h"
#include "analysis/windows/csv_export.h"
#include "base/number_text.h"
#include "dialogs/windows/messages.h"
#include "image/image_buffer.h"
#include "platform/menu.h"
#include "platform/screen.h"
#include "resources/resource.h"
#include "viewer/edit_modes.h"

namespace pixora {
namespace {

constexpr std::array kLevelLabels = {IDC_PROFILE_LEVEL1, IDC_PROFILE_LEVEL2, IDC_PROFILE_LEVEL3,
                                     IDC_PROFILE_LEVEL4};
// Of use only while the line cursor shows.
constexpr int kOfLineCursor[] = {IDC_PROFILE_LINE, IDC_PROFILE_LINE_CENTER, IDC_PROFILE_LINE_UP,
                                 IDC_PROFILE_LINE_DOWN};

bool ViewFlags::*FlagOf(ProfileKind kind) {
    return kind == ProfileKind::horizontal ? &ViewFlags::h_profile : &ViewFlags::v_profile;
}

}  // namespace

CProfileDlg::CProfileDlg(ProfileKind kind, ViewContext context)
    : AnalysisView(IDD_PROFILE, WindowKind::profile, FlagOf(kind), std::move(context)),
      kind_(kind),
      level_(EffectiveBits(State().image), Context().settings->LVL_CURSOR) {}

CProfileDlg::~CProfileDlg() {
    Destroy();  // while the handlers of this class can still be called
}

void CProfileDlg::Begin() {
    plot_.Attach(Item(IDC_PROFILE_PLOT));
    LineShown() = true;
    State().edit.redraw_canvas = true;
    ShowLineCursor();
    ShowLevelCursor();
    ShowWindow(Item(IDC_PROFILE_CHANNEL), IsColour() ? SW_SHOWNA : SW_HIDE);
    Update(true);
}

void CProfileDlg::End() {
    if (!LineShown()) return;
    // Deliberate: both lines, also while the other profile is open.
    State().row = State().saved_row;
    State().column = State().saved_column;
    LineShown() = false;
    RequestRedraw(State());
}

std::uint16_t& CProfileDlg::Line() const {
    return kind_ == ProfileKind::horizontal ? State().row : State().column;
}

bool& CProfileDlg::LineShown() const {
    CanvasState& canvas = State().canvas;
    return kind_ == ProfileKind::horizontal ? canvas.row_shown : canvas.column_shown;
}

const LineProfile& CProfileDlg::Newest() const {
    return kind_ == ProfileKind::horizontal ? State().h_profile : State().v_profile;
}

unsigned CProfileDlg::NewestRead() const {
    return kind_ == ProfileKind::horizontal ? State().h_profile_read : State().v_profile_read;
}

ProfileScope CProfileDlg::Scope() const {
    const ViewerState& state = State();
    return {kind_, state.image.width, state.image.height, state.region_on, state.region};
}

ProfileScale CProfileDlg::Scale() const {
    const SIZE size = plot_.Size();
    return {size.cx, size.cy, level_.Bits()};
}

// What is shown is compared with the viewer's state, so it does not matter who asked.
void CProfileDlg::Update(bool) {
    FollowTitle();
    FollowChannel();
    FollowBoxes();
    FollowPlot();
}

void CProfileDlg::FollowTitle() {
    if (caption_style_ == State().caption_style) return;
    caption_style_ = State().caption_style;
    SetCaption(ProfileTitle(kind_, State().image, *caption_style_));
}

void CProfileDlg::FollowChannel() {
    if (!IsColour() || channel_ == State().channel) return;
    channel_ = State().channel;
    SetText(IDC_PROFILE_CHANNEL, std::wstring(ChannelCaption(*channel_, true)));
}

// Only what has moved is written, so that nothing disturbs the user's typing.
void CProfileDlg::FollowBoxes() {
    if (line_ != Line()) ShowLine();
    if (level_shown_ != level_.Level()) ShowLevel();
}

void CProfileDlg::ShowLine() {
    line_ = Line();
    SetText(IDC_PROFILE_LINE, FormatWhole(*line_));
}

void CProfileDlg::ShowLevel() {
    level_shown_ = level_.Level();
    SetText(IDC_PROFILE_LEVEL, level_.Text());
}

CProfileDlg::Drawn CProfileDlg::CurrentlyDrawn() const {
    const ViewerState& state = State();
    const ProfileScale scale = Scale();
    return {state.region, state.region_on, level_.Shown(), state.channel,
            scale.width,  scale.height,    level_.Level()};
}

void CProfileDlg::FollowPlot() {
    const bool taken = held_.Follow(Newest(), NewestRead(), !Context().flags->play, LineShown());
    const Drawn now = CurrentlyDrawn();
    if (!taken && drawn_ == now) return;
    if (!drawn_ || drawn_->width != now.width || drawn_->height != now.height) PlaceLevelLabels();
    drawn_ = now;
    ShowLabels();
    plot_.Show(
        PlotProfile(held_.Profile(), {kind_, Scale(), IsColour(), now.channel, now.level_shown, now.level}));
}

void CProfileDlg::PlaceLevelLabels() const {
    const ProfileScale scale = Scale();
    const std::array levels = LabelLevels(scale.bits);
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) {
        const HWND label = Item(kLevelLabels[i]);
        const RECT place = ClientRectangleOf(label);
        const int top = plot_.Place().top + LabelTop(scale, levels[i], SizeOf(place).cy);
        SetWindowPos(label, nullptr, place.left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void CProfileDlg::ShowLabels() {
    const ProfileLabels labels = LabelsOf(Scope(), held_.Profile().count, level_.Bits());
    if (labels_ == labels) return;
    labels_ = labels;
    SetText(IDC_PROFILE_DIVISION, labels.division);
    SetText(IDC_PROFILE_FIRST, labels.first);
    SetText(IDC_PROFILE_LAST, labels.last);
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) SetText(kLevelLabels[i], labels.levels[i]);
}

void CProfileDlg::ShowLineCursor() {
    const bool shown = LineShown();
    SetText(IDC_PROFILE_CURSOR, std::wstring(LineCursorCaption(shown)));
    for (const int control : kOfLineCursor) EnableWindow(Item(control), shown);
}

void CProfileDlg::ShowLevelCursor() {
    SetText(IDC_PROFILE_LEVEL_ON, std::wstring(level_.ButtonCaption()));
    EnableWindow(Item(IDC_PROFILE_LEVEL), level_.Shown());
}

Handled CProfileDlg::OnCommand(const Command& command) {
    if (command.code != BN_CLICKED || InModal()) return Handled::no;
    if (command.id == IDM_PROFILE_EXPORT) {
        Export();
    } else if (command.id == IDC_PROFILE_CHANNEL) {
        State().channel = NextChannel(State().channel, IsColour());
        RequestRedraw(State());
    } else if (!OnLineButton(command.id) && !OnLevelButton(command.id)) {
        return Handled::no;
    }
    if (Window()) Update(false);
    return Handled::yes;
}

bool CProfileDlg::OnLineButton(int id) {
    switch (id) {
        case IDC_PROFILE_CURSOR:
            ToggleLine();
            return true;
        case IDC_PROFILE_LINE_CENTER:
            MoveLine(CentredLine(Scope()));
            return true;
        case IDC_PROFILE_LINE_UP:
            MoveLine(LineUp(Scope(), Line()));
            return true;
        case IDC_PROFILE_LINE_DOWN:
            MoveLine(LineDown(Scope(), Line()));
            return true;
        default:
            return false;
    }
}

bool CProfileDlg::OnLevelButton(int id) {
    switch (id) {
        case IDC_PROFILE_LEVEL_CENTER:
            level_.Centre();
            return true;
        case IDC_PROFILE_LEVEL_UP:
            level_.Up();
            return true;
        case IDC_PROFILE_LEVEL_DOWN:
            level_.Down();
            return true;
        case IDC_PROFILE_LEVEL_ENTER:
            ApplyLevel();
            return true;
        case IDC_PROFILE_LEVEL_ON:
            level_.Toggle();
            ShowLevelCursor();
            return true;
        default:
            return false;
    }
}

void CProfileDlg::ToggleLine() {
    LineShown() = !LineShown();
    State().edit.redraw_canvas = true;
    ShowLineCursor();
}

void CProfileDlg::MoveLine(std::uint16_t line) {
    if (!LineShown()) return;
    Line() = line;
    State().edit.redraw_canvas = true;
}

Handled CProfileDlg::Filter(MSG& message) {
    const KeyVerdict verdict = keys_.Test(message.message, message.wParam);
    switch (verdict.act) {
        case PlotKey::up:
            level_.Up();
            break;
        case PlotKey::down:
            level_.Down();
            break;
        case PlotKey::enter:
            ApplyBoxes();
            break;
        default:
            break;
    }
    if (!Window()) return Handled::yes;  // a box let the window go
    if (verdict.act != PlotKey::none) Update(false);
    return verdict.swallow && !IsForBox(message) ? Handled::yes : Handled::no;
}

// The arrow keys that the view ignores move the caret in its boxes.
bool CProfileDlg::IsForBox(const MSG& message) const {
    const bool sideways = message.wParam == VK_LEFT || message.wParam == VK_RIGHT;
    return sideways && (message.hwnd == Item(IDC_PROFILE_LINE) || message.hwnd == Item(IDC_PROFILE_LEVEL));
}

void CProfileDlg::ApplyBoxes() {
    ApplyLine();
    if (Window() && !ViewerIsToClose()) ApplyLevel();
}

void CProfileDlg::ApplyLine() {
    if (!LineShown()) return;
    const LineEntry entry = CheckLineEntry(Text(IDC_PROFILE_LINE), Scope());
    if (entry.line) MoveLine(*entry.line);
    ShowLine();  // before the box, so that nothing can apply a refused text again
    if (!entry.line) Refuse(entry.refusal);
}

void CProfileDlg::ApplyLevel() {
    if (!level_.Shown()) return;
    const LevelEntry entry = CheckLevelEntry(Text(IDC_PROFILE_LEVEL), level_.Bits());
    if (entry.level) level_.Set(*entry.level);
    ShowLevel();
    if (!entry.level) Refuse(entry.refusal);
}

void CProfileDlg::Refuse(const InputError& refusal) {
    ShowRefusal(Window(), refusal);
    keys_.Forget();
}

bool CProfileDlg::ViewerIsToClose() const {
    return State().closing || Context().flags->close_viewer[State().image.slot];
}

std::optional<LRESULT> CProfileDlg::OnMessage(UINT message, WPARAM w, LPARAM l) {
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

void CProfileDlg::ClickPlot(POINT client) {
    const RECT plot = plot_.Place();
    const std::optional<std::uint32_t> level = LevelAt(Scale(), {client.x - plot.left, client.y - plot.top});
    if (!level) return;
    level_.Set(*level);
    Update(false);
}

bool CProfileDlg::ShowMenu(HWND control, LPARAM position) {
    const POINT at = MenuPosition(control, position);
    POINT client = at;
    ScreenToClient(Window(), &client);
    RECT area{};
    GetClientRect(Window(), &area);
    if (InModal() || !PtInRect(&area, client)) return false;  // the caption has the system's menu
    const UniqueMenu menu = LoadMenuResource(IDR_PROFILE_MENU);
    const int command = TrackPopup(Window(), GetSubMenu(menu.get(), 0), at);
    if (command != 0) SendMessageW(Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    return true;
}

void CProfileDlg::Export() {
    const ViewerState& state = State();
    const std::wstring proposed = ProfileCsvName(CsvStartFolder(Context()), state.image.file_name, kind_,
                                                 Line(), IsColour(), state.channel);
    ExportCsv(Window(), Context(), proposed, ProfileCsv(held_.Profile(), IsColour(), state.channel));
}

}  // namespace pixora
