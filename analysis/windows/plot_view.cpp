#include "analysis/windows/plot_view.h"

#include "platform/screen.h"

namespace pixora {
namespace {

void Fill(HDC dc, const RECT& area, PlotColour colour) {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DrawFrame(HDC dc, const RECT& area, PlotColour colour) {
    SetDCBrushColor(dc, colour);
    FrameRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DrawBoxes(HDC dc, const std::vector<PlotBox>& boxes) {
    for (const PlotBox& box : boxes) Fill(dc, {box.left, box.top, box.right, box.bottom}, box.colour);
}

void Stroke(HDC dc, const PlotLine& line) {
    MoveToEx(dc, line.from.x, line.from.y, nullptr);
    LineTo(dc, line.to.x, line.to.y);
}

void DrawLine(HDC dc, const PlotLine& line) {
    if (line.dotted) {
        const UniquePen pen(CreatePen(PS_DOT, 1, line.colour));
        const Selected selected(dc, pen.Get());
        Stroke(dc, line);
        return;
    }
    SetDCPenColor(dc, line.colour);
    Stroke(dc, line);
    SetPixelV(dc, line.to.x, line.to.y, line.colour);  // the pixel that the system leaves out
}

void DrawLines(HDC dc, const std::vector<PlotLine>& lines) {
    const Selected pen(dc, GetStockObject(DC_PEN));
    for (const PlotLine& line : lines) DrawLine(dc, line);
}

void DrawPlot(HDC dc, const Plot& plot) {
    const RECT whole{0, 0, plot.width, plot.height};
    SetBkMode(dc, TRANSPARENT);  // the gaps of dotted lines
    Fill(dc, whole, plot.background);
    DrawFrame(dc, whole, plot.frame);
    DrawLines(dc, plot.grid);
    DrawBoxes(dc, plot.boxes);
    DrawLines(dc, plot.lines);
    DrawLines(dc, plot.cursors);
}

}  // namespace

SIZE PlotView::Size() const {
    RECT client{};
    GetClientRect(control_, &client);
    return SizeOf(client);
}

RECT PlotView::Place() const {
    return ClientRectangleOf(control_);
}

void PlotView::Show(const Plot& plot) {
    if (plot == plot_) return;
    plot_ = plot;
    picture_ = UniqueBitmap();
    InvalidateRect(control_, nullptr, FALSE);
}

void PlotView::PaintPicture(HDC like) {
    picture_ = UniqueBitmap(CreateCompatibleBitmap(like, plot_.width, plot_.height));
    const UniqueMemoryDc memory(CreateCompatibleDC(like));
    if (!picture_ || !memory) return;
    const Selected selected(memory.Get(), picture_.Get());
    DrawPlot(memory.Get(), plot_);
}

bool PlotView::Draw(LPARAM draw_item) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(draw_item);
    if (item.hwndItem != control_) return false;
    if (!picture_) PaintPicture(item.hDC);
    const UniqueMemoryDc memory(CreateCompatibleDC(item.hDC));
    if (!picture_ || !memory) return true;
    const Selected selected(memory.Get(), picture_.Get());
    BitBlt(item.hDC, 0, 0, plot_.width, plot_.height, memory.Get(), 0, 0, SRCCOPY);
    return true;
}

}  // namespace pixora
