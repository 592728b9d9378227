#include "viewer/picture_rows.h"

#include <algorithm>
#include <array>

#include "base/bytes.h"
#include "image/bmp_layout.h"

namespace pixora {
namespace {

constexpr std::uint64_t kBitmapLimit = std::uint64_t{1} << 31;

// The info header's own size: from the one that all programs write to the largest that was ever defined.
constexpr std::uint64_t kInfoSizeOffset = 14;
constexpr std::uint32_t kSmallestInfoHeader = 40, kLargestInfoHeader = 124;

void FlipRows(std::span<std::byte> rows, std::size_t stride) {
    const std::size_t count = rows.size() / stride;
    for (std::size_t i = 0; i < count / 2; ++i) {
        const auto upper = rows.subspan(i * stride, stride);
        std::swap_ranges(upper.begin(), upper.end(), rows.subspan((count - 1 - i) * stride, stride).begin());
    }
}

}  // namespace

bool FitsBitmap(std::uint32_t width, std::uint32_t height) {
    const std::uint64_t stride = Bmp24Stride(width);
    return height == 0 || stride < (kBitmapLimit + height - 1) / height;
}

bool IsOrdinaryPicture(File& file, const BmpHeader& header) {
    std::array<std::byte, 4> bytes{};
    if (!file.ReadExactly(kInfoSizeOffset, bytes)) return false;
    const std::uint32_t info_size = Little32(bytes, 0);
    if (info_size < kSmallestInfoHeader || info_size > kLargestInfoHeader) return false;
    if (!FitsBitmap(header.width, header.height)) return false;
    return file.Size() >= header.data_offset + Bmp24Stride(header.width) * header.height;
}

bool ReadPictureRows(File& file, const BmpHeader& header, std::span<std::byte> bottom_up) {
    const std::uint64_t stride = Bmp24Stride(header.width);
    if (header.bit_count != 24 || header.compression != 0 || header.width == 0 || header.height == 0)
        return false;
    if (bottom_up.size() / stride != header.height || bottom_up.size() % stride != 0) return false;
    if (!file.Seek(header.data_offset) || file.Read(bottom_up) == 0) return false;
    if (!header.bottom_up) FlipRows(bottom_up, static_cast<std::size_t>(stride));
    return true;
}

}  // namespace pixora
