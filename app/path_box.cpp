#include "app/path_box.h"

#include <cstddef>

#include "app/blanks.h"
#include "app/command_line.h"
#include "dialogs/text_width.h"

namespace pixora {

std::wstring PathBox::Text() const {
    return editing_ ? path_ : ShortenText(path_, kPathBoxWidth);
}

std::optional<std::wstring> PathBox::ClipboardText() const {
    if (last_opened_.empty()) return std::nullopt;
    return last_opened_;
}

std::optional<std::wstring> PathBox::EndEdit(std::wstring_view typed, bool by_enter) {
    editing_ = false;
    const std::wstring path = CleanTypedPath(typed);
    if (path.empty() || (path == path_ && !by_enter)) return std::nullopt;
    return pixora::FullPath(path);
}

std::wstring CleanTypedPath(std::wstring_view typed) {
    typed = WithoutBlanksAround(typed);
    if (typed.size() >= 2 && typed.starts_with(L'"') && typed.ends_with(L'"'))
        typed = typed.substr(1, typed.size() - 2);
    return std::wstring(typed);
}

std::wstring OpenDialogName(std::wstring_view stored_folder) {
    return std::wstring(stored_folder).append(L"*.*");
}

std::wstring FolderOfOpened(std::wstring_view path) {
    const std::size_t separator = path.rfind(L'\\');
    return std::wstring(path.substr(0, separator == std::wstring_view::npos ? 0 : separator));
}

}  // namespace pixora
