// Gives the pixels of a file to a sink.
#pragma once

#include <cstdint>
#include <vector>

#include "image/sample_sink.h"
#include "image/stored_pixels.h"

namespace pixora {

/// Decodes pixels on their way to a sink, unless it takes them as they are stored.
class SampleFeed {
public:
    /// @param sink  has begun; must outlive the feed.
    explicit SampleFeed(SampleSink& sink) : sink_(sink), stored_(sink.TakesStored()) {}

    /// @return false to end the reading.
    [[nodiscard]] bool Give(const StoredPixels& pixels) {
        if (stored_) return sink_.TakeStored(pixels);
        return ForEachDecoded(pixels, samples_, [&](std::span<const std::uint16_t> samples) {
            return sink_.Take(samples, pixels.Channels());
        });
    }

private:
    SampleSink& sink_;
    bool stored_;
    std::vector<std::uint16_t> samples_;
};

}  // namespace pixora
