#include "analysis/windows/histogram.h"

#include <array>
#include <utility>

#include "analysis/csv.h"
#include "analysis/windows/csv_export.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {
namespace {

constexpr std::array kLevelLabels = {IDC_HIST_LEVEL1, IDC_HIST_LEVEL2, IDC_HIST_LEVEL3, IDC_HIST_LEVEL4};
constexpr PlotParts kParts = {.plot = IDC_HIST_PLOT,
                              .channel = IDC_HIST_CHANNEL,
                              .level = IDC_HIST_LEVEL,
                              .level_enter = IDC_HIST_ENTER,
                              .level_on = IDC_HIST_ON,
                              .level_centre = IDC_HIST_CENTER,
                              .level_up = IDC_HIST_UP,
                              .level_down = IDC_HIST_DOWN,
                              .menu = IDR_HISTOGRAM_MENU,
                              .export_command = IDM_HISTOGRAM_EXPORT,
                              .step_up = PlotKey::right,
                              .step_down = PlotKey::left};

}  // namespace

CHistogram::CHistogram(ViewContext context)
    : PlotDialog(IDD_HISTOGRAM, WindowKind::histogram, &ViewFlags::histogram, kParts, std::move(context)) {}

CHistogram::~CHistogram() {
    Destroy();  // while the handlers of this class can still be called
}

void CHistogram::Begin() {
    PlotDialog::Begin();
    State().binning = BinningOf(Context().settings->HIS_BINNING);
    CheckDlgButton(Window(), IDC_HIST_BINNING, State().binning ? BST_CHECKED : BST_UNCHECKED);
    Update();
}

void CHistogram::Update() {
    FollowTitle();
    FollowBits();
    FollowChannel();
    FollowLevel();
    FollowLines();
    FollowPlot();
}

std::wstring CHistogram::Title() const {
    return HistogramTitle(State().image, State().caption_style);
}

void CHistogram::FollowBits() {
    Cursor().FollowBits(EffectiveBits(State().image));
    if (bits_ == Cursor().Bits()) return;
    bits_ = Cursor().Bits();
    const std::array labels = LevelLabels(*bits_);
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) SetText(kLevelLabels[i], labels[i]);
    SetText(IDC_HIST_LEVEL_DIVISION, LevelDivisionText(*bits_));
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
    const Frequency frequency{CountAt(state.measurement, state.channel, Cursor().Level()), Cursor().Level(),
                              state.channel};
    if (frequency_ == frequency) return;
    frequency_ = frequency;
    SetText(IDC_HIST_FREQUENCY, FrequencyText(frequency.count, frequency.level));
}

HistogramLook CHistogram::CurrentLook() const {
    const SIZE size = PlotFrame().Size();
    return {{size.cx, size.cy, Cursor().Bits()},
            State().channel,
            State().binning,
            Cursor().Shown() ? std::optional(Cursor().Level()) : std::nullopt};
}

void CHistogram::FollowPlot() {
    const HistogramLook look = CurrentLook();
    if (measured_ == State().measured && drawn_ == look) return;
    if (!drawn_ || drawn_->scale != look.scale) PlaceLabels();
    measured_ = State().measured;
    drawn_ = look;
    painter_.Draw(State().measurement, look);
    PlotFrame().Show(painter_.Picture());
    if (axis_ == painter_.CountAxis()) return;
    axis_ = painter_.CountAxis();
    SetText(IDC_HIST_FULL_SCALE, FullScaleLabel(axis_->full_scale));
    SetText(IDC_HIST_COUNT_DIVISION, CountDivisionText(axis_->unit));
}

void CHistogram::PlaceLabels() const {
    const HistogramScale scale = CurrentLook().scale;
    const RECT plot = PlotFrame().Place();
    for (std::size_t i = 0; i < kLevelLabels.size(); ++i) {
        const RECT label = ClientRectangleOf(Item(kLevelLabels[i]));
        const int left = QuarterLabelLeft(scale, static_cast<int>(i) + 1, SizeOf(label).cx);
        MoveWindowTo(Item(kLevelLabels[i]), {plot.left + left, label.top});
    }
    const RECT top = ClientRectangleOf(Item(IDC_HIST_FULL_SCALE));
    MoveWindowTo(Item(IDC_HIST_FULL_SCALE), {top.left, plot.top + FullScaleLabelTop(SizeOf(top).cy)});
}

void CHistogram::Changed() {
    State().edit.redraw.histogram = true;
    Update();
}

bool CHistogram::OnOwnButton(int id) {
    if (id != IDC_HIST_BINNING) return false;
    State().binning = IsDlgButtonChecked(Window(), id) == BST_CHECKED;
    return true;
}

std::optional<std::uint32_t> CHistogram::LevelAtPoint(POINT client) const {
    const RECT plot = PlotFrame().Place();
    if (client.y < plot.top || client.y >= plot.bottom) return std::nullopt;
    return LevelAtClick(client.x, plot.left, plot.right, State().image);
}

void CHistogram::Export() {
    const ViewerState& state = State();
    const std::wstring folder = CsvStartFolder(Context());
    const std::wstring name = HistogramCsvName(folder, state.image.file_name, IsColour(), state.channel);
    const std::string bytes =
        HistogramCsv(state.measurement.counts, IsColour(), state.channel, EffectiveBits(state.image));
    ExportCsv(Window(), Context(), {folder, name}, bytes);
}

}  // namespace pixora
