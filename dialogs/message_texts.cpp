#include "dialogs/message_texts.h"

#include "dialogs/identity.h"

namespace pixora {
namespace {

constexpr int kMiddleOfInformationBox = 26;

using Controls = std::array<int, 3>;
using Tops = std::array<std::optional<int>, 3>;

// `tops` are where the lines go when the first one is empty.
BoxContent Compose(std::wstring_view caption, const Message& message, const Controls& controls,
                   const Tops& tops) {
    const bool move = message.line1.empty();
    const auto line = [&](std::size_t i, const std::wstring& text) {
        return BoxLine{controls[i], text, move ? tops[i] : std::nullopt};
    };
    return {DialogCaption(caption), {line(0, message.line1), line(1, message.line2), line(2, message.line3)}};
}

}  // namespace

std::wstring DialogCaption(std::wstring_view caption_text) {
    return std::wstring(kProductName).append(L" ").append(caption_text);
}

BoxContent ErrorBox(const Message& message) {
    return Compose(message.caption + L"   ", message, {1053, 1051, 1052}, {std::nullopt, 20, 45});
}

BoxContent InformationBox(const Message& message) {
    BoxContent box = Compose(message.caption, message, {1053, 1051, 1052}, {0, 15, 35});
    if (message.line2.empty() && message.line3.empty()) box.lines[0].top = kMiddleOfInformationBox;
    return box;
}

BoxContent QuestionBox(const Message& message) {
    return Compose(message.caption, message, {1079, 1081, 1080}, {0, 15, 35});
}

}  // namespace pixora
