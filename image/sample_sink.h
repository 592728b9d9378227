// Where the samples of an image file go as they are read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "image/picture.h"
#include "image/stored_pixels.h"

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

    /// Asked after Begin(): whether the pixels may come as they are stored. Then TakeStored() is called
    /// instead of Take() for all of them; not for samples that a given number of valid bits has to cut down.
    [[nodiscard]] virtual bool TakesStored() const { return false; }

    /// The next pixels, never more than the image has.
    /// @return false to end the reading.
    [[nodiscard]] virtual bool TakeStored(const StoredPixels&) { return false; }

    /// Called after the last of the pixels when 16-bit words came as they are stored and their valid bits are
    /// to be found. What was gathered counts for samples scaled to these from now on.
    /// @param zeros_follow  the file lacks some pixels.
    /// @return the valid bits of all samples.
    [[nodiscard]] virtual int ScaleStored([[maybe_unused]] bool zeros_follow) { return 16; }

protected:
    SampleSink() = default;
    SampleSink(const SampleSink&) = default;
    SampleSink& operator=(const SampleSink&) = default;
};

}  // namespace pixora
