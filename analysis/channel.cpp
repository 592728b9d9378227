#include "analysis/channel.h"

namespace pixora {

int NextChannel(int channel, bool colour) {
    if (!colour) return kGrey;
    return channel >= kRed && channel < kAllChannels ? channel + 1 : kRed;
}

ChannelPlaces PlacesOf(bool colour, int channel) {
    if (!colour) return {{0}, 1};
    switch (channel) {
        case kRed:
            return {{2}, 1};
        case kGreen:
            return {{1}, 1};
        case kAllChannels:
            return {{2, 1, 0}, 3};
        default:
            return {{0}, 1};
    }
}

std::wstring_view ChannelCaption(int channel, bool colour) {
    if (!colour) return L" ";
    switch (channel) {
        case kRed:
            return L"R";
        case kGreen:
            return L"G";
        case kBlue:
            return L"B";
        case kAllChannels:
            return L"RGB";
        default:
            return L" ";
    }
}

}  // namespace pixora
