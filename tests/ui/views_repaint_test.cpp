// How often the views paint: when there is something new to see, and not else.
#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "tests/ui/support/histogram_view.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/profile_view.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

constexpr int kTicksOfRest = 4;

/// A viewer of 120 x 90 colours with all of its views, none over another.
struct Bench {
    Program program;
    Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(Chart(120, 90), 24)));
    Window histogram = Place(kViewHistogram, {640, 10});
    Window row = Place(kViewHProfile, {10, 450});
    Window column = Place(kViewVProfile, {640, 450});
    Window statistics = Place(kViewStatistics, {1270, 10});
    Window info = Place(kViewImageInfo, {1270, 300});
    std::vector<Window> views{histogram, row, column, statistics, info};

    Bench() {
        PointAt({600, 1070});
        for (const Window& view : views) program.Inside().Watch(view);
    }

    /// Waits until each view has lived through some ticks in which none of them painted anything.
    /// @return what each has done since this was called last.
    std::vector<WindowCounts> Rest() {
        std::vector<WindowCounts> before = Counts();
        WaitFor("a time without any painting", [&] {
            const std::vector<WindowCounts> now = Counts();
            bool rested = true;
            for (std::size_t i = 0; i < now.size(); ++i) {
                if (now[i].paints != before[i].paints || now[i].plots != before[i].plots) {
                    before = now;
                    return false;
                }
                rested = rested && now[i].ticks - before[i].ticks >= kTicksOfRest;
            }
            return rested;
        });
        for (const Window& view : views) program.Inside().Watch(view);
        return before;
    }

private:
    Window Place(int command, POINT corner) {
        const Window view = OpenView(program, viewer, command);
        MoveTo(view, corner);
        return view;
    }
    std::vector<WindowCounts> Counts() {
        std::vector<WindowCounts> counts;
        for (const Window& view : views) counts.push_back(program.Inside().Watched(view));
        return counts;
    }
};

/// Of histogram, row, column, statistics and information: which have painted.
std::string Painted(const std::vector<WindowCounts>& counts) {
    std::string names;
    for (std::size_t i = 0; i < counts.size(); ++i)
        if (counts[i].paints > 0) names += "HRCSI"[i];
    return names;
}

}  // namespace

TEST_CASE("a view paints when something that it shows has changed, and its plot once for each change") {
    Bench bench;
    (void)bench.Rest();
    // Commands are posted: a button that is pressed takes the keyboard from another one, which paints both.
    bench.histogram.Command(kHistUp);
    WaitForText(bench.histogram, kHistLevel, L"129");
    std::vector<WindowCounts> counts = bench.Rest();
    CHECK(Painted(counts) == "H");
    CHECK(counts[0].plots == 1);

    bench.column.Command(kLevelDown);
    WaitForText(bench.column, kLevel, L"127");
    counts = bench.Rest();
    CHECK(Painted(counts) == "C");
    CHECK(counts[2].plots == 1);

    bench.row.Command(kLineUp);
    WaitForText(bench.row, kLine, L"43");
    counts = bench.Rest();
    CHECK(Painted(counts) == "R");
    CHECK(counts[1].plots == 1);

    bench.histogram.Command(kHistChannel);
    WaitForText(bench.statistics, 1006, L"G");
    counts = bench.Rest();
    CHECK(Painted(counts) == "HRCS");
    for (const std::size_t plot : {0, 1, 2}) CHECK(counts[plot].plots == 1);

    PointAt(bench.viewer.ClientPoint(10, 10));
    WaitForText(bench.statistics, kStatLocation, L"Location = (10, 10)");
    CHECK(Painted(bench.Rest()) == "S");

    constexpr int k200 = 32793;
    bench.viewer.Command(k200);
    WaitForText(bench.info, 1209, L"Display Size: 200%");
    CHECK(Painted(bench.Rest()) == "SI");

    // The region that shows first is the whole image: no sample more and none less.
    bench.statistics.Command(kStatRegion);
    WaitForText(bench.statistics, kStatRegion, L"REGION OFF");
    CHECK(Painted(bench.Rest()) == "SI");

    // A level that is the level already is nothing new.
    bench.histogram.Command(kHistCentre);
    WaitForText(bench.histogram, kHistLevel, L"128");
    (void)bench.Rest();
    bench.histogram.Command(kHistCentre);
    CHECK(Painted(bench.Rest()).empty());
    bench.program.Exit();
}
