// The rules of the "Display Size Value" dialog.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/message.h"
#include "dialogs/value_check.h"

namespace pixora {

/// Refuses a ratio text that the viewer cannot show, with the message to tell; nothing when it can.
using DisplaySizeLimit = std::function<std::optional<Message>(std::wstring_view ratio_text)>;

/// What a press of Return or OK leads to.
struct ValueEntryResult {
    bool close = false;                        ///< the dialog ends with result 1
    std::optional<std::wstring> ratio_text{};  ///< the new ratio to store, set only together with `close`
    DisplaySizeCheck refusal{};                ///< what to show, after the field got EntryText back
};

/// The text of the entry field and the last one that was valid.
struct ValueEntry {
    std::wstring EntryText;
    std::wstring LastGoodText;

    /// @param shown  the viewer's display size as its size list shows it, for example L"50%".
    void Begin(std::wstring_view shown);
    /// Return: checks EntryText. A refusal puts LastGoodText back into EntryText.
    [[nodiscard]] ValueEntryResult ApplyEntry(const DisplaySizeLimit& limit);
    /// The OK button: an unchanged text closes the dialog without applying anything.
    [[nodiscard]] ValueEntryResult PressOk(const DisplaySizeLimit& limit);
    /// Escape: EntryText is the last good text again.
    void Restore() { EntryText = LastGoodText; }
};

enum class EntryKey { none, enter, escape };

/// Tells Return and Escape by a message's first parameter alone, whatever the message is. Only a key-up needs
/// more: its key-down must have come to this window too, so that the key that closed another box or chose a
/// menu item applies nothing here.
class EntryKeyFilter {
public:
    [[nodiscard]] EntryKey Test(std::uint32_t message, std::uint64_t first_parameter);
    /// To be called after a box was shown: a key that was down before it counts no longer.
    void Forget() { enter_down_ = escape_down_ = false; }

private:
    bool enter_down_ = false, escape_down_ = false;
};

}  // namespace pixora
