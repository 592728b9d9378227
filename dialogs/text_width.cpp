#include "dialogs/text_width.h"

#include <cstddef>

namespace pixora {
namespace {

constexpr std::size_t kHeadLength = 5;
constexpr std::wstring_view kDots = L".....";

constexpr bool IsBetween(wchar_t c, wchar_t first, wchar_t last) {
    return c >= first && c <= last;
}

constexpr int WidthOf(wchar_t c) {
    const bool full_width = IsBetween(c, L'\u3000', L'\u9FFF') || IsBetween(c, L'\uFF01', L'\uFF60') ||
                            IsBetween(c, L'\uFFE0', L'\uFFE6');
    return full_width ? 2 : 1;
}

}  // namespace

int TextWidth(std::wstring_view text) {
    int width = 0;
    for (const wchar_t c : text) width += WidthOf(c);
    return width;
}

std::wstring ShortenText(std::wstring_view text, int maximum) {
    if (TextWidth(text) <= maximum) return std::wstring(text);
    std::wstring head(text.substr(0, kHeadLength));
    head += kDots;
    const int budget = maximum - TextWidth(head);
    std::size_t start = text.size();
    int width = 0;
    // Deliberate: the character that crosses the limit stays, and at least one does.
    while (start > 0 && (start == text.size() || width <= budget)) width += WidthOf(text[--start]);
    return head.append(text.substr(start));
}

}  // namespace pixora
