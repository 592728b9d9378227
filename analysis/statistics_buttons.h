// How the buttons of the statistics view look.
#pragma once

#include <cstdint>
#include <string_view>

namespace pixora {

/// A colour as 0xBBGGRR.
using ButtonColour = std::uint32_t;

struct ButtonLook {
    std::wstring_view caption;
    ButtonColour face = 0xE1E1E1;
    ButtonColour text = 0x000000;
    bool enabled = true;
    bool visible = true;
    friend bool operator==(const ButtonLook&, const ButtonLook&) = default;
};

/// What of a viewer the buttons show.
struct RegionModes {
    bool region_on = false;
    bool corner = false, move = false, coordinates = false;
    friend bool operator==(const RegionModes&, const RegionModes&) = default;
};

/// REGION, CORNER, MOVE and H-V.
struct RegionButtons {
    ButtonLook region, corner, move, coordinates;
    friend bool operator==(const RegionButtons&, const RegionButtons&) = default;
};
[[nodiscard]] RegionButtons LookOfRegionButtons(const RegionModes& modes);

/// The selector that the view works with: that of a colour image is 1 to 4, what else is found becomes 1.
[[nodiscard]] int ValidChannel(int channel, bool colour);
/// The channel button; a grey image has none.
[[nodiscard]] ButtonLook LookOfChannelButton(bool colour, int channel);

}  // namespace pixora
