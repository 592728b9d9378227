#include <doctest/doctest.h>

#include "analysis/measurement.h"
#include "app/import.h"
#include "base/block_memory.h"
#include "cli/region_sink.h"
#include "tests/unit/support/scratch_folder.h"
#include "tests/unit/support/small_files.h"
#include "viewer/sample_buffer.h"

using namespace pixora;
using namespace pixora::test;

namespace {

// What the views of the window would show of the same region.
Measurement Measured(const ImageBuffer& image, const Region& region) {
    const auto buffer = ReadSampleBuffer(image);
    REQUIRE(buffer.has_value());
    Measurement measured;
    Measure({buffer->width, buffer->height, image.colour != 0, EffectiveBits(image), buffer->samples.All()},
            region, measured);
    return measured;
}

// A palette whose colours are all grey, but not in their order.
std::string NegativeFile() {
    std::string palette;
    for (int i = 255; i >= 0; --i) palette += Bytes({i, i, i, 0});
    return BmpFile{.width = 4,
                   .height = 2,
                   .bits = 8,
                   .data_offset = 54 + 1024,
                   .before_data = palette,
                   .pixels = Bytes({1, 2, 3, 4, 250, 251, 252, 253})}
        .Make();
}

// Files of several blocks, with padded rows where the kind has any: whole, and cut where the first block
// ends.
std::vector<std::string> LargeFiles() {
    constexpr int kWidth = 1003, kHeight = 200;
    std::vector<std::string> files;
    const auto add = [&](const std::string& whole, std::size_t header) {
        files.push_back(whole);
        for (const std::size_t pixels : {kBlockBytes - 1, kBlockBytes, kBlockBytes + 1})
            if (header + pixels < whole.size()) files.push_back(whole.substr(0, header + pixels));
    };
    for (const int height : {kHeight, -kHeight})
        for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{24}, std::uint16_t{32}})
            add(BmpFile{.width = kWidth,
                        .height = bits == 8 ? 2 * height : height,
                        .bits = bits,
                        .data_offset = 54 + 1024,
                        .before_data = Noise(1024, 4),
                        .pixels = Noise(std::size_t{kWidth} * kHeight * 4, 5)}
                    .Make(),
                54 + 1024);
    for (const int photometric : {1, 2})
        for (const int bits : {8, 12, 16}) {
            const std::string pixels = Noise(std::size_t{kWidth} * kHeight * 6, 6);
            const std::string whole = TiffFile{.width = kWidth,
                                               .height = kHeight,
                                               .photometric = photometric,
                                               .bits = bits,
                                               .pixels = pixels}
                                          .Make();
            add(whole, whole.size() - pixels.size());
        }
    return files;
}

}  // namespace

TEST_CASE("figures taken while a file is read are those of its samples in a viewer") {
    const ScratchFolder folder;
    std::vector<std::string> files = SmallFiles();
    files.push_back(NegativeFile());
    for (std::string& large : LargeFiles()) files.push_back(std::move(large));
    std::size_t measured_files = 0;
    for (const std::string& bytes : files)
        for (const wchar_t* auto_bit : {L"ON", L"OFF"}) {
            CAPTURE(bytes.size());
            const auto path = folder.Write("a.img", bytes);
            const ImportResult imported = ImportInto(folder, path, auto_bit);
            if (!imported.image) continue;
            const int right = imported.image->width - 1, bottom = imported.image->height - 1;
            const Region regions[] = {
                {0, 0, right, bottom}, {right / 2, 0, right, bottom}, {0, bottom, right, bottom}};
            for (const Region& region : regions) {
                ++measured_files;
                const Measurement expected = Measured(*imported.image, region);
                const bool colour = imported.image->colour != 0;
                cli::SumSink sums;
                sums.Expect(region);
                REQUIRE(ReadImage({path, L"12", auto_bit}, &sums).image.has_value());
                sums.Complete();
                CHECK(sums.Statistics(colour) == expected.statistics);
                cli::CountSink counts;
                counts.Expect(region);
                const ImportResult read = ReadImage({path, L"12", auto_bit}, &counts);
                REQUIRE(read.image.has_value());
                counts.Complete();
                CHECK(read.image->valid_bits == imported.image->valid_bits);
                CHECK(counts.Counts(colour, EffectiveBits(*read.image)) == expected.counts);
            }
            DeleteTemporaryCopies(folder.Path());
        }
    CHECK(measured_files > 100);
}

TEST_CASE("one sink measures file after file") {
    const ScratchFolder folder;
    const auto deep =
        folder.Write("deep.tif", TiffFile{.width = 2, .bits = 16, .pixels = Words({0x1230, 0x4560})}.Make());
    const auto small = folder.Write("small.tif", TiffFile{.width = 2, .pixels = Bytes({7, 9})}.Make());
    cli::SumSink sums;
    for (const auto& [path, most] : {std::pair{deep, 0x456}, {small, 9}, {deep, 0x456}}) {
        sums.Expect(std::nullopt);
        REQUIRE(ReadImage({path, L"", L"ON"}, &sums).image.has_value());
        sums.Complete();
        CHECK(sums.Statistics(false)[0].max == most);
    }
}
