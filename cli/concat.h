// Texts put together from pieces.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace pixora::cli {

[[nodiscard]] inline std::string Concat(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) text += piece;
    return text;
}

}  // namespace pixora::cli
