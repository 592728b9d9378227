#include "analysis/thousands.h"

#include "base/number_text.h"

namespace pixora {

std::wstring ThousandsText(std::uint64_t value) {
    if (value > 1'000'000'000) return L"---";
    std::wstring text = FormatWhole(static_cast<std::int64_t>(value));
    for (std::size_t digits = text.size(); digits > 3;) {
        digits -= 3;
        text.insert(digits, 1, L',');
    }
    return text;
}

}  // namespace pixora
