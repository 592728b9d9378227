#include "analysis/windows/profile.h"

#include <array>
#include <utility>

#include "analysis/csv.h"
#include "analysis/windows/csv_export.h"
#include "image/image_buffer.h"
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

constexpr PlotParts kParts = {.plot = IDC_PROFILE_PLOT,
                              .channel = IDC_PROFILE_CHANNEL,
                              .level = IDC_PROFILE_LEVEL,
                              .level_enter = IDC_PROFILE_LEVEL_ENTER,
                              .level_on = IDC_PROFILE_LEVEL_ON,
                              .level_centre = IDC_PROFILE_LEVEL_CENTER,
                              .level_up = IDC_PROFILE_LEVEL_UP,
                              .level_down = IDC_PROFILE_LEVEL_DOWN,
                              .menu = IDR_PROFILE_MENU,
                              .export_command = IDM_PROFILE_EXPORT,
                              .step_up = PlotKey::up,
                              .step_down = PlotKey::down};

bool ViewFlags::*FlagOf(ProfileKind kind) {
    return kind == ProfileKind::horizontal ? &ViewFlags::h_profile : &ViewFlags::v_profile;
}

}  // namespace

CProfileDlg::CProfileDlg(ProfileKind kind, ViewContext context)
    : PlotDialog(IDD_PROFILE, WindowKind::profile, FlagOf(kind), kParts, std::move(context)), kind_(kind) {}

CProfileDlg::~CProfileDlg() {
    Destroy();  // while the handlers of this class can still be called
}

void CProfileDlg::Begin() {
    PlotDialog::Begin();
    LineShown() = true;
    State().edit.redraw_canvas = true;
    ShowLineCursor();
    Update();
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
    const SIZE size = PlotFrame().Size();
    return {size.cx, size.cy, Cursor().Bits()};
}

void CProfileDlg::Update() {
    FollowTitle();
    if (IsColour()) FollowChannel();
    FollowLine();
    FollowLevel();
    FollowPlot();
}

std::wstring CProfileDlg::Title() const {
    return ProfileTitle(kind_, State().image, State().caption_style);
}

// Only a line that has moved is written, so that nothing disturbs the user's typing.
void CProfileDlg::FollowLine() {
    if (line_ != Line()) ShowLine();
}

void CProfileDlg::ShowLine() {
    line_ = Line();
    SetText(IDC_PROFILE_LINE, LineText(*line_));
}

CProfileDlg::Drawn CProfileDlg::CurrentlyDrawn() const {
    const ViewerState& state = State();
    const ProfileScale scale = Scale();
    return {state.region, state.region_on, Cursor().Shown(), state.channel,
            scale.width,  scale.height,    Cursor().Level()};
}

void CProfileDlg::FollowPlot() {
    const bool taken = held_.Follow(Newest(), NewestRead(), !Context().flags->play, LineShown());
    const Drawn now = CurrentlyDrawn();
    if (!taken && drawn_ == now) return;
    if (!drawn_ || drawn_->width != now.width || drawn_->height != now.height) PlaceLevelLabels();
    drawn_ = now;
    ShowLabels();
    PlotFrame().Show(
        PlotProfile(held_.Profile(), {kind_, Scale(), IsColour(), now.channel, now.level_shown, now.level}));
}

void CProfileDlg::PlaceLevelLabels() const {
    const ProfileScale scale = Scale();
    const std::array levels = LabelLevels(scale.bits);
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) {
        const RECT place = ClientRectangleOf(Item(kLevelLabels[i]));
        const int top = PlotFrame().Place().top + LabelTop(scale, levels[i], SizeOf(place).cy);
        MoveWindowTo(Item(kLevelLabels[i]), {place.left, top});
    }
}

void CProfileDlg::ShowLabels() {
    const ProfileLabels labels = LabelsOf(Scope(), held_.Profile().count, Cursor().Bits());
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

bool CProfileDlg::OnOwnButton(int id) {
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

// The arrow keys that the view ignores move the caret in its boxes.
bool CProfileDlg::IsForBox(const MSG& message) const {
    const bool sideways = message.wParam == VK_LEFT || message.wParam == VK_RIGHT;
    return sideways && (message.hwnd == Item(IDC_PROFILE_LINE) || message.hwnd == Item(IDC_PROFILE_LEVEL));
}

void CProfileDlg::ApplyEntries() {
    ApplyLine();
    if (Window() && !ViewerIsToClose(State(), *Context().flags)) ApplyLevel();
}

void CProfileDlg::ApplyLine() {
    if (!LineShown()) return;
    const LineEntry entry = CheckLineEntry(Text(IDC_PROFILE_LINE), Scope());
    if (entry.line) MoveLine(*entry.line);
    ShowLine();  // before the box, so that nothing can apply a refused text again
    if (!entry.line) Refuse(entry.refusal);
}

std::optional<std::uint32_t> CProfileDlg::LevelAtPoint(POINT client) const {
    const RECT plot = PlotFrame().Place();
    return LevelAt(Scale(), {client.x - plot.left, client.y - plot.top});
}

void CProfileDlg::Export() {
    const ViewerState& state = State();
    const std::wstring folder = CsvStartFolder(Context());
    const std::wstring name =
        ProfileCsvName(folder, state.image.file_name, kind_, Line(), IsColour(), state.channel);
    ExportCsv(Window(), Context(), {folder, name}, ProfileCsv(held_.Profile(), IsColour(), state.channel));
}

}  // namespace pixora
