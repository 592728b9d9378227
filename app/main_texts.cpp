#include "app/main_texts.h"

#include "base/file.h"
#include "base/number_text.h"

namespace pixora {

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
