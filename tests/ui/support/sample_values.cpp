#include "tests/ui/support/sample_values.h"

#include <map>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/image_files.h"
#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

class TiffReader {
public:
    explicit TiffReader(std::string bytes) : bytes_(std::move(bytes)), big_(bytes_[0] == 'M') {}

    SampleValues Read() {
        const std::uint32_t directory = Number(4, 4);
        for (std::uint32_t i = 0; i < Number(directory, 2); ++i) ReadEntry(directory + 2 + 12 * i);
        SampleValues image{static_cast<int>(tags_[256]),
                           static_cast<int>(tags_[257]),
                           tags_[262] == 2 ? 3 : 1,
                           static_cast<int>(tags_[258]),
                           {}};
        const std::size_t count = std::size_t{tags_[256]} * tags_[257] * (tags_[262] == 2 ? 3 : 1);
        image.values.reserve(count);
        for (std::size_t i = 0; i < count; ++i) image.values.push_back(Sample(i));
        return image;
    }

private:
    [[nodiscard]] std::uint32_t Byte(std::size_t at) const {
        if (at >= bytes_.size()) throw UiError("a TIFF file is too short");
        return static_cast<unsigned char>(bytes_[at]);
    }
    [[nodiscard]] std::uint32_t Number(std::size_t at, int size) const {
        std::uint32_t value = 0;
        for (int i = 0; i < size; ++i)
            value = value << 8 | Byte(at + static_cast<std::size_t>(big_ ? i : size - 1 - i));
        return value;
    }
    void ReadEntry(std::size_t at) {
        const int size = Number(at + 2, 2) == 3 ? 2 : 4;
        const bool inside = Number(at + 4, 4) * static_cast<std::uint32_t>(size) <= 4;
        tags_[Number(at, 2)] = Number(inside ? at + 8 : Number(at + 8, 4), size);
    }
    /// Words stand with their low byte first in every file.
    [[nodiscard]] std::uint32_t Sample(std::size_t i) {
        const std::size_t start = tags_[273];
        if (tags_[258] == 8) return Byte(start + i);
        if (tags_[258] == 16) return Byte(start + 2 * i) | Byte(start + 2 * i + 1) << 8;
        const std::size_t pair = start + i / 2 * 3;
        if (i % 2 == 0) return Byte(pair) << 4 | Byte(pair + 1) >> 4;
        return (Byte(pair + 1) & 15) << 8 | Byte(pair + 2);
    }

    std::string bytes_;
    bool big_;
    std::map<std::uint32_t, std::uint32_t> tags_;
};

SampleValues FromPicture(const Picture& picture) {
    SampleValues image{picture.width, picture.height, 3, 8, {}};
    for (const std::uint32_t pixel : picture.pixels)
        for (const int shift : {16, 8, 0}) image.values.push_back(pixel >> shift & 255);
    return image;
}

}  // namespace

SampleValues ReadValues(const std::filesystem::path& path) {
    const std::string bytes = ReadBytes(path);
    if (bytes.size() < 26) throw UiError("an image file is missing or too short");
    return bytes[0] == 'B' ? FromPicture(ReadImage(path)) : TiffReader(bytes).Read();
}

std::vector<std::uint32_t> PartOf(const SampleValues& source, const Part& part, int depth, bool grey,
                                  int shift) {
    std::vector<std::uint32_t> values;
    const int taken = grey ? 1 : source.channels;
    for (int y = part.top; y <= part.bottom; ++y)
        for (int x = part.left; x <= part.right; ++x)
            for (int channel = 0; channel < taken; ++channel) {
                const auto at = static_cast<std::size_t>((y * source.width + x) * source.channels + channel);
                values.push_back(source.values[at] >> (source.bits - depth) >> shift);
            }
    return values;
}

}  // namespace pixora::ui
