#include "tests/ui/support/views.h"

#include <sstream>

#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

std::wstring Numbered(int number, const wchar_t* title) {
    return L" [" + std::to_wstring(number) + L" ]  " + title;
}

std::string Describe(const std::wstring& caption, std::uint32_t face, bool enabled) {
    std::ostringstream text;
    text << '"' << Narrow(caption) << "\" " << std::hex << face << (enabled ? " enabled" : " disabled");
    return text.str();
}

}  // namespace

std::wstring StatisticsTitle(int number) {
    return Numbered(number, L"Statistics View ");
}

std::wstring ImageInfoTitle(int number) {
    return Numbered(number, L"Image info. ");
}

bool Offers(Program& program, const Window& viewer, std::wstring_view item) {
    OpenMenu menu = OpenContextMenu(program, viewer);
    const bool greyed = menu.Greyed(item);
    menu.Dismiss();
    return !greyed;
}

Window WaitForTitled(const Program& program, const std::wstring& title) {
    return program.Running().WaitForWindow('"' + Narrow(title) + '"',
                                           [&](const Window& window) { return window.Text() == title; });
}

Window OpenStatistics(const Program& program, const Window& viewer, int number) {
    viewer.Command(kViewStatistics);
    return WaitForTitled(program, StatisticsTitle(number));
}

Window OpenImageInfo(const Program& program, const Window& viewer, int number) {
    viewer.Command(kViewImageInfo);
    return WaitForTitled(program, ImageInfoTitle(number));
}

void CloseWindow(const Window& window) {
    ClickCloseButton(window);
    WaitFor("the window to close", [&] { return !window.Exists(); });
}

void PressButton(const Window& window, int control) {
    const Window button = window.Item(control);
    WaitFor("the button to be enabled", [&] { return button.Enabled(); });
    Click(button);
}

std::uint32_t Face(Program& program, const Window& button) {
    // Inside of the edge and of the dotted line of the focus, far from the caption.
    return program.See(button).At(4, 4);
}

void WaitForButton(Program& program, const Window& window, int control, const std::wstring& caption,
                   std::uint32_t face, bool enabled) {
    const Window button = window.Item(control);
    const std::string expected = Describe(caption, face, enabled);
    std::string shown;
    try {
        WaitFor("the button " + expected, [&] {
            return (shown = Describe(button.Text(), Face(program, button), button.Enabled())) == expected;
        });
    } catch (const UiError& error) {
        throw UiError(error.what() + ("; it is " + shown));
    }
}

void MoveTo(const Window& window, POINT corner) {
    SetWindowPos(window.Handle(), nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    WaitFor("the window's new place", [&] {
        const RECT frame = window.Frame();
        return frame.left == corner.x && frame.top == corner.y;
    });
}

}  // namespace pixora::ui
