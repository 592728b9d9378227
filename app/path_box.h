// The path box of the main window: what it shows, and its edit mode.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pixora {

/// How wide the path shows, in half-width units.
inline constexpr int kPathBoxWidth = 45;

/// The path of the last opened file. The box shows it shortened; everything else works with the whole path.
/// A file that the program was started with is opened before the box is emptied for the first time.
class PathBox {
public:
    [[nodiscard]] const std::wstring& FullPath() const { return path_; }
    /// True while the user edits the path.
    [[nodiscard]] bool Editing() const { return editing_; }
    /// What the box shows: the shortened path, in edit mode the whole one.
    [[nodiscard]] std::wstring Text() const;
    /// The caption of the button that enters and leaves edit mode.
    [[nodiscard]] std::wstring_view ButtonText() const { return editing_ ? L"ENTER" : L"EDIT"; }
    /// What goes to the clipboard: the path of the last opened file, also when the box has been emptied
    /// since; nothing before the first file was opened.
    [[nodiscard]] std::optional<std::wstring> ClipboardText() const;

    /// A file was opened, in whichever way; edit mode stays as it is.
    void Opened(std::wstring_view full_path) { path_ = last_opened_ = full_path; }
    /// Shows no path any more, so that reloading does nothing until the next open.
    void Empty() { path_.clear(); }

    void BeginEdit() { editing_ = true; }
    /// Leaves edit mode.
    /// @param typed     the text of the box.
    /// @param by_enter  the user pressed Enter: the path is opened even when it is the same.
    /// @return the path to open now, complete; nothing when there is none to open.
    [[nodiscard]] std::optional<std::wstring> EndEdit(std::wstring_view typed, bool by_enter);

private:
    std::wstring path_;
    std::wstring last_opened_;
    bool editing_ = false;
};

/// A typed path without the blanks around it and without one pair of double quotes.
[[nodiscard]] std::wstring CleanTypedPath(std::wstring_view typed);

/// The name that the open dialog starts with: the stored folder and "*.*". Deliberate: no separator is put
/// between them, whether or not the folder ends in one.
[[nodiscard]] std::wstring OpenDialogName(std::wstring_view stored_folder);
/// The folder to store after `path` was opened: everything before its last "\".
[[nodiscard]] std::wstring FolderOfOpened(std::wstring_view path);
/// The open dialog's file types, as "name|pattern|" pairs and a last "|".
inline constexpr std::wstring_view kOpenFilter =
    L"All Files(*.*)|*.*|BMP Files(*.bmp)|*.bmp|TIFF Files(*.tif;*.tiff)|*.tif;*.tiff||";

}  // namespace pixora
