// What the message and confirmation windows show, composed before any window exists.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/message.h"

namespace pixora {

/// One text line of a message window.
struct BoxLine {
    int control = 0;  ///< id of the static text
    std::wstring text;
    /// Client y to move the control to, at 96 dots per inch; x and size are kept. Nothing: where the template
    /// has it.
    std::optional<int> top;
    friend bool operator==(const BoxLine&, const BoxLine&) = default;
};

/// A message window's caption and its lines in the order in which the caller gave them.
struct BoxContent {
    std::wstring caption;
    std::array<BoxLine, 3> lines;
    friend bool operator==(const BoxContent&, const BoxContent&) = default;
};

/// "Pixora", a blank and the caption text that the caller gives.
[[nodiscard]] std::wstring DialogCaption(std::wstring_view caption_text);

/// The error box (CConfirmErr) as ShowErrorBox shows it: three blanks follow the caption suffix.
[[nodiscard]] BoxContent ErrorBox(const Message& message);
/// The information box (CConfirmOK). A single line stands in the middle, where the second one would.
[[nodiscard]] BoxContent InformationBox(const Message& message);
/// The question with OK and CANCEL (CConfirmYesCancel). On screen the second line stands above the first.
[[nodiscard]] BoxContent QuestionBox(const Message& message);

/// Caption of the notice that closes by itself. Deliberate: the spelling is the product's.
inline constexpr std::wstring_view kOneshotCaption = L"Pixora : Infomation";
/// How long such a notice stays when nothing else is asked for, and how long ShowOneshotMessage shows it.
inline constexpr int kOneshotInitial_ms = 1000;
inline constexpr int kOneshotShown_ms = 1500;
/// The notice's line.
inline constexpr int kOneshotControl = 1067;

}  // namespace pixora
