// The text of the settings file: how it is read and written, and how one key is found in it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pixora {

/// The most characters that the file may hold, and that a search may pass.
inline constexpr std::size_t SETTINGS_FILE_TEXT_LIMIT = 16'383;
/// A value must be shorter than this.
inline constexpr std::size_t kSettingValueLimit = 1'024;
/// The longest path of the file.
inline constexpr std::size_t kSettingsPathLimit = 259;

/// Reads the file as text: UTF-8 with or without byte-order mark, CR LF as one line feed, the character 0x1A
/// as the end. Of a file far too long only so much is read that its length shows.
/// @return nothing when it cannot be opened or holds no more than one character.
[[nodiscard]] std::optional<std::wstring> ReadSettingsText(const std::filesystem::path& path);
/// Replaces the file, whole or not at all: byte-order mark, UTF-8, CR LF. @return false when that failed.
bool WriteSettingsText(const std::filesystem::path& path, std::wstring_view text);

/// How a search for a key ended.
enum class KeySearch {
    found,
    not_found,    ///< the line ".END" came first
    overrun,      ///< the lines before it reach SETTINGS_FILE_TEXT_LIMIT
    end_of_text,  ///< neither the key nor ".END" is there: the text is damaged
};
struct FoundKey {
    KeySearch result = KeySearch::end_of_text;
    std::size_t value = 0;  ///< where the value starts, when found
    std::size_t end = 0;    ///< where its line ends: the position of the line feed, or the text's length
};
/// Finds the first line that starts with `key`, equals sign included.
[[nodiscard]] FoundKey FindSetting(std::wstring_view text, std::wstring_view key);

/// `text` with the value at `place` replaced; everything else keeps its place.
[[nodiscard]] std::wstring ReplaceSetting(std::wstring_view text, const FoundKey& place,
                                          std::wstring_view value);

}  // namespace pixora
