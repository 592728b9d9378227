// Opening an image file: from a path to the filled record and the slot's temporary copies.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <string>

#include "dialogs/message.h"
#include "image/image_buffer.h"

namespace pixora {

/// From how many pixels on an import takes long enough that the user is told to wait.
inline constexpr std::uint64_t kLongImportPixels = 4'194'304;

struct ImportRequest {
    std::filesystem::path source;       ///< full path of the file to open
    std::filesystem::path data_folder;  ///< where the temporary copies go
    std::wstring display_size;          ///< ratio text that new viewers start with
    std::wstring valid_bits;            ///< the setting VALID_BITS
    std::wstring auto_bit;              ///< the setting AUTO_BIT
    /// Called at most once, before the pixels of a large image are read.
    std::function<void()> before_long_import;
    /// Largest sample buffer, in bytes, that an image may need; larger images are refused.
    std::uint64_t memory_limit = std::numeric_limits<std::uint64_t>::max();
};

struct ImportResult {
    std::optional<ImageBuffer> image;  ///< the complete record when the import succeeded
    Message message;                   ///< what to show otherwise; all empty when there is nothing to say
};

/// Runs the whole import. On success the display copy (and for TIFF the data copy) of the record's slot
/// exist; on failure the slot is free again. Never throws.
[[nodiscard]] ImportResult ImportImage(const ImportRequest& request) noexcept;

}  // namespace pixora
