#include "analysis/line_profile.h"

#include <algorithm>

namespace pixora {
namespace {

constexpr std::size_t kChannels = 3;

// Where the samples of a line lie in the buffer.
struct Walk {
    std::size_t start = 0, step = 0;  ///< in samples; `start` is the blue sample of the first position
    int first = 0, count = 0;
};

Walk WalkAlong(const SampleImage& image, ProfileKind kind, int line, const Region& extent) {
    const bool horizontal = kind == ProfileKind::horizontal;
    const Region clip = ClippedTo(extent, image.width, image.height);
    const std::size_t width = static_cast<std::size_t>(std::max(image.width, 0));
    const std::size_t height = static_cast<std::size_t>(std::max(image.height, 0));
    const bool outside = line < 0 || line >= (horizontal ? image.height : image.width);
    if (IsEmpty(clip) || outside || image.samples.size() / kChannels < width * height) return {};
    const std::size_t at = static_cast<std::size_t>(line);
    if (horizontal) {
        const std::size_t first = static_cast<std::size_t>(clip.left);
        return {(at * width + first) * kChannels, kChannels, clip.left, clip.right - clip.left + 1};
    }
    const std::size_t first = static_cast<std::size_t>(clip.top);
    return {(first * width + at) * kChannels, width * kChannels, clip.top, clip.bottom - clip.top + 1};
}

}  // namespace

void ReadLine(const SampleImage& image, ProfileKind kind, int line, const Region& extent,
              LineProfile& result) {
    const Walk walk = WalkAlong(image, kind, line, extent);
    result.first = walk.first;
    result.count = walk.count;
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        std::vector<std::uint16_t>& values = result.values[channel];
        const bool has_channel = image.colour || channel == 0;
        values.resize(has_channel ? static_cast<std::size_t>(walk.count) : 0);
        std::size_t at = walk.start + channel;
        for (std::uint16_t& value : values) {
            value = image.samples[at];
            at += walk.step;
        }
    }
}

}  // namespace pixora
