#include "image/image_buffer.h"

#include <system_error>
#include <vector>

#include "base/characters.h"
#include "base/file.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

fs::path CopyPath(const fs::path& data_folder, int slot, std::string_view extension) {
    std::string name = "import_img_0";
    name += static_cast<char>('0' + slot);
    name += extension;
    return data_folder / name;
}

}  // namespace

std::uint32_t EffectiveBits(const ImageBuffer& image) {
    return image.raw_data ? image.valid_bits : image.bits_per_sample;
}

fs::path DisplayCopyPath(const fs::path& data_folder, int slot) {
    return CopyPath(data_folder, slot, ".bmp");
}

fs::path DataCopyPath(const fs::path& data_folder, int slot, std::string_view extension) {
    return CopyPath(data_folder, slot, extension);
}

std::optional<int> FindFreeSlot(const fs::path& data_folder) {
    for (int slot = 0; slot < kMaxImages; ++slot) {
        std::error_code ignored;
        const fs::file_status status = fs::status(DisplayCopyPath(data_folder, slot), ignored);
        // Deliberate: a folder of that name leaves the slot free; writing to it fails later, with a message.
        if (!fs::exists(status) || fs::is_directory(status)) return slot;
    }
    return std::nullopt;
}

bool IsTemporaryCopyName(std::wstring_view file_name) {
    constexpr std::wstring_view kStart = L"import_img_0";
    return file_name.size() > kStart.size() + 1 && file_name[kStart.size() + 1] == L'.' &&
           EqualInAnyCase(file_name.substr(0, kStart.size()), kStart);
}

void DeleteTemporaryCopies(const fs::path& data_folder) {
    std::vector<fs::path> copies;
    std::error_code error;
    for (fs::directory_iterator entry(data_folder, error), end; !error && entry != end;
         entry.increment(error))
        if (IsTemporaryCopyName(WideText(entry->path().filename()))) copies.push_back(entry->path());
    for (const fs::path& copy : copies) DeleteQuietly(copy);
}

std::wstring FileNameOf(std::wstring_view path, wchar_t separator) {
    const std::size_t last = path.rfind(separator);
    const std::wstring_view name = last == std::wstring_view::npos ? path : path.substr(last + 1);
    return std::wstring(name.substr(0, kMaxFileName));
}

}  // namespace pixora
