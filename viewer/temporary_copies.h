// The temporary files that go with a viewer.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "image/image_buffer.h"

namespace pixora {

/// The files that the image's viewer deletes when it closes: its display copy and its data copy, if it has
/// one.
[[nodiscard]] std::vector<std::filesystem::path> TemporaryCopiesOf(const ImageBuffer& image);

/// What the user is told when one of them could not be deleted.
[[nodiscard]] std::wstring DeleteFailureText(const std::filesystem::path& file, std::uint32_t system_error);

}  // namespace pixora
