#include "viewer/region_file.h"

#include <span>

#include "base/number_text.h"

namespace pixora {
namespace {

bool IsTiff(const ImageBuffer& image) {
    return image.file_kind == ImageFileKind::tiff_little || image.file_kind == ImageFileKind::tiff_big;
}

// A name that only begins with a point keeps it.
std::wstring WithoutExtension(const std::wstring& name) {
    const std::size_t point = name.rfind(L'.');
    return point == std::wstring::npos || point == 0 ? name : name.substr(0, point);
}

// All three samples of a colour image's pixels, the one of a grey image's that stands there three times.
void AddRow(std::span<const std::uint16_t> row, CutRegion& cut) {
    if (cut.colour) {
        cut.samples.insert(cut.samples.end(), row.begin(), row.end());
        return;
    }
    for (std::size_t x = 0; x < row.size(); x += 3) cut.samples.push_back(row[x]);
}

}  // namespace

std::wstring RegionFileName(const ImageBuffer& image, const Region& region) {
    return WithoutExtension(image.file_name) + L"_" + FormatWhole(region.left) + L"." +
           FormatWhole(region.top) + L"_" + FormatWhole(region.right) + L"." + FormatWhole(region.bottom) +
           L"." + (IsTiff(image) ? L"tif" : L"bmp");
}

CutRegion CutOutRegion(const ViewerState& state) {
    const SampleBuffer& source = state.samples;
    const Region part = ClippedTo(state.region, source.width, source.height);
    CutRegion cut;
    cut.colour = state.image.colour != 0;
    cut.bits = EffectiveBits(state.image);
    if (IsEmpty(part)) return cut;
    cut.width = static_cast<std::uint32_t>(part.right - part.left + 1);
    cut.height = static_cast<std::uint32_t>(part.bottom - part.top + 1);
    const std::size_t row_samples = 3 * std::size_t{cut.width};
    cut.samples.reserve((cut.colour ? 3 : 1) * std::size_t{cut.width} * cut.height);
    for (int y = part.top; y <= part.bottom; ++y) {
        const std::size_t first = 3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(source.width) +
                                       static_cast<std::size_t>(part.left));
        AddRow(source.samples.All().subspan(first, row_samples), cut);
    }
    return cut;
}

}  // namespace pixora
