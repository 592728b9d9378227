// The channel selector that a viewer and its views share.
#pragma once

#include <cstdint>
#include <string_view>

namespace pixora {

/// The selector of a viewer: grey images have kGrey, colour images one of the others.
enum Channel : int { kGrey = 0, kRed = 1, kGreen = 2, kBlue = 3, kAllChannels = 4 };

/// What a press of a channel button makes of the selector: 1 2 3 4 1 ...; any other value becomes 1. A grey
/// image keeps 0.
[[nodiscard]] int NextChannel(int channel, bool colour);

/// The caption of a channel button: "R", "G", "B" or "RGB"; " " for a grey image.
[[nodiscard]] std::wstring_view ChannelCaption(int channel, bool colour);

}  // namespace pixora
