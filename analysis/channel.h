// The channel selector that a viewer and its views share.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace pixora {

/// The selector of a viewer: grey images have kGrey, colour images one of the others.
enum Channel : int { kGrey = 0, kRed = 1, kGreen = 2, kBlue = 3, kAllChannels = 4 };

/// Whether a selector is one of a colour image's.
[[nodiscard]] constexpr bool IsColourChannel(int channel) {
    return channel >= kRed && channel <= kAllChannels;
}

/// What a press of a channel button makes of the selector: 1 2 3 4 1 ...; any other value becomes 1. A grey
/// image keeps 0.
[[nodiscard]] int NextChannel(int channel, bool colour);

/// The places in the pixel (0 blue, 1 green, 2 red; grey 0 alone) of the channels that a selector picks, in
/// the order in which they are drawn.
struct ChannelPlaces {
    std::array<std::size_t, 3> all{};
    std::size_t count = 0;
    [[nodiscard]] std::span<const std::size_t> Places() const& { return std::span(all).first(count); }
    std::span<const std::size_t> Places() && = delete;  // it would outlive the places
};
/// A selector out of range acts as 3, "B".
[[nodiscard]] ChannelPlaces PlacesOf(bool colour, int channel);

/// The caption of a channel button: "R", "G", "B" or "RGB"; " " for a grey image.
[[nodiscard]] std::wstring_view ChannelCaption(int channel, bool colour);

}  // namespace pixora
