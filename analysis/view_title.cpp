#include "analysis/view_title.h"

#include "base/number_text.h"

namespace pixora {
namespace {

std::wstring UpperBitsNote(const ImageBuffer& image) {
    if (!image.raw_data) return L"";
    switch (image.valid_bits) {
        case 16:
            return L" - 16bit";
        case 14:
        case 12:
        case 10:
        case 8:
            return L" - Upper " + FormatWhole(image.valid_bits) + L"bit";
        default:
            return L"";
    }
}

}  // namespace

std::wstring ViewTitle(std::wstring_view view, const ImageBuffer& image, std::wstring_view caption_style) {
    std::wstring title(view);
    if (image.slot >= kMaxImages) return title;
    const std::wstring& name = caption_style == L"FULL" ? image.source_path : image.file_name;
    title += L" - " + name + UpperBitsNote(image);
    return title + L" [" + FormatWhole(image.slot + 1) + L"]";
}

}  // namespace pixora
