#include "analysis/plot.h"

#include "analysis/channel.h"

namespace pixora {

PlotColour CursorColour(int channel) {
    return channel == kRed || channel == kAllChannels ? kPlotBlack : kPlotRed;
}

}  // namespace pixora
