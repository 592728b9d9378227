// Typing the path of the file to open.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr std::uint32_t kEditModeColour = Rgb(255, 248, 200), kEditModeFace = Rgb(255, 224, 130);

std::filesystem::path MakePicture(std::wstring_view name) {
    return ScratchFile(name, BmpBytes(Chart(64, 48), 24));
}

/// The colour of the path box beside its text.
std::uint32_t PathColour(Program& program) {
    return program.See(program.Item(kPathBox)).At(0, 0);
}

/// The colour of the button's face beside its caption.
std::uint32_t ButtonColour(Program& program) {
    return program.See(program.Item(kEdit)).At(6, 6);
}

void BeginPathEdit(Program& program) {
    Click(program.Item(kEdit));
    WaitFor("path edit mode", [&] { return program.Item(kEdit).Text() == L"ENTER"; });
    WaitForKeyboard(program.Item(kPathBox));
}

void WaitForNormalMode(const Program& program) {
    WaitFor("the end of path edit mode", [&] { return program.Item(kEdit).Text() == L"EDIT"; });
}

/// Replaces the text of the path box, which is marked when the mode begins.
void TypePath(const Program& program, const std::wstring& path) {
    TypeText(path);
    WaitFor("the typed path", [&] { return program.Item(kPathBox).Text() == path; });
}

void CheckControls(const Program& program, bool editing) {
    CAPTURE(editing);
    for (const int id : {kBrowse, kReload, kSizeBox}) CHECK(program.Item(id).Enabled() != editing);
    CHECK(program.Item(kEdit).Enabled());
    CHECK(program.Item(kEdit).Text() == (editing ? L"ENTER" : L"EDIT"));
    CHECK(((program.Item(kPathBox).Style() & ES_READONLY) == 0) == editing);
}

}  // namespace

TEST_CASE("path edit mode shows the whole path on a colour of its own and disables the other ways to open") {
    const std::filesystem::path file =
        MakePicture(L"a folder with a rather long name\\another one of the same kind\\edited.bmp");
    Program program;
    program.Open(file);
    const std::uint32_t plain = PathColour(program);
    const std::uint32_t plain_button = ButtonColour(program);
    CHECK(plain != kEditModeColour);
    CHECK(plain_button != kEditModeFace);
    BeginPathEdit(program);
    CHECK(program.Item(kPathBox).Text() == file.wstring());
    CheckControls(program, true);
    WaitFor("the colour of path edit mode", [&] { return PathColour(program) == kEditModeColour; });
    WaitFor("the button's colour", [&] { return ButtonColour(program) == kEditModeFace; });

    OpenMenu menu = program.OpenMainMenu(L"&File");
    CHECK(menu.Greyed(L"Open (&O)"));
    CHECK_FALSE(menu.Greyed(L"Close All Files (&C)"));
    menu.Dismiss();
    program.Choose(L"Open (&O)");  // also when it is asked for in another way
    Click(program.Item(kPathBox));
    PressKey(VK_ESCAPE);

    // The same path: the button leaves the mode and opens nothing.
    Click(program.Item(kEdit));
    WaitForNormalMode(program);
    CheckControls(program, false);
    CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    WaitFor("the plain colour", [&] { return PathColour(program) == plain; });
    WaitFor("the button's plain colour", [&] { return ButtonColour(program) == plain_button; });
    OpenMenu again = program.OpenMainMenu(L"&File");
    CHECK_FALSE(again.Greyed(L"Open (&O)"));
    again.Dismiss();
    program.Open(MakePicture(L"next.bmp"), 2);
    CHECK(program.Viewers().size() == 2);
    program.Exit();
}

TEST_CASE("a typed path with blanks and Japanese letters is opened by the button, the same again by Enter") {
    const std::filesystem::path file =
        MakePicture(L"\x753B\x50CF \x30D5\x30A9\x30EB\x30C0\\my \x5199\x771F 1.bmp");
    Program program;
    BeginPathEdit(program);
    TypePath(program, L"  \"" + file.wstring() + L"\" ");
    Click(program.Item(kEdit));
    CHECK(program.WaitForViewer(1).Text() == L"[1 ]  (100%) File Name : my \x5199\x771F 1.bmp");
    CheckControls(program, false);
    BeginPathEdit(program);
    CHECK(program.Item(kPathBox).Text() == file.wstring());
    PressKey(VK_RETURN);
    CHECK(program.WaitForViewer(2).Text() == L"[2 ]  (100%) File Name : my \x5199\x771F 1.bmp");
    CheckControls(program, false);
    // RELOAD takes the typed path as well.
    Click(program.Item(kReload));
    program.WaitForViewer(3);
    program.Exit();
}

TEST_CASE("a typed path that cannot be opened is reported and the path before it comes back") {
    const std::filesystem::path file = MakePicture(L"good.bmp");
    const std::wstring missing = (ScratchFolder() / L"missing.bmp").wstring();
    Program program;
    program.Open(file);
    for (const bool by_enter : {false, true}) {
        CAPTURE(by_enter);
        BeginPathEdit(program);
        TypePath(program, missing);
        by_enter ? PressKey(VK_RETURN) : Click(program.Item(kEdit));
        CHECK(DismissErrorBox(program) ==
              ErrorTexts{L"Pixora  : Error   ", L"File: missing.bmp", L"Failed to Open Image File", L""});
        CheckControls(program, false);
        CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    }
    // Nothing typed is nothing to open.
    BeginPathEdit(program);
    PressKey(VK_DELETE);
    WaitFor("the empty box", [&] { return program.Item(kPathBox).Text().empty(); });
    PressKey(VK_RETURN);
    WaitForNormalMode(program);
    CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    Click(program.Item(kReload));
    CHECK(program.WaitForViewer(2).Text() == L"[2 ]  (100%) File Name : good.bmp");
    CHECK(program.Viewers().size() == 2);
    program.Exit();
}

TEST_CASE("what is no file's path is refused by its name, blanks and quotes alone are nothing to open") {
    struct Typed {
        std::wstring text, name;
    };
    const std::wstring endless(400, L'x');
    const std::filesystem::path file = MakePicture(L"good.bmp");
    const std::filesystem::path folder = file.parent_path();
    Program program;
    program.Open(file);
    for (const Typed& typed :
         {Typed{folder.wstring(), folder.filename().wstring()}, Typed{L"50%", L"50%"},
          Typed{L"\xFF15\xFF10.bmp", L"\xFF15\xFF10.bmp"}, Typed{L"what?.bmp|*", L"what?.bmp|*"},
          Typed{L"\"half quoted.bmp", L"\"half quoted.bmp"},
          Typed{L"Z:\\" + endless, ShownPath(endless.substr(0, 259), 38)}}) {
        CAPTURE(typed.name);
        BeginPathEdit(program);
        TypePath(program, typed.text);
        PressKey(VK_RETURN);
        CHECK(DismissErrorBox(program) ==
              ErrorTexts{L"Pixora  : Error   ", L"File: " + typed.name, L"Failed to Open Image File", L""});
        CheckControls(program, false);
        CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    }
    for (const wchar_t* typed : {L"   ", L"\"\"", L" \"\" "}) {
        CAPTURE(std::wstring(typed));
        BeginPathEdit(program);
        TypePath(program, typed);
        PressKey(VK_RETURN);
        WaitForNormalMode(program);
        CHECK(program.Item(kPathBox).Text() == ShownPath(file));
    }
    CHECK(program.Viewers().size() == 1);
    program.Exit();
}

TEST_CASE("a file dropped during path edit mode opens, the mode stays with the new path") {
    const std::filesystem::path first = MakePicture(L"first.bmp"), dropped = MakePicture(L"dropped.bmp");
    Program program;
    program.Open(first);
    BeginPathEdit(program);
    TypePath(program, L"half a path");
    program.Open(dropped, 2);
    CheckControls(program, true);
    CHECK(program.Item(kPathBox).Text() == dropped.wstring());
    // One that cannot be opened leaves the mode and the path before it.
    program.Item(kPathBox).SetText(L"half another");
    program.Drop({ScratchFile(L"text.bmp", "no image at all")});
    CHECK(DismissErrorBox(program).line1 == L"File: text.bmp");
    CheckControls(program, true);
    CHECK(program.Item(kPathBox).Text() == dropped.wstring());
    // It is the last one opened: leaving opens nothing more.
    Click(program.Item(kEdit));
    WaitForNormalMode(program);
    CHECK(program.Item(kPathBox).Text() == ShownPath(dropped));
    program.Open(first, 3);
    CHECK(program.Viewers().size() == 3);
    program.Exit();
}
