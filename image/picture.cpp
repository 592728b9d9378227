#include "image/picture.h"

#include <utility>

namespace pixora {
namespace {

// Rows that arrive from the top are written from the end of the file backwards; large blocks keep the number
// of pieces small.
constexpr std::size_t kPictureBlockBytes = std::size_t{1} << 19;

}  // namespace

PictureWriter::PictureWriter(AtomicFile file, std::uint32_t width, std::uint32_t height, RowOrder order)
    : file_(std::move(file)),
      width_(width),
      height_(height),
      stride_(static_cast<std::size_t>(Bmp24Stride(width))),
      order_(order),
      block_rows_(std::clamp<std::size_t>(kPictureBlockBytes / stride_, 1, height)),
      block_(block_rows_ * stride_) {}

std::optional<PictureWriter> PictureWriter::Create(const std::filesystem::path& path, std::uint32_t width,
                                                   std::uint32_t height, RowOrder order) {
    DeleteQuietly(path);
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    if (!file || !file->Out().Write(Bmp24Header(width, height).Bytes())) return std::nullopt;
    return PictureWriter(*std::move(file), width, height, order);
}

std::size_t PictureWriter::Place() const {
    const std::size_t in_block = row_ - flushed_rows_;
    return order_ == RowOrder::top_down ? block_rows_ - 1 - in_block : in_block;
}

void PictureWriter::NextRow() {
    column_ = 0;
    ++row_;
    if (row_ - flushed_rows_ == block_rows_ || row_ == height_) Flush();
}

void PictureWriter::Flush() {
    const std::size_t rows = row_ - flushed_rows_;
    const bool top_down = order_ == RowOrder::top_down;
    const std::size_t first = top_down ? height_ - row_ : flushed_rows_;
    const auto bytes =
        std::span(block_).subspan(top_down ? (block_rows_ - rows) * stride_ : 0, rows * stride_);
    const std::uint64_t offset = kBmpHeaderBytes + std::uint64_t{first} * stride_;
    failed_ = failed_ || !file_.Out().Seek(offset) || !file_.Out().Write(bytes);
    flushed_rows_ = row_;
}

bool PictureWriter::Commit() {
    if (column_ > 0) {
        std::ranges::fill(Row().subspan(3 * column_), std::byte{});
        NextRow();
    }
    Flush();
    return !failed_ && file_.Out().ExtendTo(kBmpHeaderBytes + std::uint64_t{height_} * stride_) &&
           file_.Commit();
}

}  // namespace pixora
