#include "viewer/sample_buffer.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "base/file.h"
#include "image/bmp_layout.h"
#include "image/bmp_reader.h"
#include "image/pixel_reader.h"
#include "image/pixels.h"
#include "image/tiff_reader.h"
#include "image/valid_bits.h"

namespace pixora {
namespace {

using Samples = std::span<std::uint16_t>;

// The ".bin" copy of a colour image is the sample buffer itself; a grey one is spread over the three
// channels, block by block from the file.
void ReadRawCopy(File& file, bool colour, std::uint16_t largest, Samples samples) {
    if (colour) {
        static_cast<void>(file.Read(std::as_writable_bytes(samples)));
        for (std::uint16_t& sample : samples) sample = std::min(sample, largest);
        return;
    }
    std::vector<std::uint16_t> block(kBlockBytes / 2);
    while (!samples.empty()) {
        const auto wanted = std::span(block).first(std::min(block.size(), samples.size() / 3));
        const std::size_t words = file.Read(std::as_writable_bytes(wanted)) / 2;
        for (std::uint16_t& sample : wanted.first(words)) sample = std::min(sample, largest);
        RepeatGrey(std::span<const std::uint16_t>(block).first(words), samples.first(3 * words));
        if (words < wanted.size()) return;
        samples = samples.subspan(3 * words);
    }
}

// Puts the pixels of a TIFF into the sample buffer as they come.
class TiffSamples {
public:
    TiffSamples(Samples samples, std::size_t channels) : left_(samples), channels_(channels) {}

    [[nodiscard]] static bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<const std::uint16_t> decoded) {
        const std::size_t pixels = std::min(decoded.size() / channels_, left_.size() / 3);
        if (channels_ == 1)
            RepeatGrey(decoded.first(pixels), left_.first(3 * pixels));
        else
            std::copy_n(decoded.begin(), 3 * pixels, left_.begin());
        left_ = left_.subspan(3 * pixels);
    }
    [[nodiscard]] static bool Keep(std::span<const std::uint16_t>) { return true; }

private:
    Samples left_;
    std::size_t channels_;
};

// The byte copy of an 8- or 12-bit TIFF is read as the source was.
void ReadTiffCopy(File& file, Samples samples) {
    const TiffHeader header = ReadTiffHeader(file);
    const std::optional<PixelLayout> layout = LayoutOf(header.info);
    if (!layout) return;
    TiffSamples target(samples, ChannelsOf(*layout));
    static_cast<void>(PixelReader(file, header.info, *layout).ForEachBlock(target));
}

// A display copy can be the byte copy of a user's file, so its rows may stand either way up.
void ReadDisplayCopy(File& file, int width, int height, Samples samples) {
    const std::optional<BmpHeader> header = ReadBmpHeader(file);
    if (!header || !file.Seek(header->data_offset)) return;
    const auto row_samples = 3 * static_cast<std::size_t>(width);
    const auto stride = static_cast<std::size_t>(Bmp24Stride(static_cast<std::uint64_t>(width)));
    const auto rows = static_cast<std::size_t>(height);
    std::size_t row = 0;
    const auto take_rows = [&](auto, std::span<const std::byte> whole) {
        for (std::size_t at = 0; at < whole.size(); at += stride, ++row) {
            const std::size_t image_row = header->bottom_up ? rows - 1 - row : row;
            DecodePixels(PixelLayout::mono8, whole.subspan(at, row_samples),
                         samples.subspan(image_row * row_samples, row_samples));
        }
        return true;
    };
    static_cast<void>(ForEachBlock(file, std::uint64_t{stride} * rows, stride, take_rows));
}

std::optional<SampleBuffer> Read(const ImageBuffer& image) {
    const bool tiff = !image.data_copy.empty();
    std::optional<File> file = File::OpenForReading(tiff ? image.data_copy : image.display_copy);
    if (!file) return std::nullopt;
    auto samples = ZeroedArray<std::uint16_t>::Make(std::uint64_t{3} * image.width * image.height);
    if (!samples) return std::nullopt;
    SampleBuffer buffer{image.width, image.height, *std::move(samples)};
    if (!tiff)
        ReadDisplayCopy(*file, buffer.width, buffer.height, buffer.samples.All());
    else if (image.raw_data)
        ReadRawCopy(*file, image.colour != 0, MaxSampleValue(image.valid_bits), buffer.samples.All());
    else
        ReadTiffCopy(*file, buffer.samples.All());
    return buffer;
}

}  // namespace

std::optional<SampleBuffer> ReadSampleBuffer(const ImageBuffer& image) noexcept {
    try {
        return Read(image);
    } catch (const std::exception&) {  // no memory
        return std::nullopt;
    }
}

}  // namespace pixora
