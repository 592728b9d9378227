// The buttons with a face colour of their own, as the main window has them.
#include <doctest/doctest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr std::uint32_t kPlainFace = Rgb(225, 225, 225), kEditFace = Rgb(255, 224, 130),
                        kBlack = Rgb(0, 0, 0);

/// A place of the face that no caption reaches.
std::uint32_t Face(const Picture& picture) {
    return picture.At(5, picture.height - 6);
}

int Brightness(std::uint32_t colour) {
    return static_cast<int>((colour >> 16 & 0xFF) + (colour >> 8 & 0xFF) + (colour & 0xFF));
}

/// Whether the edge at the left is brighter than the one at the right, as on all that stands out.
bool LooksRaised(const Picture& picture) {
    const int row = picture.height / 2;
    return Brightness(picture.At(0, row)) > Brightness(picture.At(picture.width - 1, row));
}

/// Whether the caption is black; a disabled button has a grey one. The edge's own black does not count.
bool HasBlackText(const Picture& picture) {
    for (int y = 4; y < picture.height - 4; ++y)
        for (int x = picture.width / 4; x < picture.width * 3 / 4; ++x)
            if (picture.At(x, y) == kBlack) return true;
    return false;
}

/// Waits until a button looks so.
void WaitForLook(Program& program, int id, const char* what, bool (*looks)(const Picture&),
                 bool wanted = true) {
    WaitFor(what, [&] { return looks(program.See(program.Item(id))) == wanted; });
}

}  // namespace

TEST_CASE(
    "the buttons of the main window stand out, sink under the mouse and tell whether they can be pressed") {
    Program program;
    for (const int id : {kBrowse, kReload, kEdit}) {
        CAPTURE(id);
        WaitForLook(program, id, "the raised edge", &LooksRaised);
        WaitForLook(program, id, "the caption", &HasBlackText);
        CHECK(Face(program.See(program.Item(id))) == kPlainFace);
    }
    // Beside the place of the next click, which would be the second of a double click.
    const POINT centre = program.Item(kEdit).Centre();
    MoveMouse({centre.x - 12, centre.y});
    Press(Button::left);
    WaitForLook(program, kEdit, "the sunken edge", &LooksRaised, false);
    Release(Button::left);
    WaitFor("the path to be edited", [&] { return program.Item(kEdit).Text() == L"ENTER"; });
    WaitForLook(program, kEdit, "the raised edge", &LooksRaised);
    WaitFor("the button's other face", [&] { return Face(program.See(program.Item(kEdit))) == kEditFace; });
    for (const int id : {kBrowse, kReload}) {
        CAPTURE(id);
        CHECK_FALSE(program.Item(id).Enabled());
        WaitForLook(program, id, "the grey caption", &HasBlackText, false);
        CHECK(Face(program.See(program.Item(id))) == kPlainFace);
    }
    // The keyboard is told by a dotted line, and the blank key presses.
    Click(program.Item(kEdit));
    WaitFor("the end of editing", [&] { return program.Item(kEdit).Text() == L"EDIT"; });
    WaitFor("the plain face", [&] { return Face(program.See(program.Item(kEdit))) == kPlainFace; });
    WaitForLook(program, kReload, "the black caption", &HasBlackText);
    WaitForKeyboard(program.Item(kEdit));
    PressKey(VK_SPACE);
    WaitFor("the path to be edited", [&] { return program.Item(kEdit).Text() == L"ENTER"; });
    program.Exit();
}
