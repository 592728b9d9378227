// What stays behind of closed images.
#include <doctest/doctest.h>

#include <windows.h>

#include <psapi.h>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kViewCommands[] = {kViewStatistics, kViewHProfile, kViewVProfile, kViewHistogram,
                                 kViewImageInfo};

/// Bytes of memory that the process keeps at hand.
std::size_t MemoryOf(const Process& process) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    REQUIRE(K32GetProcessMemoryInfo(process.Handle(), &counters, sizeof counters));
    return counters.WorkingSetSize;
}

/// Opens an image, with all its views if asked to, and closes it.
void OpenAndClose(Program& program, const std::filesystem::path& image, bool with_views) {
    const Window viewer = program.Open(image);
    if (with_views)
        for (const int command : kViewCommands) (void)OpenView(program, viewer, command);
    viewer.Post(WM_CLOSE);
    WaitFor("the viewer to close", [&] { return !viewer.Exists(); });
    program.WaitForTitle(L"Pixora");
}

}  // namespace

TEST_CASE("sixty images leave no file, no handle and no memory behind") {
    constexpr std::size_t kImageBytes = 9u * 1000 * 800;  // what a viewer keeps of this image
    const std::filesystem::path image = ScratchFile(L"chart.bmp", BmpBytes(Chart(1000, 800), 24));
    Program program;
    for (int i = 0; i < 6; ++i) OpenAndClose(program, image, i % 3 == 0);
    const HandleCounts before = program.Inside().Handles();
    const std::size_t memory = MemoryOf(program.Running());
    const Window open = program.Open(image);
    CHECK(MemoryOf(program.Running()) > memory + kImageBytes / 2);  // an image that stayed would show
    open.Post(WM_CLOSE);
    WaitFor("the viewer to close", [&] { return !open.Exists(); });
    for (int i = 0; i < 53; ++i) OpenAndClose(program, image, i % 9 == 0);
    CHECK(TemporaryCopies().empty());
    WaitFor("the handles to be given back", [&] {
        const HandleCounts now = program.Inside().Handles();
        return now.gdi <= before.gdi && now.user <= before.user;
    });
    CHECK(MemoryOf(program.Running()) < memory + 2 * kImageBytes);
    std::filesystem::remove(image);  // nobody holds it open
    CHECK_FALSE(std::filesystem::exists(image));
    program.Exit();
}
