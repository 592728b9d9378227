#include "dialogs/value_entry.h"

#include <utility>

namespace pixora {
namespace {

constexpr std::uint32_t kKeyDown = 0x0100;
constexpr std::uint32_t kKeyUp = 0x0101;
constexpr std::uint64_t kReturn = 13;
constexpr std::uint64_t kEscape = 27;

}  // namespace

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
    if (first_parameter != kReturn && first_parameter != kEscape) return EntryKey::none;
    const bool enter = first_parameter == kReturn;
    bool& down = enter ? enter_down_ : escape_down_;
    if (message == kKeyUp && !std::exchange(down, false)) return EntryKey::none;
    if (message == kKeyDown) down = true;
    // Deliberate: any other message that carries 13 or 27 counts as the key too.
    return enter ? EntryKey::enter : EntryKey::escape;
}

}  // namespace pixora
