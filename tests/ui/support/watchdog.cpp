#include "tests/ui/support/watchdog.h"

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <mutex>
#include <thread>

#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

constexpr long long kTestLimit_ms = 120'000;

std::mutex mutex;
std::string test;
long long test_began_ms = 0;
std::atomic<const char*> last_step = "nothing";

void Watch() {
    for (;;) {
        Sleep(500);
        const std::lock_guard lock(mutex);
        if (test.empty() || Now_ms() - test_began_ms < kTestLimit_ms) continue;
        std::printf("STANDS STILL: \"%s\" in: %s\n", test.c_str(), last_step.load());
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), 3);
    }
}

}  // namespace

void StartWatchdog() {
    std::thread(&Watch).detach();
}

void WatchTest(const std::string& name) {
    const std::lock_guard lock(mutex);
    test = name;
    test_began_ms = Now_ms();
}

void WatchStep(const char* step) {
    last_step = step;
}

}  // namespace pixora::ui
