#include "analysis/windows/histogram.h"

#include <windowsx.h>

#include <array>
#include <utility>

#include "analysis/channel.h"
#include "analysis/csv.h"
#include "analysis/windows/csv_export.h"
#include "dialogs/windows/messages.h"
#include "platform/menu.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {
namespace {

constexpr std::array kLevelLabels = {IDC_HIST_LEVEL1, IDC_HIST_LEVEL2, IDC_HIST_LEVEL3, IDC_HIST_LEVEL4};

}  // namespace

CHistogram::CHistogram(ViewContext context)
    : AnalysisView(IDD_HISTOGRAM, WindowKind::histogram, &ViewFlags::histogram, std::move(context)),
      level_(EffectiveBits(State().image), Context().settings->LVL_CURSOR) {}

CHistogram::~CHistogram() {
    Destroy();  // while the handlers of this class can still be called
}

void CHistogram::Begin() {
    plot_.Attach(Item(IDC_HIST_PLOT));
    State().binning = BinningOf(Context().settings->HIS_BINNING);
    CheckDlgButton(Window(), IDC_HIST_BINNING, State().binning ? BST_CHECKED : BST_UNCHECKED);
    ShowWindow(Item(IDC_HIST_CHANNEL), IsColour() ? SW_SHOWNA : SW_HIDE);
    ShowLevelCursor();
    Update(true);
}

// What is shown is compared with the viewer's state, so it does not matter who asked.
void CHistogram::Update(bool) {
    FollowTitle();
    FollowBits();
    FollowChannel();
    FollowLevel();
    FollowLines();
    FollowPlot();
}

void CHistogram::FollowTitle() {
    if (caption_style_ == State().caption_style) return;
    caption_style_ = State().caption_style;
    SetCaption(HistogramTitle(State().image, *caption_style_));
}

void CHistogram::FollowBits() {
    level_.FollowBits(EffectiveBits(State().image));
    if (bits_ == level_.Bits()) return;
    bits_ = level_.Bits();
    const std::array labels = LevelLabels(*bits_);
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) SetText(kLevelLabels[i], labels[i]);
    SetText(IDC_HIST_LEVEL_DIVISION, LevelDivisionText(*bits_));
}

void CHistogram::FollowChannel() {
    if (channel_ == State().channel) return;
    channel_ = State().channel;
    SetText(IDC_HIST_CHANNEL, std::wstring(ChannelCaption(*channel_, IsColour())));
}

// Only a level that has moved is written, so that nothing disturbs the user's typing.
void CHistogram::FollowLevel() {
    if (level_shown_ == level_.Level()) return;
    level_shown_ = level_.Level();
    SetText(IDC_HIST_LEVEL, level_.Text());
}

void CHistogram::FollowLines() {
    const ViewerState& state = State();
    const SampleStatistics& statistics = state.measurement.statistics[StatisticsSlot(state.channel)];
    if (statistics_ != statistics) {
        statistics_ = statistics;
        const HistogramLines lines = HistogramLinesOf(statistics);
        SetText(IDC_HIST_MIN, lines.min);
        SetText(IDC_HIST_MAX, lines.max);
        SetText(IDC_HIST_MEAN, lines.mean);
        SetText(IDC_HIST_STD, lines.std);
    }
    const Frequency frequency{CountAt(state.measurement, state.channel, level_.Level()), level_.Level(),
                              state.channel};
    if (frequency_ == frequency) return;
    frequency_ = frequency;
    SetText(IDC_HIST_FREQUENCY, FrequencyText(frequency.count, frequency.level));
}

HistogramLook CHistogram::CurrentLook() const {
    const SIZE size = plot_.Size();
    return {{size.cx, size.cy, level_.Bits()},
            State().channel,
            State().binning,
            level_.Shown() ? std::optional(level_.Level()) : std::nullopt};
}

void CHistogram::FollowPlot() {
    const HistogramLook look = CurrentLook();
    if (measured_ == State().measured && drawn_ == look) return;
    if (!drawn_ || drawn_->scale != look.scale) PlaceLabels();
    measured_ = State().measured;
    drawn_ = look;
    painter_.Draw(State().measurement, look);
    plot_.Show(painter_.Picture());
    if (axis_ == painter_.CountAxis()) return;
    axis_ = painter_.CountAxis();
    SetText(IDC_HIST_FULL_SCALE, FullScaleLabel(axis_->full_scale));
    SetText(IDC_HIST_COUNT_DIVISION, CountDivisionText(axis_->unit));
}

void CHistogram::PlaceLabels() const {
    const HistogramScale scale = CurrentLook().scale;
    const RECT plot = plot_.Place();
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) {
        const RECT label = ClientRectangleOf(Item(kLevelLabels[i]));
        const int left = QuarterLabelLeft(scale, static_cast<int>(i) + 1, SizeOf(label).cx);
        PlaceLabel(kLevelLabels[i], plot.left + left, label.top);
    }
    const RECT top = ClientRectangleOf(Item(IDC_HIST_FULL_SCALE));
    PlaceLabel(IDC_HIST_FULL_SCALE, top.left, plot.top + FullScaleLabelTop(SizeOf(top).cy));
}

void CHistogram::PlaceLabel(int control, int left, int top) const {
    SetWindowPos(Item(control), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CHistogram::ShowLevelCursor() {
    SetText(IDC_HIST_ON, std::wstring(level_.ButtonCaption()));
    EnableWindow(Item(IDC_HIST_LEVEL), level_.Shown());
}

void CHistogram::Changed() {
    State().edit.redraw.histogram = true;
    Update(false);
}

Handled CHistogram::OnCommand(const Command& command) {
    if (command.code != BN_CLICKED || InModal()) return Handled::no;
    if (command.id == IDM_HISTOGRAM_EXPORT) {
        Export();
        return Handled::yes;
    }
    if (command.id == IDC_HIST_CHANNEL) {
        State().channel = NextChannel(State().channel, IsColour());
        State().edit.redraw = kAllViews;
    } else if (command.id == IDC_HIST_BINNING) {
        State().binning = IsDlgButtonChecked(Window(), IDC_HIST_BINNING) == BST_CHECKED;
    } else if (!OnLevelButton(command.id)) {
        return Handled::no;
    }
    if (Window()) Changed();
    return Handled::yes;
}

bool CHistogram::OnLevelButton(int id) {
    switch (id) {
        case IDC_HIST_CENTER:
            level_.Centre();
            return true;
        case IDC_HIST_UP:
            level_.Up();
            return true;
        case IDC_HIST_DOWN:
            level_.Down();
            return true;
        case IDC_HIST_ENTER:
            ApplyLevel();
            return true;
        case IDC_HIST_ON:
            level_.Toggle();
            ShowLevelCursor();
            return true;
        default:
            return false;
    }
}

Handled CHistogram::Filter(MSG& message) {
    const KeyVerdict verdict = keys_.Test(message.message, message.wParam);
    if (verdict.act == PlotKey::right) level_.Up();
    if (verdict.act == PlotKey::left) level_.Down();
    if (verdict.act == PlotKey::enter) ApplyLevel();
    if (Window() && verdict.act != PlotKey::none) Changed();
    return verdict.swallow ? Handled::yes : Handled::no;
}

void CHistogram::ApplyLevel() {
    const LevelEntry entry = CheckLevelEntry(Text(IDC_HIST_LEVEL), level_.Bits());
    if (entry.level) level_.Set(*entry.level);
    level_shown_.reset();  // also "007" is shown as it counts
    FollowLevel();         // before the box, so that nothing can apply a refused text again
    if (entry.level) return;
    ShowRefusal(Window(), entry.refusal);
    keys_.Forget();
}

std::optional<LRESULT> CHistogram::OnMessage(UINT message, WPARAM w, LPARAM l) {
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

void CHistogram::ClickPlot(POINT client) {
    const RECT plot = plot_.Place();
    if (client.y < plot.top || client.y >= plot.bottom) return;
    level_.Set(LevelAtClick(client.x, plot.left, plot.right, State().image));
    Changed();
}

bool CHistogram::ShowMenu(HWND control, LPARAM position) {
    const POINT at = MenuPosition(control, position);
    POINT client = at;
    ScreenToClient(Window(), &client);
    RECT area{};
    GetClientRect(Window(), &area);
    if (InModal() || !PtInRect(&area, client)) return false;  // the caption has the system's menu
    const UniqueMenu menu = LoadMenuResource(IDR_HISTOGRAM_MENU);
    const int command = TrackPopup(Window(), GetSubMenu(menu.get(), 0), at);
    if (command != 0) SendMessageW(Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    return true;
}

void CHistogram::Export() {
    const ViewerState& state = State();
    const std::wstring name =
        HistogramCsvName(CsvStartFolder(Context()), state.image.file_name, IsColour(), state.channel);
    const std::string bytes =
        HistogramCsv(state.measurement.counts, IsColour(), state.channel, EffectiveBits(state.image));
    ExportCsv(Window(), Context(), name, bytes);
}

}  // namespace pixora
