#include "image/bmp_layout.h"

namespace pixora {
namespace {

constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 dpi

struct BmpKind {
    std::uint32_t header_bytes, bits, colours;
};

ByteBuilder Header(std::uint32_t width, std::uint32_t height, std::uint64_t stride, BmpKind kind) {
    // The file format holds sizes in 32 bits. Saved regions have no more than that; of larger display copies
    // no reader looks at these two.
    const auto pixel_bytes = static_cast<std::uint32_t>(stride * height);
    ByteBuilder header;
    header.U8('B');
    header.U8('M');
    header.U32(kind.header_bytes + pixel_bytes);
    header.U16(0);
    header.U16(0);
    header.U32(kind.header_bytes);
    header.U32(40);
    header.U32(width);
    header.U32(height);
    header.U16(1);
    header.U16(kind.bits);
    header.U32(0);
    header.U32(pixel_bytes);
    header.U32(kPixelsPerMetre);
    header.U32(kPixelsPerMetre);
    header.U32(kind.colours);
    header.U32(0);
    return header;
}

}  // namespace

ByteBuilder Bmp24Header(std::uint32_t width, std::uint32_t height) {
    return Header(width, height, Bmp24Stride(width), {kBmpHeaderBytes, 24, 0});
}

ByteBuilder Bmp8Header(std::uint32_t width, std::uint32_t height) {
    ByteBuilder header = Header(width, height, Bmp8Stride(width), {kBmp8HeaderBytes, 8, 256});
    for (std::uint32_t grey = 0; grey < 256; ++grey) header.U32(grey * 0x010101);
    return header;
}

}  // namespace pixora
