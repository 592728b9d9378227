#include "settings/settings_text.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "base/file.h"
#include "base/utf8.h"

namespace pixora {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::wstring_view kEndLine = L".END";

// No character takes more bytes than four, so a file beyond this is too long whatever it holds.
constexpr std::size_t kBytesThatMatter = kByteOrderMark.size() + 4 * (SETTINGS_FILE_TEXT_LIMIT + 1);

std::optional<std::string> ReadStart(const std::filesystem::path& path) {
    std::optional<File> file = File::OpenForReading(path);
    if (!file) return std::nullopt;
    std::string bytes(kBytesThatMatter, '\0');
    bytes.resize(file->Read(std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

// What reading in text mode makes of the bytes.
std::string AsTextMode(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    bytes = bytes.substr(0, bytes.find('\x1A'));
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool line_end = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
        if (!line_end) text.push_back(bytes[i]);
    }
    return text;
}

}  // namespace

std::optional<std::wstring> ReadSettingsText(const std::filesystem::path& path) {
    const std::optional<std::string> bytes = ReadStart(path);
    if (!bytes) {
        std::fputs("No file found !!\n", stdout);
        return std::nullopt;
    }
    std::wstring text = WideFromUtf8(AsTextMode(*bytes));
    if (text.size() <= 1) return std::nullopt;
    return text;
}

bool WriteSettingsText(const std::filesystem::path& path, std::wstring_view text) {
    const std::string lines = Utf8FromWide(text);
    std::string bytes(kByteOrderMark);
    for (const char c : lines) {
        if (c == '\n') bytes.push_back('\r');
        bytes.push_back(c);
    }
    return WriteWholeFile(path, bytes);
}

FoundKey FindSetting(std::wstring_view text, std::wstring_view key) {
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t end = std::min(text.find(L'\n', position), text.size());
        const std::wstring_view line = text.substr(position, end - position);
        if (line.starts_with(key)) return {KeySearch::found, position + key.size(), end};
        if (line == kEndLine) return {KeySearch::not_found};
        position = std::min(end + 1, text.size());
        if (position >= SETTINGS_FILE_TEXT_LIMIT) return {KeySearch::overrun};
    }
    return {KeySearch::end_of_text};
}

std::wstring ReplaceSetting(std::wstring_view text, const FoundKey& place, std::wstring_view value) {
    std::wstring result(text.substr(0, place.value));
    result += value;
    result += L'\n';
    if (place.end < text.size()) result += text.substr(place.end + 1);
    return result;
}

}  // namespace pixora
