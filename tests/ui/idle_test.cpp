// What the program does while nobody does anything: look around ten times a second, and no more.
#include <doctest/doctest.h>

#include <vector>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kTicksToSettle = 4, kTicksOfRest = 20;

/// One viewer with all of its windows, and what they do.
struct Bench {
    Program program;
    Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(Chart(120, 90), 24)));
    std::vector<Window> ticking{program.Main(), viewer}, silent{viewer.Controls()};

    Bench() {
        const Window statistics = OpenView(program, viewer, kViewStatistics);
        PressButton(statistics, kStatRegion, L"REGION OFF");
        ticking.push_back(statistics);
        ticking.push_back(OpenCoordinates(program, statistics));
        for (const int command : {kViewHProfile, kViewVProfile, kViewHistogram, kViewImageInfo})
            ticking.push_back(OpenView(program, viewer, command));
        PointAt({1900, 1070});
        Watch();
    }

    void Watch() {
        for (const std::vector<Window>* windows : {&ticking, &silent})
            for (const Window& window : *windows) program.Inside().Watch(window);
        program.Inside().CountCalls();
    }

    /// Waits until each window has had that many ticks. @return how often any of them has painted.
    int PaintsWithin(int ticks) {
        int paints = 0;
        WaitFor("the ticks of all windows", [&] {
            bool all = true;
            paints = 0;
            for (const Window& window : ticking) {
                const WindowCounts counts = program.Inside().Watched(window);
                all = all && counts.ticks >= ticks;
                paints += counts.paints;
            }
            for (const Window& window : silent) paints += program.Inside().Watched(window).paints;
            return all;
        });
        return paints;
    }

    /// Waits for some ticks in which nothing happens, and counts from there.
    void Settle() {
        WaitFor("the program to settle", [&] {
            Watch();
            return PaintsWithin(kTicksToSettle) == 0 && program.Inside().CountedCalls() == CallCounts{};
        });
        Watch();
    }
};

}  // namespace

TEST_CASE("with everything open and nothing to do, nothing is painted, read or allocated") {
    Bench bench;
    REQUIRE(bench.ticking.size() == 8);
    REQUIRE(bench.silent.size() == 1);  // the canvas
    bench.Settle();
    CHECK(bench.PaintsWithin(kTicksOfRest) == 0);
    CallCounts calls = bench.program.Inside().CountedCalls();
    CHECK(calls.allocations == 0);
    CHECK(calls.files == 0);
    CHECK(calls.reads == 0);

    // Who does something is seen doing it.
    constexpr int kSaveAsDefault = 32801;
    bench.viewer.Command(kSaveAsDefault);
    WaitFor("the settings file to be written", [&] {
        calls = bench.program.Inside().CountedCalls();
        return calls.files > 0 && calls.reads > 0 && calls.allocations > 0;
    });
    ClickImage(bench.viewer, 60, 45);
    WaitFor("the canvas to be painted",
            [&] { return bench.program.Inside().Watched(bench.silent.front()).paints > 0; });

    // A menu that closes has everything shown anew.
    OpenMenu menu = OpenContextMenu(bench.program, bench.viewer);
    WaitFor("the program to settle under the menu", [&] {
        bench.Watch();
        return bench.PaintsWithin(kTicksToSettle) == 0;
    });
    bench.Watch();
    menu.Dismiss();
    WaitFor("the canvas to be painted again",
            [&] { return bench.program.Inside().Watched(bench.silent.front()).paints > 0; });
    bench.program.Exit();
}
