#include "image/region_save.h"

#include "base/characters.h"
#include "base/file.h"
#include "image/image_writer.h"
#include "image/valid_bits.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

bool IsComplete(const RegionPixels& region) {
    const std::uint64_t pixels = std::uint64_t{region.width} * region.height;
    return pixels > 0 && region.samples.size() == pixels * (region.colour ? 3 : 1);
}

bool SaveTiff(const RegionPixels& region, const fs::path& path) {
    const TiffImage image{region.width, region.height, region.colour};
    return region.bits == 8 ? WriteTiff8(path, region.samples, image)
                            : WriteTiff16(path, region.samples, image);
}

bool SaveBmp(const RegionPixels& region, const fs::path& path) {
    // Deliberate: a grey BMP has eight bits, too few to save 14 or 16 of them.
    if (!region.colour && region.bits > 12) return false;
    const int shift = static_cast<int>(region.bits) - 8;
    return region.colour ? WriteBmp24(path, region.samples, region.width, region.height, shift)
                         : WriteBmp8(path, region.samples, region.width, region.height, shift);
}

}  // namespace

bool ChoosesTiff(std::wstring_view path) {
    const std::size_t dot = path.rfind(L'.');
    if (dot == std::wstring_view::npos) return false;
    const std::wstring_view extension = path.substr(dot);
    return EqualInAnyCase(extension, L".tif") || EqualInAnyCase(extension, L".tiff");
}

bool SaveRegion(const RegionPixels& region, const fs::path& path) {
    const bool known_depth = region.bits <= 16 && IsValidBitCount(static_cast<int>(region.bits));
    if (!known_depth || !IsComplete(region)) return false;
    return ChoosesTiff(WideText(path)) ? SaveTiff(region, path) : SaveBmp(region, path);
}

}  // namespace pixora
