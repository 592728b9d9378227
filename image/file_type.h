// A file that is to be read: what kind it is, and what its header says.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "base/file.h"
#include "image/bmp_reader.h"
#include "image/image_buffer.h"
#include "image/tiff_header.h"

namespace pixora {

struct FileType {
    std::optional<File> file;  ///< open; nothing when it cannot be read at all
    ImageFileKind kind =
        ImageFileKind::unknown;  ///< bmp, tiff_little or tiff_big when the signature is known
    std::uint32_t bits = 8;      ///< per sample: 8 for BMP, what the header says for TIFF
    TiffHeader tiff{};           ///< of a TIFF
    BmpHeader bmp{};             ///< of a BMP; all zero when it is cut off
    [[nodiscard]] bool Known() const { return kind != ImageFileKind::unknown; }
};

/// Tells the kind by the first bytes: "BM", "II" and 42, or "MM" and 42. A damaged TIFF header does not make
/// the file unknown; its depth then follows the fields that could be read.
[[nodiscard]] FileType DetectFileType(const std::filesystem::path& path);

}  // namespace pixora
