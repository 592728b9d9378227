#include "app/main_placement.h"

#include <cstdint>

#include "base/number_text.h"

namespace pixora {
namespace {

// The point at which a window of this length starts so that it lies at `percent` of the free way.
std::int32_t At(std::int32_t screen, std::int32_t window, int percent) {
    return static_cast<std::int32_t>((std::int64_t{screen} - window) * percent / 100);
}

}  // namespace

ScreenPoint PlaceMainWindow(const Settings& settings, ScreenSize screen, ScreenSize window,
                            const OnMonitor& on_monitor) {
    const std::int32_t top = At(screen.height, window.height, 3);
    if (settings.MAIN_POS == L"TR") return {At(screen.width, window.width, 98), top};
    if (settings.MAIN_POS == L"LAST") {
        const ScreenPoint last{ParseWhole(settings.MAIN_POS_X), ParseWhole(settings.MAIN_POS_Y)};
        if (on_monitor(last)) return last;
    }
    return {At(screen.width, window.width, 3), top};
}

}  // namespace pixora
