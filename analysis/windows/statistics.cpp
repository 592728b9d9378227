#include "analysis/windows/statistics.h"

#include <utility>

#include "analysis/channel.h"
#include "resources/resource.h"
#include "viewer/display_size.h"
#include "viewer/edit_modes.h"

namespace pixora {
namespace {

template <typename Lines>
struct Line {
    int control;
    std::wstring Lines::*text;
};
constexpr Line<ReadoutLines> kReadoutLines[] = {
    {IDC_STAT_LOCATION, &ReadoutLines::location},
    {IDC_STAT_VALUE_TOP, &ReadoutLines::top},
    {IDC_STAT_VALUE_MIDDLE, &ReadoutLines::middle},
    {IDC_STAT_VALUE_BOTTOM, &ReadoutLines::bottom},
};
constexpr Line<RegionLines> kRegionLines[] = {
    {IDC_STAT_REGION_SIZE, &RegionLines::size}, {IDC_STAT_MAX, &RegionLines::max},
    {IDC_STAT_MIN, &RegionLines::min},          {IDC_STAT_MEAN, &RegionLines::mean},
    {IDC_STAT_STD, &RegionLines::std},
};
// Of no use while the region is hidden.
constexpr int kOfRegion[] = {IDC_STAT_REGION_SIZE, IDC_STAT_MAX, IDC_STAT_MIN, IDC_STAT_MEAN, IDC_STAT_STD};

// Sets the controls whose lines have changed.
template <typename Lines, std::size_t count>
void ShowLines(HWND window, const Line<Lines> (&table)[count], Lines& shown, Lines lines) {
    for (const auto& [control, text] : table)
        if (lines.*text != shown.*text) SetDlgItemTextW(window, control, (lines.*text).c_str());
    shown = std::move(lines);
}

void Dress(CColorButton& button, HWND item, const ButtonLook& look) {
    button.SetCaption(look.caption);
    button.SetBackColor(look.face);
    button.SetTextColor(look.text);
    button.Enable(look.enabled);
    ShowWindow(item, look.visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace

CStatistics::CStatistics(ViewContext context)
    : AnalysisView(IDD_STATISTICS, WindowKind::statistics, &ViewFlags::statistics, std::move(context)) {}

CStatistics::~CStatistics() {
    Destroy();  // while the handlers of this class can still be called
}

void CStatistics::Begin() {
    region_.Attach(Item(IDC_STAT_REGION_BUTTON));
    corner_.Attach(Item(IDC_STAT_CORNER));
    move_.Attach(Item(IDC_STAT_MOVE));
    coordinates_.Attach(Item(IDC_STAT_COORDINATES));
    channel_.Attach(Item(IDC_STAT_CHANNEL));
    ShowImage();
    Update();
}

void CStatistics::ShowImage() {
    const ImageBuffer& image = State().image;
    SetCaption(StatisticsTitle(image.slot));
    const ImageLines lines =
        StatisticsImageLines(image.pixel_format, image.width, image.height, image.colour != 0);
    SetText(IDC_STAT_FORMAT, lines.format);
    SetText(IDC_STAT_IMAGE_SIZE, lines.image_size);
    SetText(IDC_STAT_COLOUR, lines.colour);
}

void CStatistics::Update() {
    FollowDisplaySize();
    FollowReadout();
    FollowChannel();
    FollowRegion();
    FollowModes();
    TakeRegionChange(State(), State().readout.Active());
}

void CStatistics::End() {
    StatisticsClosed(State());
}

void CStatistics::FollowDisplaySize() {
    if (State().ratio_text == ratio_text_) return;
    ratio_text_ = State().ratio_text;
    ratio_ = RatioOf(State());
    SetText(IDC_STAT_DISPLAY_SIZE, DisplaySizeLine(PercentSignText(ratio_text_)));
}

ReadoutFacts CStatistics::CurrentReadout() const {
    const PixelReadout& readout = State().readout;
    const PixelSize image = ImageSizeOf(State());
    return {readout.mouse.x, readout.mouse.y,  ratio_,       image.width, image.height,
            IsColour(),      readout.Active(), readout.none, readout.rgb};
}

void CStatistics::FollowReadout() {
    const ReadoutFacts facts = CurrentReadout();
    if (readout_ == facts) return;
    readout_ = facts;
    ShowLines(Window(), kReadoutLines, readout_lines_, LinesOf(facts));
}

RegionFacts CStatistics::CurrentRegion() const {
    const ViewerState& state = State();
    return {state.region, state.region_on, state.measurement.statistics[StatisticsSlot(state.channel)]};
}

void CStatistics::FollowRegion() {
    const RegionFacts facts = CurrentRegion();
    if (region_facts_ == facts) return;
    region_facts_ = facts;
    ShowLines(Window(), kRegionLines, region_lines_, LinesOf(facts));
}

void CStatistics::FollowModes() {
    EditState& edit = State().edit;
    edit.corner_off = edit.move_off = false;  // the buttons are compared with the modes themselves
    const RegionModes modes{State().region_on, edit.corner, edit.move, edit.coordinates};
    if (modes_ == modes) return;
    modes_ = modes;
    const RegionButtons look = LookOfRegionButtons(modes);
    Dress(region_, Item(IDC_STAT_REGION_BUTTON), look.region);
    Dress(corner_, Item(IDC_STAT_CORNER), look.corner);
    Dress(move_, Item(IDC_STAT_MOVE), look.move);
    Dress(coordinates_, Item(IDC_STAT_COORDINATES), look.coordinates);
    for (const int control : kOfRegion) EnableWindow(Item(control), modes.region_on);
}

void CStatistics::FollowChannel() {
    State().channel = ValidChannel(State().channel, IsColour());
    const ButtonLook look = LookOfChannelButton(IsColour(), State().channel);
    if (channel_look_ == look) return;
    channel_look_ = look;
    Dress(channel_, Item(IDC_STAT_CHANNEL), look);
}

Handled CStatistics::OnCommand(const Command& command) {
    // The second of two fast clicks on a button that draws itself comes as a double click.
    if ((command.code != BN_CLICKED && command.code != BN_DOUBLECLICKED) || InModal()) return Handled::no;
    switch (command.id) {
        case IDC_STAT_REGION_BUTTON:
            PressRegion(State());
            break;
        case IDC_STAT_CORNER:
            PressCorner(State());
            break;
        case IDC_STAT_MOVE:
            PressMove(State());
            break;
        case IDC_STAT_COORDINATES:
            PressCoordinates(State());
            break;
        case IDC_STAT_CHANNEL:
            State().channel = NextChannel(State().channel, IsColour());
            RequestRedraw(State());
            break;
        default:
            return Handled::no;
    }
    Update();
    return Handled::yes;
}

std::optional<LRESULT> CStatistics::OnMessage(UINT message, WPARAM, LPARAM l) {
    if (message == WM_DRAWITEM && DrawColorButton(l, {&region_, &corner_, &move_, &coordinates_, &channel_}))
        return TRUE;
    return std::nullopt;
}

}  // namespace pixora
