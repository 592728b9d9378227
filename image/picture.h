// A 24-bit picture on its way into a BMP file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "base/file.h"
#include "image/bmp_layout.h"

namespace pixora {

/// The order in which the rows of an image arrive.
enum class RowOrder { top_down, bottom_up };

/// Writes a bottom-up 24-bit BMP from pixels in the order in which they are read, a block of rows at a time.
/// Pixels that never arrive are black and take no space on the disk.
class PictureWriter {
public:
    /// @param width, height  in pixels, at least 1.
    /// @return nothing when the file cannot be made. A write-protected file of that name is replaced.
    [[nodiscard]] static std::optional<PictureWriter> Create(const std::filesystem::path& path,
                                                             std::uint32_t width, std::uint32_t height,
                                                             RowOrder order);

    /// Takes the next `count` pixels: calls `fill(first, run)` for each piece of them that lies in one row,
    /// which puts pixels first, first + 1, ... of them into `run`, three bytes each: blue, green, red. Pixels
    /// beyond the image are ignored.
    template <typename Fill>
    void Append(std::size_t count, Fill fill) {
        for (std::size_t first = 0; first < count && row_ < height_;) {
            const std::size_t pixels = std::min<std::size_t>(width_ - column_, count - first);
            fill(first, Row().subspan(3 * column_, 3 * pixels));
            first += pixels;
            column_ += pixels;
            if (column_ == width_) NextRow();
        }
    }

    /// Writes what is left and puts the file under its name. @return false, with no file left, when any of it
    /// failed.
    [[nodiscard]] bool Commit();

private:
    PictureWriter(AtomicFile file, std::uint32_t width, std::uint32_t height, RowOrder order);

    [[nodiscard]] std::size_t Place() const;
    [[nodiscard]] std::span<std::byte> Row() { return std::span(block_).subspan(Place() * stride_, stride_); }
    void NextRow();
    void Flush();

    AtomicFile file_;
    std::size_t width_, height_, stride_;
    RowOrder order_;
    std::size_t block_rows_;
    std::vector<std::byte> block_;      // rows as they stand in the file
    std::size_t row_ = 0, column_ = 0;  // of the next pixel, in the order of arrival
    std::size_t flushed_rows_ = 0;
    bool failed_ = false;
};

}  // namespace pixora
