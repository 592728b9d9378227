#include "image/image_writer.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

#include "base/file.h"
#include "image/bmp_layout.h"
#include "image/pixels.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

// Sizes of the parts of the TIFF header: start, directory, then the values that do not fit into it.
constexpr std::uint32_t kDirectoryOffset = 8;
constexpr std::uint32_t kValuesOffset = 158;
constexpr std::uint32_t kFractionBytes = 8;
constexpr std::uint32_t kRgbBitsBytes = 6;

enum TiffType : std::uint32_t { kShort = 3, kLong = 4, kRational = 5 };

struct BmpRows {
    std::uint32_t width, height;
    std::size_t channels;
    int shift;

    [[nodiscard]] std::size_t Samples() const { return channels * width; }  // of one row
    [[nodiscard]] std::size_t Stride() const { return (Samples() + 3) / 4 * 4; }
};

// Writes the rows of a BMP from the last to the first, a block of rows at a time.
bool WriteRows(File& file, std::span<const std::uint16_t> samples, const BmpRows& rows_of) {
    const std::size_t row_samples = rows_of.Samples(), stride = rows_of.Stride();
    const std::size_t block_rows = std::max<std::size_t>(1, kBlockBytes / std::max<std::size_t>(1, stride));
    std::vector<std::byte> block(block_rows * stride);
    for (std::size_t left = rows_of.height; left > 0;) {
        const std::size_t rows = std::min(left, block_rows);
        for (std::size_t row = 0; row < rows; ++row)
            NarrowSamples(samples.subspan((left - 1 - row) * row_samples, row_samples), rows_of.shift,
                          std::span(block).subspan(row * stride, row_samples));
        if (!file.Write(std::span(block).first(rows * stride))) return false;
        left -= rows;
    }
    return true;
}

bool WriteBmp(const fs::path& path, const ByteBuilder& header, std::span<const std::uint16_t> samples,
              const BmpRows& rows) {
    const auto header_bytes = static_cast<std::uint32_t>(header.Bytes().size());
    if (!FitsImageFile(header_bytes, rows.Stride(), rows.height)) return false;
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    return file && file->Out().Write(header.Bytes()) && WriteRows(file->Out(), samples, rows) &&
           file->Commit();
}

bool WriteTiff(const fs::path& path, std::span<const std::uint16_t> samples, const TiffImage& image,
               int bits) {
    const ByteBuilder header = TiffFileHeader(image, bits);
    const std::uint64_t row_bytes = std::uint64_t{image.width} * (image.colour ? 3 : 1) * (bits == 8 ? 1 : 2);
    if (!FitsImageFile(static_cast<std::uint32_t>(header.Bytes().size()), row_bytes, image.height))
        return false;
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    if (!file || !file->Out().Write(header.Bytes())) return false;
    constexpr std::size_t kBlockSamples = kBlockBytes / 6 * 3;
    std::vector<std::uint16_t> block;
    std::vector<std::byte> bytes;
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), kBlockSamples));
        samples = samples.subspan(part.size());
        block.assign(part.begin(), part.end());
        if (image.colour) SwapRedAndBlue(block);  // a file's own order is red, green, blue
        bytes.resize(block.size());
        if (bits == 8) NarrowSamples(block, 0, bytes);
        if (!file->Out().Write(bits == 8 ? std::span<const std::byte>(bytes)
                                         : std::as_bytes(std::span(block))))
            return false;
    }
    return file->Commit();
}

// One directory entry. A short value stands in the low half of its four bytes.
void Entry(ByteBuilder& header, std::uint32_t tag, TiffType type, std::uint32_t count, std::uint32_t value) {
    header.U16(tag);
    header.U16(type);
    header.U32(count);
    header.U32(value);
}

std::uint32_t TiffDataBytes(const TiffImage& image, int bits) {
    const std::uint64_t pixels = std::uint64_t{image.width} * image.height;
    // Deliberate: 12 bits state a count of pixel pairs, not of bytes.
    if (bits == 12) return static_cast<std::uint32_t>((pixels + 1) / 2);
    return static_cast<std::uint32_t>(pixels * (image.colour ? 3 : 1) * (bits == 16 ? 2 : 1));
}

}  // namespace

bool FitsImageFile(std::uint32_t header_bytes, std::uint64_t row_bytes, std::uint32_t rows) {
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    return row_bytes == 0 || rows <= (kMost - header_bytes) / row_bytes;
}

bool WriteBmp24(const fs::path& path, std::span<const std::uint16_t> samples, std::uint32_t width,
                std::uint32_t height, int shift) {
    return WriteBmp(path, Bmp24Header(width, height), samples, {width, height, 3, shift});
}

bool WriteBmp8(const fs::path& path, std::span<const std::uint16_t> samples, std::uint32_t width,
               std::uint32_t height, int shift) {
    return WriteBmp(path, Bmp8Header(width, height), samples, {width, height, 1, shift});
}

bool WriteTiff16(const fs::path& path, std::span<const std::uint16_t> samples, const TiffImage& image) {
    return WriteTiff(path, samples, image, 16);
}

bool WriteTiff8(const fs::path& path, std::span<const std::uint16_t> samples, const TiffImage& image) {
    return WriteTiff(path, samples, image, 8);
}

ByteBuilder TiffFileHeader(const TiffImage& image, int bits) {
    const auto depth = static_cast<std::uint32_t>(bits);
    const std::uint32_t channels = image.colour ? 3 : 1;
    const std::uint32_t x_resolution = kValuesOffset + (image.colour ? kRgbBitsBytes : 0);
    const std::uint32_t y_resolution = x_resolution + kFractionBytes;
    const std::uint32_t data_offset = y_resolution + kFractionBytes;
    ByteBuilder header;
    header.U8('I');
    header.U8('I');
    header.U16(42);
    header.U32(kDirectoryOffset);
    header.U16(12);
    Entry(header, 256, kLong, 1, image.width);
    Entry(header, 257, kLong, 1, image.height);
    Entry(header, 258, kShort, channels, image.colour ? kValuesOffset : depth);
    Entry(header, 259, kShort, 1, 1);
    Entry(header, 262, kShort, 1, image.colour ? 2 : 1);
    Entry(header, 273, kLong, 1, data_offset);
    Entry(header, 277, kShort, 1, channels);
    Entry(header, 278, kLong, 1, image.height);
    Entry(header, 279, kLong, 1, TiffDataBytes(image, bits));
    Entry(header, 282, kRational, 1, x_resolution);
    Entry(header, 283, kRational, 1, y_resolution);
    Entry(header, 296, kShort, 1, 1);
    header.U32(0);  // no further directory
    if (image.colour)
        for (int channel = 0; channel < 3; ++channel) header.U16(depth);
    for (int resolution = 0; resolution < 2; ++resolution) {
        header.U32(1);
        header.U32(1);
    }
    return header;
}

}  // namespace pixora
