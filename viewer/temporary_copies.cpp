#include "viewer/temporary_copies.h"

#include "base/file.h"
#include "base/number_text.h"

namespace pixora {

std::vector<std::filesystem::path> TemporaryCopiesOf(const ImageBuffer& image) {
    std::vector<std::filesystem::path> copies;
    if (!image.display_copy.empty()) copies.push_back(image.display_copy);
    if (!image.data_copy.empty()) copies.push_back(image.data_copy);
    return copies;
}

std::wstring DeleteFailureText(const std::filesystem::path& file, std::uint32_t system_error) {
    return L"Failed to delete file: " + WideText(file) + L" (Error code: " + FormatWhole(system_error) + L")";
}

}  // namespace pixora
