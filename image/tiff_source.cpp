#include "image/tiff_source.h"

#include "image/image_buffer.h"
#include "image/tiff_reader.h"

namespace pixora {
namespace {

bool SizeIsKept(const TiffInfo& info) {
    return info.width <= kMaxImageSide && info.height <= kMaxImageSide;
}

// Why a file is refused by its header; the order of the checks is that of the messages' weight.
ReadResult CheckHeader(const TiffHeader& header) {
    const TiffInfo& info = header.info;
    if (info.compression > 1) return ReadResult::compressed;  // also when the rest could not be read
    if (!header.complete || info.width == 0 || info.height == 0) return ReadResult::invalid;
    if (info.photometric == 5) return ReadResult::cmyk;
    if (info.photometric != 1 && !info.IsColour()) return ReadResult::not_supported;
    if (!LayoutOf(info) || !SizeIsKept(info)) return ReadResult::not_supported;
    return ReadResult::accepted;
}

bool IsPlain16(const TiffHeader& header) {
    const TiffInfo& info = header.info;
    const bool known = info.photometric == 1 || info.IsColour();
    return header.complete && known && info.compression == 1 && info.width > 0 && info.height > 0 &&
           SizeIsKept(info) && (info.SingleBits() == 16 || info.ChannelBits() == 16);
}

bool HasPixelData(const FileType& source) {
    return source.tiff.info.first_strip_offset < source.file->Size();
}

}  // namespace

ReadResult CheckTiff(const FileType& source) {
    if (!source.file) return ReadResult::not_supported;
    const ReadResult result = CheckHeader(source.tiff);
    return result == ReadResult::accepted && !HasPixelData(source) ? ReadResult::invalid : result;
}

ReadResult CheckTiff16(const FileType& source) {
    const bool read = source.file && IsPlain16(source.tiff) && HasPixelData(source);
    return read ? ReadResult::accepted : ReadResult::invalid;
}

PixelLayout Layout16(const TiffInfo& info) {
    return info.IsColour() ? PixelLayout::rgb16 : PixelLayout::mono16;
}

}  // namespace pixora
