#include "image/region_save.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/file.h"
#include "image/image_writer.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

bool IsKnownDepth(std::uint32_t bits) {
    constexpr std::array<std::uint32_t, 5> kDepths{8, 10, 12, 14, 16};
    return std::find(kDepths.begin(), kDepths.end(), bits) != kDepths.end();
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
    std::wstring extension(path.substr(dot));
    std::transform(extension.begin(), extension.end(), extension.begin(), LowerAscii);
    return extension == L".tif" || extension == L".tiff";
}

bool SaveRegion(const RegionPixels& region, const fs::path& path) {
    if (region.samples.empty() || !IsKnownDepth(region.bits)) return false;
    return ChoosesTiff(WideText(path)) ? SaveTiff(region, path) : SaveBmp(region, path);
}

}  // namespace pixora
