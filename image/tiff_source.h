// A TIFF file before its pixels are read.
#pragma once

#include <filesystem>
#include <optional>

#include "base/file.h"
#include "image/pixels.h"
#include "image/read_result.h"
#include "image/tiff_header.h"

namespace pixora {

/// A file that has been looked at as far as its header goes; open when it is accepted.
struct TiffSource {
    ReadResult result = ReadResult::not_supported;
    std::optional<File> file;
    TiffHeader header;
};

/// Looks at a file of any depth. @return why it is refused, if it is.
[[nodiscard]] TiffSource OpenTiff(const std::filesystem::path& path);

/// Looks at a 16-bit file, which is refused in one way only.
[[nodiscard]] TiffSource OpenTiff16(const std::filesystem::path& path);

/// How the pixels of a 16-bit file are stored.
[[nodiscard]] PixelLayout Layout16(const TiffInfo& info);

}  // namespace pixora
