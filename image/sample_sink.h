// Where the samples of an image file go as they are read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "image/picture.h"

namespace pixora {

/// Takes the samples of one image at a time, in the order in which its file holds them.
class SampleSink {
public:
    virtual ~SampleSink() = default;

    /// Called before the first sample. Called again when the samples come once more from the start, because
    /// more of them showed that they have more valid bits; what came before then counts for nothing.
    /// @param width, height  in pixels, 1 .. 65535.
    /// @return false to end the reading.
    [[nodiscard]] virtual bool Begin(std::uint32_t width, std::uint32_t height, RowOrder order) = 0;

    /// The samples of the next pixels, row after row: one each for grey, three each (blue green red) for
    /// colour. Pixels that never come are zeros; ones that are too many are to be ignored.
    /// @param channels  1 or 3, the same for the whole image.
    /// @return false to end the reading.
    [[nodiscard]] virtual bool Take(std::span<const std::uint16_t> samples, std::size_t channels) = 0;

protected:
    SampleSink() = default;
    SampleSink(const SampleSink&) = default;
    SampleSink& operator=(const SampleSink&) = default;
};

}  // namespace pixora
