#include "image/picture.h"

#include <utility>

namespace pixora {
namespace {

constexpr std::size_t kPictureBlockBytes = std::size_t{1} << 19;

}  // namespace

PictureWriter::PictureWriter(AtomicFile file, std::uint32_t width, std::uint32_t height, RowOrder order)
    : file_(std::move(file)),
      width_(width),
      height_(height),
      stride_(static_cast<std::size_t>(Bmp24Stride(width))),
      order_(order),
      block_rows_(std::clamp<std::size_t>(kPictureBlockBytes / stride_, 1, height)),
      block_(block_rows_ * stride_ + kPageBytes),
      edge_(kBmpHeaderBytes + (TopDown() ? std::uint64_t{height_} * stride_ : 0)) {
    const ByteBuilder header = Bmp24Header(width, height);
    Write(0, header.Bytes());
}

std::optional<PictureWriter> PictureWriter::Create(const std::filesystem::path& path, std::uint32_t width,
                                                   std::uint32_t height, RowOrder order) {
    DeleteQuietly(path);
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    if (!file) return std::nullopt;
    return PictureWriter(*std::move(file), width, height, order);
}

std::span<std::byte> PictureWriter::Row() {
    const std::size_t rows = row_ - flushed_rows_;
    const std::size_t from_edge = carried_ + rows * stride_;
    return std::span(block_).subspan(TopDown() ? block_.size() - from_edge - stride_ : from_edge, stride_);
}

void PictureWriter::NextRow() {
    // What waits moves the rows of a block, so that their padding lies where pixels of the block before lay.
    std::ranges::fill(Row().subspan(3 * width_), std::byte{});
    column_ = 0;
    ++row_;
    if (row_ - flushed_rows_ == block_rows_) Flush(false);
}

// Writes the block up to the last whole page; the rest waits, unless nothing more comes. Systems keep files
// in memory by pages, and writing a part of one costs as much as writing it whole.
void PictureWriter::Flush(bool last) {
    const std::size_t used = carried_ + (row_ - flushed_rows_) * stride_;
    const auto block = std::span(block_);
    if (TopDown()) {
        const std::uint64_t start = edge_ - used;
        const std::size_t to_page = (kPageBytes - start % kPageBytes) % kPageBytes;
        carried_ = last ? 0 : std::min(to_page, used);
        edge_ = start + carried_;
        Write(edge_, block.last(used - carried_));
        std::ranges::copy(block.last(used).first(carried_), block.last(carried_).begin());
    } else {
        carried_ = last ? 0 : std::min<std::size_t>((edge_ + used) % kPageBytes, used);
        Write(edge_, block.first(used - carried_));
        edge_ += used - carried_;
        std::ranges::copy(block.first(used).last(carried_), block.begin());
    }
    flushed_rows_ = row_;
}

void PictureWriter::Write(std::uint64_t offset, std::span<const std::byte> bytes) {
    failed_ = failed_ || !file_.Out().Seek(offset) || !file_.Out().Write(bytes);
}

bool PictureWriter::Commit() {
    if (column_ > 0) {
        std::ranges::fill(Row().subspan(3 * column_), std::byte{});
        NextRow();
    }
    Flush(true);
    return !failed_ && file_.Out().ExtendTo(kBmpHeaderBytes + std::uint64_t{height_} * stride_) &&
           file_.Commit();
}

}  // namespace pixora
