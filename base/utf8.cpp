#include "base/utf8.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace pixora {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Decoded {
    char32_t character;
    std::size_t length;
};

constexpr bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// Decodes the character at the start of `bytes`, which is not empty; one byte is taken when it is not valid.
Decoded DecodeOne(std::string_view bytes) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return {kReplacement, 1};
    char32_t c = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {kReplacement, 1};
        c = (c << 6) | (byte(i) & 0x3Fu);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool valid = c >= kSmallest[length] && c <= 0x10FFFF && !IsHighSurrogate(c) && !IsLowSurrogate(c);
    return valid ? Decoded{c, length} : Decoded{kReplacement, 1};
}

void AppendWide(std::wstring& text, char32_t c) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (c > 0xFFFF) {
            text.push_back(static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10)));
            text.push_back(static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
            return;
        }
    }
    text.push_back(static_cast<wchar_t>(c));
}

void AppendUtf8(std::string& bytes, char32_t c) {
    const auto tail = [&](int shift) { bytes.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
    if (c < 0x80) {
        bytes.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        bytes.push_back(static_cast<char>(0xC0 | (c >> 6)));
        tail(0);
    } else if (c < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0 | (c >> 12)));
        tail(6);
        tail(0);
    } else {
        bytes.push_back(static_cast<char>(0xF0 | (c >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

std::wstring WideFromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto [character, length] = DecodeOne(bytes);
        AppendWide(text, character);
        bytes.remove_prefix(length);
    }
    return text;
}

std::string Utf8FromWide(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = static_cast<std::make_unsigned_t<wchar_t>>(text[i]);
        if (IsHighSurrogate(c) && i + 1 < text.size()) {
            const char32_t low = static_cast<std::make_unsigned_t<wchar_t>>(text[i + 1]);
            if (IsLowSurrogate(low)) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                ++i;
            }
        }
        const bool valid = c <= 0x10FFFF && !IsHighSurrogate(c) && !IsLowSurrogate(c);
        AppendUtf8(bytes, valid ? c : kReplacement);
    }
    return bytes;
}

}  // namespace pixora
