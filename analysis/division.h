// How an axis is divided.
#pragma once

#include <cstdint>

namespace pixora {

/// An axis from 0 to at least a largest value, in divisions of a round number of units.
struct Divisions {
    std::uint32_t unit = 1;        ///< units per division
    std::uint16_t count = 0;       ///< divisions; of 16 bits, so that a count beyond wraps
    std::uint32_t full_scale = 0;  ///< count x unit
    friend bool operator==(const Divisions&, const Divisions&) = default;
};

/// Units per division for an axis up to `largest`: 1, 2 or 5 times a power of ten up to 1,000,000.
/// Deliberate: exactly 10,000,000 gives 1.
[[nodiscard]] std::uint32_t UnitPerDivision(std::int64_t largest);
/// The whole division of such an axis.
[[nodiscard]] Divisions DivideAxis(std::uint32_t largest);

}  // namespace pixora
