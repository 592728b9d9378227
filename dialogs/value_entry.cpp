#include "dialogs/value_entry.h"

#include <utility>

#include "dialogs/keys.h"

namespace pixora {

void ValueEntry::Begin(std::wstring_view shown) {
    EntryText = shown;
    LastGoodText = shown;
}

ValueEntryResult ValueEntry::ApplyEntry(const DisplaySizeLimit& limit) {
    const std::wstring typed = std::exchange(EntryText, LastGoodText);
    DisplaySizeCheck check = ValidateDisplaySizeText(typed);
    if (!IsAccepted(check)) return {.refusal = std::move(check)};
    std::wstring ratio_text = NormaliseDisplaySize(typed);
    if (std::optional<Message> refusal = limit(ratio_text)) return {.refusal = *std::move(refusal)};
    EntryText = typed;
    return {.close = true, .ratio_text = std::move(ratio_text)};
}

ValueEntryResult ValueEntry::PressOk(const DisplaySizeLimit& limit) {
    if (EntryText == LastGoodText) return {.close = true};
    return ApplyEntry(limit);
}

EntryKey EntryKeyFilter::Test(std::uint32_t message, std::uint64_t first_parameter) {
    if (first_parameter != kReturnKey && first_parameter != kEscapeKey) return EntryKey::none;
    const bool enter = first_parameter == kReturnKey;
    bool& down = enter ? enter_down_ : escape_down_;
    if (message == kKeyUpMessage && !std::exchange(down, false)) return EntryKey::none;
    if (message == kKeyDownMessage) down = true;
    // Deliberate: any other message that carries 13 or 27 counts as the key too.
    return enter ? EntryKey::enter : EntryKey::escape;
}

}  // namespace pixora
