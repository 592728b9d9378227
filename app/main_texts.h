// The texts of the main window and of start-up.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/message.h"

namespace pixora {

// Plain message boxes; their caption is the empty text, because a missing one would show a word of the
// system.
inline constexpr std::wstring_view kAlreadyOpen = L"\"Pixora\" is already open !";
inline constexpr std::wstring_view kOpeningError = L"\"Pixora\" found opening error";
inline constexpr std::wstring_view kDefaultFileCreated = L"Created a default initial file.";
/// The settings file cannot be used at all; the program ends after this.
[[nodiscard]] std::wstring SettingsFaultText(const std::filesystem::path& settings_file);

// Questions, for QuestionBox(), and the notice after one, for InformationBox().
[[nodiscard]] Message CloseAllQuestion();
[[nodiscard]] Message RestoreDefaultsQuestion();
[[nodiscard]] Message DefaultsRestoredNotice();

/// An error box about one file: its name, shortened, and what is wrong.
[[nodiscard]] Message FileErrorMessage(std::wstring_view file_name, std::wstring_view what_is_wrong);
inline constexpr std::wstring_view kOpenFailed = L"Failed to Open Image File";

/// The single item of the path box's context menu.
inline constexpr std::wstring_view kCopyPathItem = L"Copy Full Path to Clipboard";

/// The main window's title while `open_viewers` viewers are open.
[[nodiscard]] std::wstring MainTitle(int open_viewers);

/// Remembers which count the title shows, so that a tick without a change sets nothing.
class TitleKeeper {
public:
    /// @return the title to set, or nothing when it shows this count already.
    [[nodiscard]] std::optional<std::wstring> Update(int open_viewers);

private:
    int shown_ = -1;  // no count: the first tick replaces the template's caption
};

}  // namespace pixora
