// How wide a text shows, and how a long one is shortened.
#pragma once

#include <string>
#include <string_view>

namespace pixora {

/// Display width in half-width units: full-width characters (U+3000 to U+9FFF, U+FF01 to U+FF60, U+FFE0 to
/// U+FFE6) count 2, every other character 1.
[[nodiscard]] int TextWidth(std::wstring_view text);

/// `text` unchanged when it is at most `maximum` units wide, else its first five characters, five full stops
/// and as much of its end as fits. The character that crosses the limit stays, so the result can be one
/// character wider than `maximum`.
[[nodiscard]] std::wstring ShortenText(std::wstring_view text, int maximum);

}  // namespace pixora
