// The record of one opened image, and the slots that limit how many are open.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pixora {

/// How many images can be open at once; slot numbers run from 0 to one less.
inline constexpr int kMaxImages = 8;

/// The longest file name that is kept, in characters.
inline constexpr std::size_t kMaxFileName = 259;

/// The largest width and height that an image record can hold.
inline constexpr std::uint32_t kMaxImageSide = 65535;

/// What kind of file an image came from; `bin` is only ever the kind of a data copy.
enum class ImageFileKind : std::uint32_t {
    none = 0,
    bmp = 1,
    tiff_little = 2,
    tiff_big = 3,
    bin = 4,
    unknown = 9
};

/// The facts of an opened image. The pixels are not here: they live in the two temporary copies that the
/// record names and in the viewer's sample buffer. The default values are those of a new record.
struct ImageBuffer {
    std::uint8_t slot = 0;               ///< 0 .. kMaxImages - 1; the number in the names of the copies
    std::wstring file_name;              ///< of the source, at most kMaxFileName characters
    std::wstring source_path;            ///< full path of the file that the user opened
    std::filesystem::path display_copy;  ///< 24-bit BMP that the viewer paints from
    std::filesystem::path data_copy;     ///< full-depth samples of a TIFF; empty for BMP
    std::wstring display_size;           ///< ratio text that the viewer starts with, for example L"1.00"
    std::wstring spare_text;             ///< empty after an import
    std::uint32_t stored_bits = 0;       ///< TIFF only: BitsPerSample of the file
    std::uint8_t raw_data = 0;           ///< 1 when the data copy is a ".bin" file of 16-bit samples
    std::uint32_t valid_bits = 0;        ///< TIFF only: significant bits per sample
    std::uint8_t spare_flag = 0;         ///< not set by the import
    ImageFileKind file_kind = ImageFileKind::none;
    ImageFileKind data_kind = ImageFileKind::none;
    std::uint16_t width = 0;                  ///< pixels
    std::uint16_t height = 0;                 ///< pixels
    std::uint8_t colour = 0;                  ///< 1 for a colour image, 0 for a grey one
    std::wstring pixel_format = L"Mono8";     ///< "Mono" or "RGB" and the bits per sample
    std::uint32_t bits_per_sample = 8;        ///< of the source file: 8 for BMP; 8, 12 or 16 for TIFF
    std::uint32_t bmp_bit_count = 0;          ///< BMP only: 8, 24 or 32
    std::array<std::uint16_t, 8> state_16{};  ///< kept with the record, zero after an import
    std::array<std::uint64_t, 8> state_64{};  ///< kept with the record, zero after an import
};

/// The source file is a TIFF of either byte order.
[[nodiscard]] inline bool IsTiff(const ImageBuffer& image) {
    return image.file_kind == ImageFileKind::tiff_little || image.file_kind == ImageFileKind::tiff_big;
}

/// The bit depth that measurements of the image work with: the valid bits of a 16-bit source, else the bits
/// per sample.
[[nodiscard]] std::uint32_t EffectiveBits(const ImageBuffer& image);

/// Path of the display copy of `slot` (0 .. 7): "import_img_" and two digits and ".bmp" in the data folder.
[[nodiscard]] std::filesystem::path DisplayCopyPath(const std::filesystem::path& data_folder, int slot);
/// Path of the data copy of `slot` with the given extension, ".bin" or ".tiff".
[[nodiscard]] std::filesystem::path DataCopyPath(const std::filesystem::path& data_folder, int slot,
                                                 std::string_view extension);

/// The lowest slot whose display copy does not exist (a folder of that name does not count), or nothing when
/// all eight are taken.
[[nodiscard]] std::optional<int> FindFreeSlot(const std::filesystem::path& data_folder);

/// True for the names of temporary copies, in any case: "import_img_0", any one character, a dot and any
/// extension.
[[nodiscard]] bool IsTemporaryCopyName(std::wstring_view file_name);
/// Deletes every temporary copy in the data folder, write-protected ones too; files in use stay.
void DeleteTemporaryCopies(const std::filesystem::path& data_folder);

/// The characters after the last path separator, at most kMaxFileName of them; the whole text without one.
[[nodiscard]] std::wstring FileNameOf(std::wstring_view path, wchar_t separator = L'\\');

}  // namespace pixora
