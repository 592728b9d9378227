#include "tests/ui/support/image_files.h"

#include <array>
#include <cstdlib>
#include <map>
#include <vector>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

void Put(std::string& bytes, std::uint32_t value, int count, bool big_endian = false) {
    for (int i = 0; i < count; ++i) {
        const int shift = 8 * (big_endian ? count - 1 - i : i);
        bytes += static_cast<char>(value >> shift & 0xFF);
    }
}

std::uint32_t Get(const std::string& bytes, std::size_t at, int count, bool big_endian = false) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
        const std::size_t index = at + static_cast<std::size_t>(big_endian ? i : count - 1 - i);
        if (index >= bytes.size()) throw UiError("an image of the tests is too short");
        value = value << 8 | static_cast<unsigned char>(bytes[index]);
    }
    return value;
}

Picture ReadBmp(const std::string& bytes) {
    const auto width = static_cast<int>(Get(bytes, 18, 4));
    const auto height = static_cast<std::int32_t>(Get(bytes, 22, 4));
    const auto bits = Get(bytes, 28, 2);
    const std::size_t pixels = Get(bytes, 10, 4),
                      stride = (static_cast<std::size_t>(width) * bits / 8 + 3) / 4 * 4;
    Picture picture(width, std::abs(height));
    for (int y = 0; y < picture.height; ++y) {
        const auto row = static_cast<std::size_t>(height < 0 ? y : picture.height - 1 - y);
        for (int x = 0; x < width; ++x) {
            const std::size_t at = pixels + row * stride + static_cast<std::size_t>(x) * bits / 8;
            picture.At(x, y) = Get(bytes, bits == 8 ? 54 + 4 * Get(bytes, at, 1) : at, 3);
        }
    }
    return picture;
}

struct Tiff {
    std::uint32_t width, height, bits, photometric, pixels;
};

Tiff ReadDirectory(const std::string& bytes) {
    const bool big = bytes[0] == 'M';
    const std::uint32_t directory = Get(bytes, 4, 4, big), entries = Get(bytes, directory, 2, big);
    std::map<std::uint32_t, std::uint32_t> values;
    for (std::uint32_t i = 0; i < entries; ++i) {
        const std::size_t at = directory + 2 + 12 * i;
        const std::uint32_t tag = Get(bytes, at, 2, big), type = Get(bytes, at + 2, 2, big);
        const std::uint32_t count = Get(bytes, at + 4, 4, big);
        const int size = type == 3 ? 2 : 4;
        const bool inside = count * static_cast<std::uint32_t>(size) <= 4;
        values[tag] = Get(bytes, inside ? at + 8 : Get(bytes, at + 8, 4, big), size, big);
    }
    return {values[256], values[257], values[258], values[262], values[273]};
}

/// The upper eight bits of sample number `index`. Words stand with their low byte first in every file.
std::uint32_t UpperByte(const std::string& bytes, const Tiff& tiff, std::size_t index) {
    if (tiff.bits == 8) return Get(bytes, tiff.pixels + index, 1);
    if (tiff.bits == 16) return Get(bytes, tiff.pixels + 2 * index + 1, 1);
    const std::size_t pair = tiff.pixels + index / 2 * 3;
    if (index % 2 == 0) return Get(bytes, pair, 1);
    return (Get(bytes, pair + 1, 1) & 15) << 4 | Get(bytes, pair + 2, 1) >> 4;
}

Picture ReadTiff(const std::string& bytes) {
    const Tiff tiff = ReadDirectory(bytes);
    Picture picture(static_cast<int>(tiff.width), static_cast<int>(tiff.height));
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        std::uint32_t colour = 0;
        for (std::size_t channel = 0; channel < 3; ++channel)
            colour = colour << 8 | UpperByte(bytes, tiff, tiff.photometric == 2 ? 3 * i + channel : i);
        picture.pixels[i] = colour;
    }
    return picture;
}

}  // namespace

std::string Bytes(const BmpFile& file) {
    const auto offset = static_cast<std::uint32_t>(54 + file.palette.size());
    std::string bytes = "BM";
    Put(bytes, offset + static_cast<std::uint32_t>(file.pixels.size()), 4);
    Put(bytes, 0, 4);
    Put(bytes, offset, 4);
    Put(bytes, 40, 4);
    Put(bytes, static_cast<std::uint32_t>(file.width), 4);
    Put(bytes, static_cast<std::uint32_t>(file.height), 4);
    Put(bytes, 1, 2);
    Put(bytes, file.bits, 2);
    Put(bytes, file.compression, 4);
    Put(bytes, static_cast<std::uint32_t>(file.pixels.size()), 4);
    for (int i = 0; i < 2; ++i) Put(bytes, 3780, 4);
    for (int i = 0; i < 2; ++i) Put(bytes, 0, 4);
    return bytes + file.palette + file.pixels;
}

std::string BmpBytes(const Picture& picture, std::uint16_t bits, bool top_down) {
    BmpFile file{.width = picture.width, .height = top_down ? -picture.height : picture.height, .bits = bits};
    for (int i = 0; i < picture.height; ++i) {
        const int y = top_down ? i : picture.height - 1 - i;
        for (int x = 0; x < picture.width; ++x) Put(file.pixels, picture.At(x, y), bits / 8);
        while (file.pixels.size() % 4) file.pixels += '\0';
    }
    return Bytes(file);
}

std::string Bytes(const TiffFile& file) {
    const bool big = file.big_endian;
    std::string bytes = big ? "MM" : "II", extra;
    Put(bytes, 42, 2, big);
    Put(bytes, 8, 4, big);
    constexpr std::uint16_t kEntries = 9;
    const std::uint32_t behind = 8 + 2 + 12 * kEntries + 4;
    const std::uint32_t depths = file.channels > 2 ? 2u * file.channels : 0;
    Put(bytes, kEntries, 2, big);
    const auto entry = [&](std::uint32_t tag, int size, std::uint32_t count, std::uint32_t value) {
        Put(bytes, tag, 2, big);
        Put(bytes, size == 2 ? 3 : 4, 2, big);
        Put(bytes, count, 4, big);
        const int used = count > 1 ? 4 : size;
        Put(bytes, value, used, big);
        Put(bytes, 0, 4 - used);
    };
    entry(256, 4, 1, file.width);
    entry(257, 4, 1, file.height);
    entry(258, 2, file.channels, depths ? behind : file.bits);
    entry(259, 2, 1, file.compression);
    entry(262, 2, 1, file.photometric);
    entry(273, 4, 1, behind + depths);
    entry(277, 2, 1, file.channels);
    entry(278, 4, 1, file.height);
    entry(279, 4, 1, static_cast<std::uint32_t>(file.pixels.size()));
    Put(bytes, 0, 4);
    for (std::uint32_t i = 0; i < depths / 2; ++i) Put(bytes, file.bits, 2, big);
    return bytes + file.pixels;
}

std::string BlankPixels(const TiffFile& file) {
    const std::uint64_t bits = std::uint64_t{file.width} * file.height * file.channels * file.bits;
    return std::string(static_cast<std::size_t>((bits + 7) / 8), '\0');
}

Picture Chart(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.At(x, y) =
                Rgb((x * 37 + y * 11) & 255, (x * 5 + y * 83 + 40) & 255, (x * y * 3 + 7 * x) & 255);
    return picture;
}

Picture ReadImage(const std::filesystem::path& path) {
    const std::string bytes = ReadBytes(path);
    if (bytes.size() < 26) throw UiError("an image of the tests is missing or too short");
    return bytes[0] == 'B' ? ReadBmp(bytes) : ReadTiff(bytes);
}

}  // namespace pixora::ui
