// The display ratio of a viewer: its texts and its limit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/message.h"
#include "viewer/geometry.h"

namespace pixora {

/// The ratio that a viewer starts with when the stored display size is not a ratio.
inline constexpr std::wstring_view kFallbackRatio = L"0.500";

/// The ratio text that a new viewer starts with: `stored`, or the fallback when that is no ratio.
[[nodiscard]] std::wstring StartRatio(std::wstring_view stored);

/// Size of `image` shown at `ratio`: each side times the ratio, truncated and at most 2^31 - 1.
[[nodiscard]] PixelSize DisplayedSize(PixelSize image, double ratio);

/// A ratio text as a percentage without sign: L"0.05" gives L"5", L"1.50" L"150", L"0.123" L"12.3". A text
/// that is no ratio gives L"0".
[[nodiscard]] std::wstring PercentText(std::wstring_view ratio_text);
/// The same with its sign: L"0.05" gives L"5%".
[[nodiscard]] std::wstring PercentSignText(std::wstring_view ratio_text);

/// Checks that an image can be shown at the size that `ratio_text` says: both displayed sides must be at most
/// 22,000 pixels.
/// @return nothing when it can be shown, else the message with the largest percentage that is allowed.
[[nodiscard]] std::optional<Message> CheckDisplayLimit(PixelSize image, std::wstring_view ratio_text);

}  // namespace pixora
