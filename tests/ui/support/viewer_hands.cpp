#include "tests/ui/support/viewer_hands.h"

#include <algorithm>
#include <array>
#include <vector>

#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

/// Does what opens a window, and waits for it.
template <typename Action>
Window NewWindow(Program& program, const std::string& what, Action action) {
    const std::vector<Window> before = program.Running().Windows();
    action();
    return program.Running().WaitForWindow(what, [&](const Window& window) {
        return window.Class() == L"#32770" && std::find(before.begin(), before.end(), window) == before.end();
    });
}

std::uint32_t Blend(std::uint32_t below, std::uint32_t colour) {
    constexpr std::uint32_t kAlpha = 70;
    std::uint32_t mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t a = colour >> shift & 255, b = below >> shift & 255;
        mixed |= (kAlpha * a + (255 - kAlpha) * b + 127) / 255 << shift;
    }
    return mixed;
}

}  // namespace

void PointAt(POINT screen) {
    constexpr long long kStill_ms = 40;
    MoveMouse(screen);
    long long since = Now_ms();
    // A late report of an earlier move may put the cursor back there.
    WaitFor("the mouse to stay", [&] {
        POINT now{};
        GetCursorPos(&now);
        if (now.x != screen.x || now.y != screen.y) {
            MoveMouse(screen);
            since = Now_ms();
        }
        return Now_ms() - since >= kStill_ms;
    });
}

void ClickImage(const Window& viewer, int x, int y, Button button) {
    const POINT point = viewer.ClientPoint(x, y);
    PointAt(point);
    ClickAt(point, button);
}

OpenMenu OpenContextMenu(Program& program, const Window& viewer, int x, int y) {
    ClickImage(viewer, x, y, Button::right);
    return {program.Running(), program.Inside()};
}

Window OpenView(Program& program, const Window& viewer, std::wstring_view item) {
    return NewWindow(program, "the view", [&] { OpenContextMenu(program, viewer).Choose(item); });
}

Window OpenView(Program& program, const Window& viewer, int command) {
    return NewWindow(program, "the view", [&] { viewer.Command(command); });
}

void WaitForText(const Window& window, int control, const std::wstring& text) {
    std::wstring shown;
    try {
        WaitFor("the text \"" + Narrow(text) + '"',
                [&] { return (shown = window.ItemText(control)) == text; });
    } catch (const UiError& error) {
        throw UiError(error.what() + std::string("; it is \"") + Narrow(shown) + '"');
    }
}

void WaitForEdges(const Window& coordinates, const Edges& edges) {
    WaitForText(coordinates, kCoordLeft, std::to_wstring(edges.left));
    WaitForText(coordinates, kCoordTop, std::to_wstring(edges.top));
    WaitForText(coordinates, kCoordRight, std::to_wstring(edges.right));
    WaitForText(coordinates, kCoordBottom, std::to_wstring(edges.bottom));
}

void Raise(const Window& window) {
    const RECT frame = window.Frame();
    const POINT caption{frame.left + 40, (frame.top + window.Client().top) / 2};
    PointAt(caption);
    ClickAt(caption);
    WaitFor("the window to come forward", [&] {
        const HWND hit = WindowFromPoint(window.Centre());
        return GetAncestor(hit, GA_ROOT) == window.Handle();
    });
}

void PressButton(const Window& statistics, int button, const std::wstring& caption) {
    Click(statistics.Item(button));
    WaitForText(statistics, button, caption);
}

Window OpenCoordinates(Program& program, const Window& statistics) {
    return NewWindow(program, "the coordinates dialog",
                     [&] { PressButton(statistics, kStatCoordinates, L"H-V OFF"); });
}

void EnterEdges(const Window& coordinates, const Edges& edges) {
    Click(coordinates.Item(kCoordEdit));
    WaitFor("the entries to take text", [&] { return coordinates.Item(kCoordEnter).Enabled(); });
    const std::array<std::pair<int, int>, 4> entries{{{kCoordLeft, edges.left},
                                                      {kCoordTop, edges.top},
                                                      {kCoordRight, edges.right},
                                                      {kCoordBottom, edges.bottom}}};
    for (const auto& [control, value] : entries) coordinates.Item(control).SetText(std::to_wstring(value));
    Click(coordinates.Item(kCoordEnter));
}

void WaitToSee(Program& program, const Window& window, const Picture& expected) {
    std::string difference;
    try {
        WaitFor("the picture", [&] {
            difference = DifferenceEnlarged(program.See(window), expected, 1);
            return difference.empty();
        });
    } catch (const UiError& error) {
        throw UiError(error.what() + std::string("; ") + difference);
    }
}

void DrawAcross(Picture& picture, int y, int from, int to, std::uint32_t colour) {
    if (y < 0 || y >= picture.height) return;
    for (int x = std::max(from, 0); x < std::min(to, picture.width); ++x) picture.At(x, y) = colour;
}

void DrawDown(Picture& picture, int x, int from, int to, std::uint32_t colour) {
    if (x < 0 || x >= picture.width) return;
    for (int y = std::max(from, 0); y < std::min(to, picture.height); ++y) picture.At(x, y) = colour;
}

void DrawFrame(Picture& picture, const RECT& frame, std::uint32_t colour) {
    for (const LONG y : {frame.top, frame.bottom - 1})
        DrawAcross(picture, y, frame.left, frame.right, colour);
    for (const LONG x : {frame.left, frame.right - 1}) DrawDown(picture, x, frame.top, frame.bottom, colour);
}

void TintOutside(Picture& picture, const RECT& hole, std::uint32_t colour) {
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (x < hole.left || x >= hole.right || y < hole.top || y >= hole.bottom)
                picture.At(x, y) = Blend(picture.At(x, y), colour);
}

Picture Enlarged(const Picture& picture, int zoom) {
    Picture large(picture.width * zoom, picture.height * zoom);
    for (int y = 0; y < large.height; ++y)
        for (int x = 0; x < large.width; ++x) large.At(x, y) = picture.At(x / zoom, y / zoom);
    return large;
}

}  // namespace pixora::ui
