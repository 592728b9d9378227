// Why a reader refused a file, and the words for it.
#pragma once

#include <string_view>

namespace pixora {

/// Result codes of the readers. The import alone turns them into messages.
enum class ReadResult : int {
    accepted = 0,
    invalid = 1,  ///< the header is damaged, or there is not one byte of pixel data
    compressed = 2,
    cmyk = 3,
    bmp_1_bit = 4,
    bmp_4_bit = 5,
    not_supported = 15,
    write_failed = 100,  ///< the file is fine, but a copy of it could not be written; no message of its own
};

/// The message for a refusal; empty for `accepted` and `write_failed`.
[[nodiscard]] constexpr std::wstring_view RefusalText(ReadResult result) {
    switch (result) {
        case ReadResult::invalid:
            return L"This image file is invalid.";
        case ReadResult::compressed:
            return L"Compressed files are not supported.";
        case ReadResult::cmyk:
            return L"\"CMYK\" foramt files are not supported.";
        case ReadResult::bmp_1_bit:
            return L"1-Bit BMP file is not supported.";
        case ReadResult::bmp_4_bit:
            return L"4-Bit BMP file is not supported.";
        case ReadResult::not_supported:
            return L"This file is not supported.";
        case ReadResult::accepted:
        case ReadResult::write_failed:
            break;
    }
    return {};
}

}  // namespace pixora
