// The one place where text becomes a number and a number becomes text: independent of the user's locale,
// saturating, never NaN and never infinite.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pixora {

/// Conversion of a floating value to a whole number, toward zero. Values beyond the 32-bit range give its
/// nearest end; NaN gives 0.
[[nodiscard]] std::int32_t Truncate(double value);

/// Reads a ratio such as "0.50": leading blanks are skipped, then the longest decimal number counts and what
/// follows it is ignored.
/// @return the value when it is finite and above 0; nothing for any other text ("---%", "nan", "-1", "0x10").
[[nodiscard]] std::optional<double> ParseRatio(std::wstring_view text);

/// Reads the leading decimal number of `text` after blanks and an optional minus sign, as a floating value.
/// @return 0 when no number stands there; always finite.
[[nodiscard]] double ParseDecimal(std::wstring_view text);

/// Reads the leading whole number of `text`: blanks, an optional sign, digits; the first other character ends
/// it. An empty number gives 0; numbers beyond the 32-bit range give its nearest end.
[[nodiscard]] std::int32_t ParseWhole(std::wstring_view text);

/// `value` with exactly `decimals` digits after a point, as printf's "%.*f" writes it in the C locale.
[[nodiscard]] std::wstring FormatFixed(double value, int decimals);

/// `value` in plain decimal, as printf's "%d" writes it.
[[nodiscard]] std::wstring FormatWhole(std::int64_t value);

}  // namespace pixora
