#include "analysis/division.h"

namespace pixora {

std::uint32_t UnitPerDivision(std::int64_t largest) {
    constexpr std::int64_t kLargestListed = 10'000'000;
    constexpr std::uint32_t kWidest = 1'000'000;
    if (largest == kLargestListed) return 1;
    if (largest < 0 || largest > kLargestListed) return kWidest;
    // In each decade: up to the double of its first number, up to the fivefold, and the rest.
    std::uint32_t power = 1;
    for (std::int64_t decade = 10; decade <= largest; decade *= 10, power *= 10) {
        if (largest < 2 * decade) return 2 * power;
        if (largest < 5 * decade) return 5 * power;
        if (largest < 10 * decade) return 10 * power;
    }
    return 1;
}

Divisions DivideAxis(std::uint32_t largest) {
    const std::uint32_t unit = UnitPerDivision(largest);
    const auto count = static_cast<std::uint16_t>(largest / unit + (largest % unit != 0 ? 1 : 0));
    return {unit, count, count * unit};
}

}  // namespace pixora
