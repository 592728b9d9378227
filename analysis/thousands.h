// Whole numbers with separators.
#pragma once

#include <cstdint>
#include <string>

namespace pixora {

/// `value` with a comma before every three digits: L"1,234,567"; L"---" above 1,000,000,000.
[[nodiscard]] std::wstring ThousandsText(std::uint64_t value);

}  // namespace pixora
