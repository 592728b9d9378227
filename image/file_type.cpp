#include "image/file_type.h"

#include <array>
#include <optional>

#include "base/file.h"
#include "image/tiff_reader.h"

namespace pixora {

FileType DetectFileType(const std::filesystem::path& path) {
    std::optional<File> file = File::OpenForReading(path);
    if (!file) return {};
    FileType type{.opened = true};
    std::array<std::byte, 2> mark{};
    if (file->ReadExactly(0, mark) && mark[0] == std::byte{'B'} && mark[1] == std::byte{'M'}) {
        type.kind = ImageFileKind::bmp;
        type.bmp = ReadBmpHeader(*file).value_or(BmpHeader{});
        return type;
    }
    type.tiff = ReadTiffHeader(*file);
    type.kind = type.tiff.kind;
    if (type.Known()) type.bits = DetectedBits(type.tiff.info);
    return type;
}

}  // namespace pixora
