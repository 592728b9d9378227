#include "analysis/image_info_texts.h"

#include <cstdint>

#include "analysis/thousands.h"
#include "base/number_text.h"
#include "dialogs/text_width.h"

namespace pixora {
namespace {

constexpr int kNameWidth = 45;  // in half-width units

std::wstring Extent(std::int64_t width, std::int64_t height) {
    return FormatWhole(width) + L" x " + FormatWhole(height);
}

// Deliberate: the product is 32 bits wide. No image has more pixels than that holds, a crossed region may.
std::wstring PixelCount(std::int64_t width, std::int64_t height) {
    const std::uint32_t count = static_cast<std::uint32_t>(width) * static_cast<std::uint32_t>(height);
    return ThousandsText(count);
}

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\') + 1);
}

}  // namespace

std::wstring ImageInfoTitle(std::optional<int> slot) {
    if (!slot) return L"Image info.";
    return L" [" + FormatWhole(*slot + 1) + L" ]  " + L"Image info. ";
}

std::wstring ValidBitNote(const ImageBuffer& image) {
    if (!IsTiff(image) || image.bits_per_sample != 16) return L"";
    return L" (Upper " + FormatWhole(image.valid_bits) + L" bits Valid)";
}

std::wstring FormatLine(const ImageBuffer& image, bool numbered) {
    return (numbered ? L"File Format:  " : L"Pixel Format:  ") + image.pixel_format + ValidBitNote(image);
}

std::wstring CountNote(const ImageBuffer& image) {
    const std::uint64_t count = image.state_64.front();
    return count == 0 ? L"" : L" (" + std::to_wstring(count) + L")";
}

ImageInfoLines LinesOf(const ImageBuffer& image) {
    return {ShortenText(FolderOf(image.source_path), kNameWidth), ShortenText(image.file_name, kNameWidth),
            FormatLine(image, true), L"Image Size (HxV): " + Extent(image.width, image.height),
            L"Total Number of Pixels:  " + PixelCount(image.width, image.height)};
}

RegionInfoLines RegionInfo(const Region& region, bool region_on) {
    if (!region_on) return {};
    // The edges are widened first: a region may hold any 32-bit value.
    const std::int64_t left = region.left, top = region.top;
    const std::int64_t width = region.right - left + 1, height = region.bottom - top + 1;
    return {L"Reigion (HxV) :" + Extent(width, height), L"Reigion (Total) : " + PixelCount(width, height)};
}

std::wstring DisplaySizeInfo(std::wstring_view percent) {
    return L"Display Size: " + std::wstring(percent);
}

}  // namespace pixora
