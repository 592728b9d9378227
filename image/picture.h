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
/// Pixels that never arrive are black.
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

    [[nodiscard]] bool TopDown() const { return order_ == RowOrder::top_down; }
    [[nodiscard]] std::span<std::byte> Row();
    void NextRow();
    void Flush(bool last);
    void Write(std::uint64_t offset, std::span<const std::byte> bytes);

    AtomicFile file_;
    std::size_t width_, height_, stride_;
    RowOrder order_;
    std::size_t block_rows_;
    // Bytes as they stand in the file, next to what is written already: from the block's start for rows that
    // arrive in the order of the file, up to its end for rows that arrive the other way round.
    std::vector<std::byte> block_;
    std::uint64_t edge_;                // where in the file the written part ends, or starts
    std::size_t carried_ = 0;           // bytes of the block that wait for the rest of their page
    std::size_t row_ = 0, column_ = 0;  // of the next pixel, in the order of arrival
    std::size_t flushed_rows_ = 0;
    bool failed_ = false;
};

}  // namespace pixora
