// Image files made byte by byte, and a reader of the samples, both written for the tests alone.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "tests/ui/support/picture.h"

namespace pixora::ui {

/// A BMP file as its headers claim it to be. Whatever is not said is that of a sound file.
struct BmpFile {
    std::int32_t width = 16, height = 12;  ///< a negative height: rows from top to bottom
    std::uint16_t bits = 24;
    std::uint32_t compression = 0;
    std::string palette = {};  ///< blue, green, red, 0 an entry
    std::string pixels = {};
};
[[nodiscard]] std::string Bytes(const BmpFile& file);
/// A sound BMP file of `picture` with 24 or 32 bits.
[[nodiscard]] std::string BmpBytes(const Picture& picture, std::uint16_t bits, bool top_down = false);

/// A TIFF file with one strip, as its directory claims it to be.
struct TiffFile {
    std::uint32_t width = 16, height = 12;
    std::uint16_t bits = 8, channels = 1;
    std::uint16_t photometric = 1, compression = 1;
    bool big_endian = false;
    std::string pixels = {};
};
[[nodiscard]] std::string Bytes(const TiffFile& file);
/// As many zero samples as the headers claim.
[[nodiscard]] std::string BlankPixels(const TiffFile& file);

/// A picture in which every pixel differs from its neighbours.
[[nodiscard]] Picture Chart(int width, int height);

/// What the image file at `path` must look like in its viewer at 100 %: the upper eight bits of each sample.
/// Reads the kinds of file that the samples have.
[[nodiscard]] Picture ReadImage(const std::filesystem::path& path);

}  // namespace pixora::ui
