#include "viewer/caption.h"

#include "base/number_text.h"
#include "dialogs/text_width.h"
#include "viewer/display_size.h"

namespace pixora {
namespace {

constexpr int kNameWidth = 50;

std::wstring BitsNote(const ImageBuffer& image) {
    if (!IsTiff(image)) return L"";
    const std::wstring stored = FormatWhole(image.bits_per_sample) + L"bit)";
    if (!image.raw_data) return L"  (" + stored;
    switch (image.valid_bits) {
        case 16:
            return L"   (16bit";  // Deliberate: the parenthesis stays open.
        case 14:
        case 12:
        case 10:
        case 8:
            return L"   (Upper " + FormatWhole(image.valid_bits) + L"bit / " + stored;
        default:
            return L"";
    }
}

}  // namespace

std::wstring ViewerCaption(const ImageBuffer& image, std::wstring_view caption_style,
                           std::wstring_view ratio_text) {
    const std::wstring& name = caption_style == L"FULL" ? image.source_path : image.file_name;
    return L"[" + FormatWhole(image.slot + 1) + L" ]  (" + PercentSignText(ratio_text) + L") File Name : " +
           ShortenText(name, kNameWidth) + BitsNote(image);
}

}  // namespace pixora
