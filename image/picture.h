// A 24-bit picture on its way into a BMP file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

#include "base/zeroed_array.h"

namespace pixora {

/// The order in which the rows of an image arrive.
enum class RowOrder { top_down, bottom_up };

/// Collects the pixels of an image in the order in which they are read, and writes them as a bottom-up 24-bit
/// BMP in one go. Pixels that never arrive are black.
class Picture {
public:
    /// @param width, height  in pixels, at least 1.
    /// @return nothing when the memory (three bytes a pixel) cannot be had.
    [[nodiscard]] static std::optional<Picture> Make(std::uint32_t width, std::uint32_t height,
                                                     RowOrder order);

    /// Takes the next pixels, three bytes each: blue, green, red. Pixels beyond the image are ignored.
    void Append(std::span<const std::byte> triples);

    /// Writes the BMP, replacing what stands there. @return false, with no file left, when that failed.
    [[nodiscard]] bool Save(const std::filesystem::path& path) const;

private:
    Picture(std::uint32_t width, std::uint32_t height, RowOrder order, ZeroedArray<std::byte> rows);

    std::uint32_t width_, height_;
    RowOrder order_;
    std::uint64_t next_pixel_ = 0;  // in reading order
    ZeroedArray<std::byte> rows_;   // as they stand in the file
};

}  // namespace pixora
