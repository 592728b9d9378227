#include "image/file_type.h"

#include <array>

#include "image/tiff_reader.h"

namespace pixora {

FileType DetectFileType(const std::filesystem::path& path) {
    FileType type{.file = File::OpenForReading(path)};
    if (!type.file) return type;
    std::array<std::byte, 2> mark{};
    if (type.file->ReadExactly(0, mark) && mark[0] == std::byte{'B'} && mark[1] == std::byte{'M'}) {
        type.kind = ImageFileKind::bmp;
        type.bmp = ReadBmpHeader(*type.file).value_or(BmpHeader{});
        return type;
    }
    type.tiff = ReadTiffHeader(*type.file);
    type.kind = type.tiff.kind;
    if (type.Known()) type.bits = DetectedBits(type.tiff.info);
    return type;
}

}  // namespace pixora
