#include "app/main_texts.h"

#include "base/file.h"
#include "base/number_text.h"
#include "dialogs/text_width.h"

namespace pixora {
namespace {

constexpr int kFileNameWidth = 38;  // in half-width units

}  // namespace

std::wstring SettingsFaultText(const std::filesystem::path& settings_file) {
    return L"The settings file cannot be used.\n" + WideText(settings_file);
}

Message CloseAllQuestion() {
    return {L": Confirmation", L"Are you sure you want to close all viewer windows?", L"", L""};
}

Message RestoreDefaultsQuestion() {
    return {L": Confirmation", L"Are you sure you want to restore the default settings?", L"", L""};
}

Message DefaultsRestoredNotice() {
    return {L": Information", L"Defaults have been restored.", L"", L""};
}

Message FileErrorMessage(std::wstring_view file_name, std::wstring_view what_is_wrong) {
    return {L" : Error", L"File: " + ShortenText(file_name, kFileNameWidth), std::wstring(what_is_wrong),
            L""};
}

std::wstring MainTitle(int open_viewers) {
    if (open_viewers == 0) return L"Pixora";
    return L"Pixora  (N=" + FormatWhole(open_viewers) + L")";
}

std::optional<std::wstring> TitleKeeper::Update(int open_viewers) {
    if (open_viewers == shown_) return std::nullopt;
    shown_ = open_viewers;
    return MainTitle(open_viewers);
}

}  // namespace pixora
