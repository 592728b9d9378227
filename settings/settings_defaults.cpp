// The settings that a new file starts with.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "dialogs/identity.h"
#include "settings/settings_file.h"
#include "settings/stored_keys.h"

namespace pixora {
namespace {

constexpr int kMaxSortedLines = 1'024;
constexpr int kDefaultLines = static_cast<int>(kSaveOrder.size());

// Moves the lines that hold something to the front, in order. @return how many there are.
std::size_t DropEmptyLines(std::vector<std::wstring>& lines, std::size_t count) {
    const auto first = lines.begin();
    const auto last = first + static_cast<std::ptrdiff_t>(count);
    const auto kept =
        std::stable_partition(first, last, [](const std::wstring& line) { return !line.empty(); });
    return static_cast<std::size_t>(kept - first);
}

}  // namespace

void SortSettingLines(std::vector<std::wstring>& lines, int& count) {
    if (count > kMaxSortedLines) return;
    const std::size_t given = std::min(static_cast<std::size_t>(std::max(count, 0)), lines.size());
    const std::size_t kept = DropEmptyLines(lines, given);
    const auto first = lines.begin();
    const auto last = first + static_cast<std::ptrdiff_t>(kept);
    std::sort(first, last);
    // Deliberate: a repeated line leaves an empty one at the end, which counts.
    std::fill(std::unique(first, last), last, std::wstring());
    count = static_cast<int>(kept);
}

int BuildDefaultSettingLines(std::vector<std::wstring>& lines, const UserFolders& folders) {
    const Settings values = DefaultSettings(folders);
    std::vector<std::wstring> defaults;
    defaults.reserve(kSaveOrder.size());
    for (const auto& [key, field] : kSaveOrder) defaults.push_back(std::wstring(key) + values.*field);
    int count = kDefaultLines;
    SortSettingLines(defaults, count);
    if (lines.size() < defaults.size()) lines.resize(defaults.size());
    std::move(defaults.begin(), defaults.end(), lines.begin());
    return kDefaultLines;
}

std::wstring DefaultSettingsText(const UserFolders& folders) {
    std::vector<std::wstring> lines;
    const int count = BuildDefaultSettingLines(lines, folders);
    std::wstring text = L".VER=" + std::wstring(kVersionLine) + L"\n.BEGIN\n";
    for (int i = 0; i < count; ++i) text += lines[static_cast<std::size_t>(i)] + L"\n";
    return text + L".END\n";
}

Settings DefaultSettings(const UserFolders& folders) {
    Settings settings;
    settings.MAIN_POS = L"LAST";
    settings.MAIN_POS_X = L"10";
    settings.MAIN_POS_Y = L"10";
    settings.IMG_SIZE = L"0.500";
    settings.PATH_CSV = folders.documents + L"\\";
    settings.PATH_OPEN = folders.pictures + L"\\";
    settings.PATH_SAVE = folders.pictures + L"\\";
    settings.CAP_STYLE = L"SIMPLE";
    settings.VALID_BITS = L"16";
    settings.BDR_COLOR = L"GREEN";
    settings.BDR_TYPE = L"AREA";
    settings.LVL_CURSOR = L"ON";
    settings.LINE_COLOR = L"RED";
    settings.MARK_COLOR = L"WHITE";
    settings.HIS_BINNING = L"ON";
    settings.AUTO_BIT = L"ON";
    return settings;
}

}  // namespace pixora
