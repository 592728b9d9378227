// Conversion between UTF-8 bytes and the wide texts of the program.
#pragma once

#include <string>
#include <string_view>

namespace pixora {

/// Decodes UTF-8. Every byte that belongs to no valid character becomes U+FFFD, so no input fails. Characters
/// beyond U+FFFF become a surrogate pair where a wide character has 16 bits.
[[nodiscard]] std::wstring WideFromUtf8(std::string_view bytes);

/// Encodes as UTF-8. A surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string Utf8FromWide(std::wstring_view text);

}  // namespace pixora
