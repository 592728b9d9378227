// The image path that the program may be started with.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace pixora {

/// The most characters of a start-up path that are kept.
inline constexpr std::size_t kMaxStartupPath = 259;

/// Takes the image path out of the full command line, program path included; its quotes are removed. Empty
/// when there is none.
[[nodiscard]] std::wstring StartupPath(std::wstring_view command_line);

/// A start-up path is opened only from two characters on.
[[nodiscard]] constexpr bool OpensAtStart(std::wstring_view startup_path) {
    return startup_path.size() >= 2;
}

/// `path` made complete against the current folder; an empty one stays empty.
[[nodiscard]] std::wstring FullPath(std::wstring_view path);

}  // namespace pixora
