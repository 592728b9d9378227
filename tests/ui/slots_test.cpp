// The eight images that can be open at once, and the files that stand for them.
#include <doctest/doctest.h>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

std::filesystem::path Picture24(std::wstring_view name) {
    return ScratchFile(name, BmpBytes(Chart(48, 32), 24));
}

}  // namespace

TEST_CASE("eight images fill the program, a ninth has to wait for a free place") {
    const std::filesystem::path file = Picture24(L"full.bmp");
    Program program;
    for (int number = 1; number <= 8; ++number) program.Open(file, number);
    program.WaitForTitle(L"Pixora  (N=8)");
    program.WaitForSlots({0, 1, 2, 3, 4, 5, 6, 7});

    program.Drop({file});
    CHECK(DismissErrorBox(program) ==
          ErrorTexts{L"Pixora  : Error   ", L"Too many images!", L"Close at least 1 image.", L""});
    CHECK(program.Viewers().size() == 8);

    program.Close(*program.FindViewer(6));
    program.Close(*program.FindViewer(3));
    program.WaitForSlots({0, 1, 3, 4, 6, 7});
    program.WaitForTitle(L"Pixora  (N=6)");
    CHECK(program.Open(file, 3).Text() == L"[3 ]  (100%) File Name : full.bmp");
    CHECK(program.Open(file, 6).Text() == L"[6 ]  (100%) File Name : full.bmp");
    program.WaitForTitle(L"Pixora  (N=8)");
    program.Exit();
}

TEST_CASE("closing a viewer deletes its two files and no other") {
    Program program;
    const Window first = program.Open(Sample(L"tiff16-mono.tif"), 1);
    const Window second = program.Open(Sample(L"tiff12-mono.tif"), 2);
    WriteBytes(DataFolder() / L"import_img_00.txt", "somebody's");
    program.Close(first);
    CHECK(TemporaryCopies() ==
          std::vector<std::wstring>{L"import_img_00.txt", L"import_img_01.bmp", L"import_img_01.tiff"});
    program.Close(second);
    CHECK(TemporaryCopies() == std::vector<std::wstring>{L"import_img_00.txt"});
    program.Exit();
}

TEST_CASE("a viewer's files are deleted also when they are write-protected") {
    Program program;
    const Window viewer = program.Open(Sample(L"tiff16-mono.tif"));
    SetReadOnly(DataFolder() / L"import_img_00.bmp", true);
    SetReadOnly(DataFolder() / L"import_img_00.bin", true);
    program.Close(viewer);
    CHECK(TemporaryCopies().empty());
    CHECK(program.Open(Sample(L"bmp24-grey.bmp")).Text() == L"[1 ]  (100%) File Name : bmp24-grey.bmp");
    program.Exit();
}

TEST_CASE("a write-protected source gives copies that can be deleted again") {
    const std::filesystem::path bmp = Picture24(L"protected.bmp");
    const std::filesystem::path tiff = ScratchFile(L"protected.tif", ReadBytes(Sample(L"tiff8-mono.tif")));
    for (const std::filesystem::path& file : {bmp, tiff}) {
        CAPTURE(file.wstring());
        SetReadOnly(file, true);
        Program program;
        const Window viewer = program.Open(file);
        for (const std::wstring& copy : TemporaryCopies()) CHECK_FALSE(IsReadOnly(DataFolder() / copy));
        program.Close(viewer);
        CHECK(TemporaryCopies().empty());
        CHECK(IsReadOnly(file));
        program.Open(file);  // the place is free again
        program.Exit();
        SetReadOnly(file, false);
    }
}

TEST_CASE("a folder in the place of a display copy is reported") {
    Program program;
    std::filesystem::create_directory(DataFolder() / L"import_img_00.bmp");
    program.Drop({Picture24(L"blocked.bmp")});
    CHECK(DismissErrorBox(program) ==
          ErrorTexts{L"Pixora  : Error   ", L"File: blocked.bmp", L"Failed to Open Image File", L""});
    CHECK(program.Viewers().empty());
    std::filesystem::remove(DataFolder() / L"import_img_00.bmp");
    program.Open(Picture24(L"free.bmp"));
    program.Exit();
}

TEST_CASE("the viewers lie in steps from the corner of the screen") {
    Program program;
    const Window viewer = program.Open(Sample(L"bmp24-grey.bmp"), 1);
    CHECK(GetWindow(viewer.Handle(), GW_OWNER) == nullptr);  // so that it need not lie above the main window
    const RECT first = viewer.Frame();
    const RECT second = program.Open(Sample(L"bmp24-grey.bmp"), 2).Frame();
    CHECK(first.left == 0);
    CHECK(first.top == 0);
    const int step = GetSystemMetrics(SM_CYCAPTION);
    CHECK(second.left == step);
    CHECK(second.top == step);
    program.Exit();
}
