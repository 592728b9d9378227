// When a viewer reads its image's display copy: once, and again only when it has changed.
#include <doctest/doctest.h>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int k100 = 32791, k200 = 32793, k500 = 32795;

Picture Inverted(Picture picture) {
    for (std::uint32_t& pixel : picture.pixels) pixel ^= 0xFFFFFF;
    return picture;
}

}  // namespace

TEST_CASE("another display size decodes the display copy again only when that has changed") {
    const Picture chart = Chart(120, 90);
    Program program;
    const Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(chart, 24)));
    program.Inside().CountCalls();
    viewer.Command(k200);
    WaitToSee(program, viewer, Enlarged(chart, 2));
    viewer.Command(k500);
    WaitToSee(program, viewer, Enlarged(chart, 5));
    TurnWheel(viewer.ClientPoint(10, 10), -120);
    WaitFor("the size after a step of the wheel",
            [&] { return viewer.Text().find(L"(480%)") != std::wstring::npos; });
    viewer.Command(k100);
    WaitToSee(program, viewer, chart);
    CHECK(program.Inside().CountedCalls().files == 0);
    CHECK(program.Inside().CountedCalls().reads == 0);

    const Picture other = Inverted(Chart(110, 90));  // a file of another length is another file for certain
    WriteBytes(DataFolder() / L"import_img_00.bmp", BmpBytes(other, 24));
    viewer.Command(k200);
    WaitFor("the new picture", [&] { return program.See(viewer).At(20, 20) == other.At(10, 10); });
    CHECK(program.Inside().CountedCalls().files > 0);
    program.Exit();
}
