// Which TIFF files are read.
#pragma once

#include "image/file_type.h"
#include "image/pixels.h"
#include "image/read_result.h"

namespace pixora {

/// Whether a file of any depth is read. @return why not.
[[nodiscard]] ReadResult CheckTiff(const FileType& source);

/// Whether a 16-bit file is read, which is refused in one way only.
[[nodiscard]] ReadResult CheckTiff16(const FileType& source);

/// How the pixels of a 16-bit file are stored.
[[nodiscard]] PixelLayout Layout16(const TiffInfo& info);

}  // namespace pixora
