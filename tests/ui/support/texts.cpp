#include "tests/ui/support/texts.h"

#include <windows.h>

namespace pixora::ui {

std::string Narrow(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), bytes, nullptr, nullptr);
    return narrow;
}

}  // namespace pixora::ui
