#include "analysis/statistics_buttons.h"

#include "analysis/channel.h"

namespace pixora {
namespace {

constexpr ButtonColour kPlain = 0xE1E1E1, kRegionShows = 0xCAF7BB, kModeOn = 0xA8D3FF;
constexpr ButtonColour kDisabled = 0xCCCCCC, kDisabledText = 0x838383;

ButtonLook ModeButton(std::wstring_view caption, bool region_on, bool mode_on) {
    if (!region_on) return {caption, kDisabled, kDisabledText, false, true};
    return {caption, mode_on ? kModeOn : kPlain, 0, true, true};
}

ButtonColour ChannelFace(int channel) {
    switch (channel) {
        case kRed:
            return 0xCFCFFB;
        case kGreen:
            return 0xCAF7BB;
        case kBlue:
            return 0xFBD09B;
        default:
            return kPlain;
    }
}

}  // namespace

RegionButtons LookOfRegionButtons(const RegionModes& modes) {
    RegionButtons look;
    look.region = modes.region_on ? ButtonLook{L"REGION OFF", kRegionShows, 0, true, true}
                                  : ButtonLook{L"REGION ON", kPlain, 0, true, true};
    look.corner = ModeButton(L"CORNER", modes.region_on, modes.corner);
    look.move = ModeButton(L"MOVE", modes.region_on, modes.move);
    const bool entering = modes.region_on && modes.coordinates;
    // Its caption alone tells that the coordinates are being entered; the face stays plain.
    look.coordinates = ModeButton(entering ? L"H-V OFF" : L"H-V ON", modes.region_on, false);
    return look;
}

int ValidChannel(int channel, bool colour) {
    return colour && !IsColourChannel(channel) ? kRed : channel;
}

ButtonLook LookOfChannelButton(bool colour, int channel) {
    const ButtonColour face = colour ? ChannelFace(channel) : kPlain;
    return {ChannelCaption(channel, colour), face, 0, true, colour};
}

}  // namespace pixora
