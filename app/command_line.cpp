#include "app/command_line.h"

#include <system_error>

#include "app/blanks.h"
#include "base/file.h"
#include "base/utf8.h"

namespace pixora {
namespace {

std::wstring_view From(std::wstring_view text, std::size_t position) {
    return position < text.size() ? text.substr(position) : std::wstring_view();
}

// What follows the program path, which stands in quotes when it holds blanks and usually otherwise too.
std::wstring_view ArgumentOf(std::wstring_view command_line) {
    command_line = WithoutLeadingBlanks(command_line);
    if (!command_line.starts_with(L'"'))
        return WithoutBlanksAround(From(command_line, command_line.find_first_of(kBlanks)));
    const std::size_t closing = command_line.find(L'"', 1);
    if (closing == std::wstring_view::npos) return {};
    // The quote and the separating blank go in any case; some launchers write two blanks.
    return WithoutLeadingBlanks(From(command_line, closing + 2));
}

std::wstring_view BetweenQuotes(std::wstring_view argument) {
    if (!argument.starts_with(L'"')) return argument;
    argument.remove_prefix(1);
    return argument.substr(0, argument.find(L'"'));
}

std::filesystem::path PathOf(std::wstring_view text) {
#ifdef _WIN32
    return text;
#else
    return Utf8FromWide(text);
#endif
}

}  // namespace

std::wstring StartupPath(std::wstring_view command_line) {
    return std::wstring(BetweenQuotes(ArgumentOf(command_line)).substr(0, kMaxStartupPath));
}

std::wstring FullPath(std::wstring_view path) {
    if (path.empty()) return {};
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(PathOf(path), error);
    return error ? std::wstring(path) : WideText(full);
}

}  // namespace pixora
