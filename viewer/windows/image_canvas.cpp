#include "viewer/windows/image_canvas.h"

#include <algorithm>
#include <utility>

#include "platform/bitmap24.h"
#include "viewer/windows/display_copy.h"
#include "viewer/windows/geometry_win.h"

namespace pixora {
namespace {

constexpr wchar_t kClassName[] = L"PixoraImageCanvas";

// Painting goes through a buffer of at most this many pixels at a time, so that no half-painted state shows
// and a large window takes no more memory than a small one.
constexpr LONG kBufferPixels = 1 << 20;

bool RegisterCanvasClass(WNDPROC procedure) {
    WNDCLASSEXW canvas{};
    canvas.cbSize = sizeof canvas;
    canvas.hInstance = GetModuleHandleW(nullptr);
    canvas.lpfnWndProc = procedure;
    canvas.lpszClassName = kClassName;
    canvas.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    static const ATOM registered = RegisterClassExW(&canvas);
    return registered != 0;
}

void DrawPicture(HDC dc, HBITMAP picture, const CanvasPlan& plan) {
    const UniqueMemoryDc source(CreateCompatibleDC(dc));
    if (!source) return;
    const Selected selected(source.Get(), picture);
    SetStretchBltMode(dc, COLORONCOLOR);
    SetBrushOrgEx(dc, 0, 0, nullptr);
    StretchBlt(dc, 0, 0, plan.target.width, plan.target.height, source.Get(), 0, 0, plan.source.width,
               plan.source.height, SRCCOPY);
}

void DrawStrokes(HDC dc, const std::vector<Stroke>& strokes) {
    for (const Stroke& stroke : strokes) {
        const UniquePen pen(CreatePen(PS_SOLID, 1, ToWin(stroke.colour)));
        const Selected selected(dc, pen.Get());
        MoveToEx(dc, stroke.from.x, stroke.from.y, nullptr);
        LineTo(dc, stroke.to.x, stroke.to.y);
    }
}

void DrawTint(HDC dc, const RECT& part, const Tint& tint) {
    // One pixel of the colour, stretched: blending does not need a picture as large as the canvas.
    const UniqueMemoryDc source(CreateCompatibleDC(dc));
    const UniqueBitmap pixel(CreateCompatibleBitmap(dc, 1, 1));
    if (!source || !pixel) return;
    const Selected selected(source.Get(), pixel.Get());
    SetPixelV(source.Get(), 0, 0, ToWin(tint.colour));
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, kTintAlpha, 0};
    for (const PixelRect& area : tint.areas) {
        const RECT whole = ToWin(area);
        RECT shown{};
        if (!IntersectRect(&shown, &whole, &part)) continue;
        const PixelSize size = SizeOf(FromWin(shown));
        AlphaBlend(dc, shown.left, shown.top, size.width, size.height, source.Get(), 0, 0, 1, 1, blend);
    }
}

void DrawFrame(HDC dc, const Frame& frame) {
    const UniquePen pen(CreatePen(PS_SOLID, 1, ToWin(frame.colour)));
    const Selected selected_pen(dc, pen.Get());
    const Selected selected_brush(dc, GetStockObject(NULL_BRUSH));
    Rectangle(dc, frame.rect.left, frame.rect.top, frame.rect.right, frame.rect.bottom);
}

}  // namespace

CImageCanvas::~CImageCanvas() {
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

bool CImageCanvas::Create(HWND parent, std::shared_ptr<const CanvasState> state) {
    if (!RegisterCanvasClass(&CImageCanvas::Procedure)) return false;
    state_ = std::move(state);
    window_ = CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (!window_) return false;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return true;
}

std::optional<CImageCanvas::FileVersion> CImageCanvas::VersionOf(const std::filesystem::path& path) {
    std::error_code error;
    FileVersion version{path, std::filesystem::file_size(path, error), {}};
    if (!error) version.written = std::filesystem::last_write_time(path, error);
    if (error) return std::nullopt;
    return version;
}

void CImageCanvas::Load(const std::filesystem::path& display_copy) {
    std::optional<FileVersion> version = VersionOf(display_copy);
    if (version && version == loaded_) return;
    std::optional<UniqueBitmap> picture = LoadDisplayCopy(display_copy);
    if (!picture) return;
    picture_ = *std::move(picture);
    loaded_ = std::move(version);
    Repaint();
}

void CImageCanvas::Resize(PixelSize size) {
    SetWindowPos(window_, nullptr, 0, 0, size.width, size.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CImageCanvas::Repaint() {
    if (window_) InvalidateRect(window_, nullptr, FALSE);  // no window would stand for all of the screen
}

void CImageCanvas::Paint() {
    RECT client{};
    GetClientRect(window_, &client);
    const PaintScope paint(window_);
    RECT dirty{};
    const int kind = GetClipBox(paint.Dc(), &dirty);
    if (kind == ERROR || kind == NULLREGION) return;
    const CanvasPlan plan = picture_ ? PlanCanvas(*state_, SizeOf(FromWin(client))) : CanvasPlan{};
    PaintBuffered(paint.Dc(), dirty, plan, SizeOf(FromWin(client)));
}

void CImageCanvas::PaintBuffered(HDC screen, const RECT& dirty, const CanvasPlan& plan, PixelSize client) {
    const PixelSize size = SizeOf(FromWin(dirty));
    const LONG rows = std::min<LONG>(size.height, std::max<LONG>(1, kBufferPixels / size.width));
    const UniqueMemoryDc buffer(CreateCompatibleDC(screen));
    // Of the picture's own format: StretchBlt may otherwise convert the whole picture before it drops most of
    // it.
    const std::optional<Bitmap24> bitmap = MakeBitmap24(size.width, rows);
    if (!buffer || !bitmap) return Draw(screen, dirty, plan, client);
    const Selected selected(buffer.Get(), bitmap->bitmap.Get());
    for (LONG top = dirty.top; top < dirty.bottom; top += rows) {
        const RECT part{dirty.left, top, dirty.right, std::min(top + rows, dirty.bottom)};
        SetViewportOrgEx(buffer.Get(), -part.left, -part.top, nullptr);
        Draw(buffer.Get(), part, plan, client);
        BitBlt(screen, part.left, part.top, size.width, part.bottom - part.top, buffer.Get(), part.left,
               part.top, SRCCOPY);
    }
}

void CImageCanvas::Draw(HDC dc, const RECT& part, const CanvasPlan& plan, PixelSize client) {
    if (plan.target != client) FillRect(dc, &part, GetSysColorBrush(COLOR_3DFACE));
    if (plan.target != PixelSize{}) DrawPicture(dc, picture_.Get(), plan);
    DrawStrokes(dc, plan.profile_lines);
    if (plan.tint) DrawTint(dc, part, *plan.tint);
    if (plan.frame) DrawFrame(dc, *plan.frame);
    DrawStrokes(dc, plan.mark);
}

LRESULT CALLBACK CImageCanvas::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    auto* self = reinterpret_cast<CImageCanvas*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_ERASEBKGND:
            return TRUE;  // painting covers everything
        case WM_PAINT:
            if (!self) break;
            try {
                self->Paint();
            } catch (...) {
                ValidateRect(window, nullptr);  // no memory for the plan; the next change paints again
            }
            return 0;
        case WM_NCDESTROY:
            if (self) self->window_ = nullptr;
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, w, l);
}

}  // namespace pixora
