#include "settings/option_choices.h"

#include <algorithm>

#include "settings/settings_file.h"
#include "settings/stored_keys.h"

namespace pixora {
namespace {

struct DialogTable {
    std::wstring_view caption;
    std::span<const std::wstring_view> rows;
    std::span<const OptionChoice> choices;
};

const DialogTable& TableOf(OptionDialog dialog) {
    static constexpr DialogTable kViewer{L"Pixora - Viewer Option", kViewerOptionRows, kViewerOptionChoices};
    static constexpr DialogTable kRegion{L"Pixora - Line and Region Style", kRegionStyleRows,
                                         kRegionStyleChoices};
    static constexpr DialogTable kMain{L"Pixora - Main Dialog Option ", kMainOptionRows, kMainOptionChoices};
    switch (dialog) {
        case OptionDialog::viewer_option:
            return kViewer;
        case OptionDialog::region_style:
            return kRegion;
        case OptionDialog::main_option:
            break;
    }
    return kMain;
}

consteval bool IdsDiffer(std::span<const OptionChoice> choices) {
    for (std::size_t i = 0; i < choices.size(); ++i)
        for (std::size_t j = i + 1; j < choices.size(); ++j)
            if (choices[i].control == choices[j].control) return false;
    return true;
}
static_assert(IdsDiffer(kViewerOptionChoices), "two viewer options share a control");
static_assert(IdsDiffer(kRegionStyleChoices), "two region styles share a control");
static_assert(IdsDiffer(kMainOptionChoices), "two main dialog options share a control");

// What a value without a button of its own shows as.
constexpr int kSimple = 1243, kLevelCursorOff = 1260, kNoBinning = 1248, kAutoBits = 1244;
constexpr int kRedLine = 1247, kGreenBorder = 1241, kLineBorder = 1307, kWhiteMarks = 1250, kTopLeft = 1073;

int FallbackOf(OptionDialog dialog, std::size_t row) {
    static constexpr std::array kViewer = {kSimple, kLevelCursorOff, kNoBinning, kAutoBits};
    static constexpr std::array kRegion = {kRedLine, kGreenBorder, kLineBorder, kWhiteMarks};
    switch (dialog) {
        case OptionDialog::viewer_option:
            return kViewer.at(row);
        case OptionDialog::region_style:
            return kRegion.at(row);
        case OptionDialog::main_option:
            break;
    }
    return kTopLeft;
}

// True when the record says that this button is on. Automatic bits hide the number that is kept for later.
bool Matches(const OptionChoice& choice, const Settings& settings) {
    if (settings.*choice.key != choice.value) return false;
    return choice.auto_bit.empty() || settings.AUTO_BIT != L"ON";
}

const OptionChoice* FindChoice(OptionDialog dialog, int control) {
    const auto choices = OptionChoices(dialog);
    const auto found = std::ranges::find(choices, control, &OptionChoice::control);
    return found == choices.end() ? nullptr : &*found;
}

void ReplaceUnknownColours(Settings& settings) {
    const auto replace = [&](std::wstring Settings::*key, std::wstring_view fallback) {
        const bool known = std::ranges::any_of(kRegionStyleChoices, [&](const OptionChoice& choice) {
            return choice.key == key && settings.*key == choice.value;
        });
        if (!known) settings.*key = fallback;
    };
    replace(&Settings::LINE_COLOR, L"RED");
    replace(&Settings::BDR_COLOR, L"GREEN");
    replace(&Settings::MARK_COLOR, L"WHITE");
}

}  // namespace

std::span<const OptionChoice> OptionChoices(OptionDialog dialog) {
    return TableOf(dialog).choices;
}

std::span<const std::wstring_view> OptionRows(OptionDialog dialog) {
    return TableOf(dialog).rows;
}

std::wstring_view OptionCaption(OptionDialog dialog) {
    return TableOf(dialog).caption;
}

void OptionButtons::Begin(Settings& settings) {
    if (dialog_ == OptionDialog::region_style) ReplaceUnknownColours(settings);
    on_.clear();
    for (std::size_t row = 0; row < OptionRows(dialog_).size(); ++row)
        on_.push_back(FallbackOf(dialog_, row));
    for (const OptionChoice& choice : OptionChoices(dialog_))
        if (Matches(choice, settings)) on_[choice.row] = choice.control;
}

bool OptionButtons::Click(int control, Settings& settings) {
    const OptionChoice* choice = FindChoice(dialog_, control);
    if (!choice) return false;
    on_.resize(OptionRows(dialog_).size());
    on_[choice->row] = control;
    settings.*(choice->key) = choice->value;
    if (!choice->auto_bit.empty()) settings.AUTO_BIT = choice->auto_bit;
    return true;
}

bool OptionButtons::IsOn(int control) const {
    return std::ranges::find(on_, control) != on_.end();
}

bool RedrawsViewers(OptionDialog dialog, int control) {
    if (dialog == OptionDialog::region_style) return true;
    const OptionChoice* choice = FindChoice(dialog, control);
    return choice && choice->key == &Settings::CAP_STYLE;
}

bool SaveOptions(OptionDialog dialog, const std::filesystem::path& path, const Settings& settings) {
    // A file that cannot be used at all has been told by then.
    if (dialog != OptionDialog::main_option)
        return StoreSettings(path, settings) != SettingsSaveResult::incomplete;
    static_cast<void>(PutSettingValue(path, kMainPos.key, settings.MAIN_POS));
    return true;
}

}  // namespace pixora
