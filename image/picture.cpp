#include "image/picture.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/file.h"
#include "image/bmp_layout.h"

namespace pixora {

Picture::Picture(std::uint32_t width, std::uint32_t height, RowOrder order, ZeroedArray<std::byte> rows)
    : width_(width), height_(height), order_(order), rows_(std::move(rows)) {}

std::optional<Picture> Picture::Make(std::uint32_t width, std::uint32_t height, RowOrder order) {
    auto rows = ZeroedArray<std::byte>::Make(Bmp24Stride(width) * height);
    if (!rows) return std::nullopt;
    return Picture(width, height, order, *std::move(rows));
}

void Picture::Append(std::span<const std::byte> triples) {
    while (triples.size() >= 3) {
        const std::uint64_t row = next_pixel_ / width_, column = next_pixel_ % width_;
        if (row >= height_) return;
        const std::uint64_t row_in_file = order_ == RowOrder::top_down ? height_ - 1 - row : row;
        const auto pixels = std::min<std::uint64_t>(width_ - column, triples.size() / 3);
        const auto bytes = static_cast<std::size_t>(3 * pixels);
        std::memcpy(&rows_.All()[static_cast<std::size_t>(row_in_file * Bmp24Stride(width_) + 3 * column)],
                    triples.data(), bytes);
        triples = triples.subspan(bytes);
        next_pixel_ += pixels;
    }
}

bool Picture::Save(const std::filesystem::path& path) const {
    DeleteQuietly(path);  // a write-protected copy of an earlier run must not stand in the way
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    if (!file || !file->Out().Write(Bmp24Header(width_, height_).Bytes())) return false;
    // Only the rows that arrived are written; a short source then takes no space for what it lacks.
    const std::uint64_t stride = Bmp24Stride(width_);
    const std::uint64_t arrived = (next_pixel_ + width_ - 1) / width_;
    const std::uint64_t first = order_ == RowOrder::top_down ? height_ - arrived : 0;
    const auto rows = rows_.All().subspan(static_cast<std::size_t>(first * stride),
                                          static_cast<std::size_t>(arrived * stride));
    return file->Out().Seek(kBmpHeaderBytes + first * stride) && file->Out().Write(rows) &&
           file->Out().ExtendTo(kBmpHeaderBytes + height_ * stride) && file->Commit();
}

}  // namespace pixora
