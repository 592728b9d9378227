#include "tests/ui/support/wait.h"

#include <windows.h>

#include "tests/ui/support/watchdog.h"

namespace pixora::ui {
namespace {

constexpr DWORD kLook_ms = 10;

bool waited_in_vain = false;

std::function<void()>& Watch() {
    static std::function<void()> watch;
    return watch;
}

}  // namespace

void SetWatch(std::function<void()> watch) {
    Watch() = std::move(watch);
}

long long Now_ms() {
    return static_cast<long long>(GetTickCount64());
}

void BeginTest() {
    waited_in_vain = false;
}

void WaitFor(const std::string& what, const std::function<bool()>& condition, int limit_ms) {
    const long long end = Now_ms() + (waited_in_vain ? 0 : limit_ms);
    while (!condition()) {
        if (Watch()) Watch()();
        // One more look after the time is over: the machine may have stood still meanwhile.
        if (Now_ms() >= end) {
            if (condition()) return;
            waited_in_vain = true;
            throw UiError("waited in vain for " + what);
        }
        WatchStep("looking again");
        Sleep(kLook_ms);
    }
}

}  // namespace pixora::ui
