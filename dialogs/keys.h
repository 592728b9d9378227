// Messages and keys that portable rules tell apart, by the numbers that the system gives them.
#pragma once

#include <cstdint>

namespace pixora {

inline constexpr std::uint32_t kKeyDownMessage = 0x0100;
inline constexpr std::uint32_t kKeyUpMessage = 0x0101;

inline constexpr std::uint64_t kReturnKey = 13;
inline constexpr std::uint64_t kEscapeKey = 27;
inline constexpr std::uint64_t kLeftKey = 37;
inline constexpr std::uint64_t kUpKey = 38;
inline constexpr std::uint64_t kRightKey = 39;
inline constexpr std::uint64_t kDownKey = 40;

}  // namespace pixora
