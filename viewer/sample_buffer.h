// The samples of one image, as every measurement reads them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "base/zeroed_array.h"
#include "image/image_buffer.h"

namespace pixora {

/// width x height pixels, three unsigned 16-bit samples each in the order blue, green, red (a grey image has
/// its sample three times), rows top to bottom, scaled to the valid bits.
struct SampleBuffer {
    int width = 0, height = 0;
    ZeroedArray<std::uint16_t> samples;  ///< width x height x 3

    /// The three samples of one pixel; x and y must lie inside the image.
    [[nodiscard]] std::span<const std::uint16_t, 3> Pixel(int x, int y) const {
        const std::size_t first =
            3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x));
        return samples.All().subspan(first).first<3>();
    }
};

/// Reads the samples of an imported image from its temporary copies: the data copy of a TIFF, the display
/// copy of a BMP (whichever way up it is stored). What a copy does not hold reads as zero; values beyond the
/// depth are held at its largest value.
/// @return nothing when the copy cannot be opened or the memory cannot be had.
[[nodiscard]] std::optional<SampleBuffer> ReadSampleBuffer(const ImageBuffer& image) noexcept;

}  // namespace pixora
