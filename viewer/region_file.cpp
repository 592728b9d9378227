#include "viewer/region_file.h"

#include <exception>
#include <span>

#include "base/file.h"
#include "base/number_text.h"
#include "dialogs/text_width.h"
#include "settings/settings_changes.h"

namespace pixora {
namespace {

// How many character cells of a file's name a message shows.
constexpr int kShownName = 38;
constexpr wchar_t kSeparator = L'\\';

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
           L"." + RegionFileExtension(image);
}

std::wstring RegionFileExtension(const ImageBuffer& image) {
    return IsTiff(image) ? L"tif" : L"bmp";
}

std::wstring ProposedRegionPath(const ImageBuffer& image, const Region& region, std::wstring_view folder) {
    std::wstring path = UsableFolder(folder);
    if (!path.empty() && !path.ends_with(kSeparator)) path += kSeparator;
    return path + RegionFileName(image, region);
}

CutRegion CutOutRegion(const SampleBuffer& source, bool colour, std::uint32_t bits, const Region& region) {
    const Region part = ClippedTo(region, source.width, source.height);
    CutRegion cut;
    cut.colour = colour;
    cut.bits = bits;
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

bool SaveRegionOf(const ViewerState& state, const Region& region,
                  const std::filesystem::path& path) noexcept {
    try {
        const bool colour = state.image.colour != 0;
        return SaveRegion(CutOutRegion(state.samples, colour, EffectiveBits(state.image), region).Pixels(),
                          path);
    } catch (const std::exception&) {  // no memory
        return false;
    }
}

Message RegionNotSaved(const std::filesystem::path& path) {
    return {L" : Error", L"File: " + ShortenText(FileNameOf(WideText(path)), kShownName),
            L"Failed to save the image file.", L""};
}

std::wstring SaveFolderOf(const std::filesystem::path& path) {
    const std::wstring text = WideText(path);
    return text.substr(0, text.rfind(kSeparator) + 1);  // all before it; nothing when there is none
}

}  // namespace pixora
