// Figures of the viewers in the real program: what they cost while nothing happens, what stays behind of many
// images, how fast they paint and zoom. Prints them; judging them is the reader's.
#include <doctest/doctest.h>

#include <windows.h>

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/wait.h"
#include "tests/ui/support/watchdog.h"

using namespace pixora::ui;

namespace {

constexpr int kViews[] = {kViewStatistics, kViewHProfile, kViewVProfile, kViewHistogram, kViewImageInfo};

double Seconds() {
    LARGE_INTEGER now{}, frequency{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

void Pause(int seconds) {
    for (int i = 0; i < seconds; ++i) {
        WatchStep("pausing");
        Sleep(1000);
    }
}

/// Megabytes of a million bytes that the process keeps at hand.
double MemoryOf(const Process& process) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    K32GetProcessMemoryInfo(process.Handle(), &counters, sizeof counters);
    return static_cast<double>(counters.WorkingSetSize) / 1e6;
}

/// Handles of the kernel's objects: files, events, threads and the like.
int KernelHandlesOf(const Process& process) {
    struct Entry {
        USHORT process, back_trace;
        UCHAR type, flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    constexpr auto kAllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<unsigned char> table(1 << 20);
    if (NtQuerySystemInformation(kAllHandles, table.data(), static_cast<ULONG>(table.size()), nullptr))
        return -1;
    ULONG count = 0;
    std::memcpy(&count, table.data(), sizeof count);
    int found = 0;
    for (ULONG i = 0; i < count; ++i) {
        Entry entry{};
        std::memcpy(&entry, table.data() + 8 + i * sizeof entry, sizeof entry);
        found += entry.process == static_cast<USHORT>(process.Id());
    }
    return found;
}

void Close(Program& program, const Window& viewer) {
    viewer.Post(WM_CLOSE);
    WaitFor("the viewer to close", [&] { return !viewer.Exists(); });
    program.WaitForTitle(L"Pixora");
}

/// A grey-free image whose colours tell the place: red the column, green the row, one level for 64 pixels.
std::string PlaceChart(int width, int height) {
    BmpFile file{.width = width, .height = height};
    const std::size_t stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    file.pixels.assign(stride * static_cast<std::size_t>(height), '\0');
    for (int y = 0; y < height; ++y) {
        char* at = file.pixels.data() + stride * static_cast<std::size_t>(height - 1 - y);
        for (int x = 0; x < width; ++x, at += 3) {
            at[0] = '\x40';
            at[1] = static_cast<char>(y / 64 & 255);
            at[2] = static_cast<char>(x / 64 & 255);
        }
    }
    return Bytes(file);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// One step of the wheel, until the pixels beside the cursor are those of the new size and stay.
/// @return milliseconds.
double WheelStep(POINT cursor, int delta, HDC screen) {
    constexpr double kStaySeconds = 0.35;
    const auto look = [&] { return GetPixel(screen, cursor.x + 150, cursor.y + 100); };
    COLORREF last = look();
    double changed = 0;
    const double start = Seconds();
    TurnWheel(cursor, delta);
    while (changed == 0 ? Seconds() - start < 5 : Seconds() - changed < kStaySeconds) {
        const COLORREF now = look();
        if (now == last) continue;
        last = now;
        changed = Seconds();
    }
    return (changed - start) * 1000;
}

/// Paints all of a window at once, some times. @return milliseconds a painting.
double PaintingTime(const Window& canvas) {
    std::vector<double> times;
    for (int i = 0; i < 15; ++i) {
        WatchStep("painting");
        const double start = Seconds();
        RedrawWindow(canvas.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        times.push_back((Seconds() - start) * 1000);
    }
    return Median(times);
}

}  // namespace

TEST_CASE("idle viewers") {
    WatchTest({});  // takes longer than a test may
    const std::filesystem::path image = ScratchFile(L"idle.bmp", BmpBytes(Chart(1000, 800), 24));
    Program program({.settings = {{L"IMG_SIZE", L"0.50"}}});
    const auto measure = [&](const char* what) {
        PointAt({1900, 1070});
        Pause(2);
        const double wall = Seconds(), processor = program.Inside().ProcessorTime_s();
        Pause(20);
        const double used = program.Inside().ProcessorTime_s() - processor;
        std::printf("%-48s %.2f %% of one core\n", what, 100 * used / (Seconds() - wall));
    };
    measure("the main window alone");
    for (int number = 1; number <= 8; ++number) {
        const Window viewer = program.Open(image, number);
        for (const int view : kViews) (void)OpenView(program, viewer, view);
    }
    measure("eight viewers with all five views each");
    program.Exit();
}

TEST_CASE("five hundred images") {
    WatchTest({});  // takes longer than a test may
    const std::filesystem::path image = ScratchFile(L"many.bmp", BmpBytes(Chart(1000, 800), 24));
    Program program({.settings = {{L"IMG_SIZE", L"0.50"}}});
    std::printf("images      MB   GDI  user  kernel  files\n");
    for (int i = 0; i <= 500; ++i) {
        if (i == 10 || (i > 0 && i % 100 == 0)) {
            Pause(1);
            const HandleCounts handles = program.Inside().Handles();
            std::printf("%6d  %6.1f  %4d  %4d  %6d  %5zu\n", i, MemoryOf(program.Running()), handles.gdi,
                        handles.user, KernelHandlesOf(program.Running()), DataFiles().size());
        }
        const Window viewer = program.Open(image);
        if (i % 10 == 0)
            for (const int view : kViews) (void)OpenView(program, viewer, view);
        Close(program, viewer);
    }
    program.Exit();
}

TEST_CASE("a wheel step and the painting of 100 megapixels") {
    WatchTest({});  // takes longer than a test may
    const std::filesystem::path image = ScratchFile(L"large.bmp", PlaceChart(10000, 10000));
    Program program({.settings = {{L"IMG_SIZE", L"0.10"}}});
    const Window viewer = program.Open(image);
    const POINT origin = viewer.ClientPoint(0, 0);
    const POINT cursor{origin.x + 200, origin.y + 200};
    PointAt(cursor);
    HDC screen = GetDC(nullptr);
    std::vector<double> steps;
    for (int i = 0; i < 24; ++i) {
        steps.push_back(WheelStep(cursor, i % 2 == 0 ? 120 : -120, screen));
        Sleep(static_cast<DWORD>(37 * (i % 5)));  // at another moment between two ticks each time
    }
    ReleaseDC(nullptr, screen);
    std::printf("wheel to painted pixels: median %.0f ms, most %.0f ms\n", Median(steps),
                *std::max_element(steps.begin(), steps.end()));
    constexpr std::pair<int, int> kSizes[] = {{32806, 5},  {32782, 10},  {32783, 20},
                                              {32786, 50}, {32791, 100}, {32793, 200}};
    for (const auto& [command, percent] : kSizes) {
        viewer.Command(command);
        const std::wstring caption = L"(" + std::to_wstring(percent) + L"%)";
        WaitFor("the size", [&] { return viewer.Text().find(caption) != std::wstring::npos; });
        const Window canvas = viewer.Controls().front();
        const RECT area = canvas.Client();
        std::printf("painting at %3d %%  %5ld x %-5ld  %.1f ms\n", percent, area.right - area.left,
                    area.bottom - area.top, PaintingTime(canvas));
    }
    program.Exit();
}
