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
#include "image/sample_sink.h"

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
    Message message;      ///< what to show otherwise; all empty when the source was, or for want of memory
    std::wstring reason;  ///< the same in one line, without the file's name
    int code = 0;         ///< of the reason, see ReadResult; 0 on success and for an empty source
    /// The file's table of strips is so large that it is not fetched; its pixels are read from its start.
    bool strips_too_many = false;
    /// With code ReadResult::write_failed: it was the data copy that could not be written.
    bool data_copy_failed = false;
};

/// Runs the whole import. On success the display copy (and for TIFF the data copy) of the record's slot
/// exist; on failure the slot is free again. Never throws.
[[nodiscard]] ImportResult ImportImage(const ImportRequest& request) noexcept;

/// A file that is read without a viewer, a slot or a limit of what can be displayed; otherwise as
/// ImportImage() would.
struct SourceRequest {
    std::filesystem::path source;
    std::wstring valid_bits;  ///< as the setting VALID_BITS
    std::wstring auto_bit;    ///< as the setting AUTO_BIT
};

/// Tells the facts of an image and gives its samples, those of ReadSampleBuffer(), to `sink`. Writes nothing.
/// With no sink, pixels are read only as far as a fact depends on them.
/// @return code ReadResult::write_failed when the sink ended the reading.
[[nodiscard]] ImportResult ReadImage(const SourceRequest& request, SampleSink* sink) noexcept;

/// How a file is refused whose pixels need more memory than there is: as one that promises too many of them.
[[nodiscard]] ImportResult RefusedForMemory(const std::filesystem::path& source);

/// Writes the display copy of an image, and the data copy of a 16-bit one unless that path is empty. Files of
/// these names are replaced.
/// @return code ReadResult::write_failed when a copy could not be written; neither of them exists then.
[[nodiscard]] ImportResult CopyImage(const SourceRequest& request, const std::filesystem::path& display_copy,
                                     const std::filesystem::path& data_copy) noexcept;

}  // namespace pixora
