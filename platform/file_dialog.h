// The system's dialogs for choosing a file.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

namespace pixora {

/// What a file dialog starts with.
struct FileDialogRequest {
    HWND owner = nullptr;  ///< disabled meanwhile; the dialog counts as a modal operation of it
    /// Pairs of a name and its patterns, every part ended by "|" and the whole by one more.
    std::wstring filter;
    std::wstring initial_name;    ///< proposed file name; may hold a folder
    std::wstring initial_folder;  ///< empty: the system decides
    /// Appended to a name that is typed without extension; without its point, empty for none.
    std::wstring default_extension;
};

/// Asks for the file to open. @return nothing when the user cancelled.
[[nodiscard]] std::optional<std::filesystem::path> AskForFileToOpen(const FileDialogRequest& request);
/// Asks for the file to write, and whether an existing one may be overwritten.
/// @return nothing when the user cancelled.
[[nodiscard]] std::optional<std::filesystem::path> AskForFileToSave(const FileDialogRequest& request);

}  // namespace pixora
