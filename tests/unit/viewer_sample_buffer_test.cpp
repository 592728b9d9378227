#include "viewer/sample_buffer.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "app/import.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

// The samples of an imported file, as a viewer has them.
std::vector<int> SamplesOf(const std::string& bytes, const wchar_t* auto_bit = L"ON",
                           const wchar_t* valid_bits = L"16") {
    const ScratchFolder folder;
    const ImportResult result = ImportImage({.source = folder.Write("a.img", bytes),
                                             .data_folder = folder.Path(),
                                             .display_size = L"1.00",
                                             .valid_bits = valid_bits,
                                             .auto_bit = auto_bit,
                                             .before_long_import = {}});
    REQUIRE(result.image.has_value());
    const std::optional<SampleBuffer> buffer = ReadSampleBuffer(*result.image);
    REQUIRE(buffer.has_value());
    CHECK(buffer->width == result.image->width);
    CHECK(buffer->height == result.image->height);
    return {buffer->samples.All().begin(), buffer->samples.All().end()};
}

}  // namespace

TEST_CASE("a 24-bit BMP is measured the right way up, in either orientation") {
    BmpFile file{.width = 1, .height = 2, .pixels = Bytes({1, 2, 3, 0, 4, 5, 6, 0})};
    CHECK(SamplesOf(file.Make()) == std::vector{4, 5, 6, 1, 2, 3});
    file.height = -2;
    CHECK(SamplesOf(file.Make()) == std::vector{1, 2, 3, 4, 5, 6});
    file.data_offset = 58;
    file.before_data = "gap.";
    CHECK(SamplesOf(file.Make()) == std::vector{1, 2, 3, 4, 5, 6});
}

TEST_CASE("8- and 32-bit BMPs are measured as they are shown") {
    CHECK(SamplesOf(BmpFile{.width = 1, .height = 2, .bits = 32, .pixels = Bytes({1, 2, 3, 9, 4, 5, 6, 9})}
                        .Make()) == std::vector{4, 5, 6, 1, 2, 3});
    CHECK(SamplesOf(BmpFile{.width = 2, .height = -1, .bits = 8, .data_offset = 54, .pixels = Bytes({7, 8})}
                        .Make()) == std::vector{7, 7, 7, 8, 8, 8});
}

TEST_CASE("8- and 12-bit TIFFs are measured with their own values") {
    CHECK(SamplesOf(TiffFile{.width = 2, .pixels = Bytes({5, 250})}.Make()) ==
          std::vector{5, 5, 5, 250, 250, 250});
    CHECK(SamplesOf(TiffFile{.photometric = 2, .pixels = Bytes({1, 2, 3})}.Make()) == std::vector{3, 2, 1});
    CHECK(
        SamplesOf(TiffFile{.width = 3, .bits = 12, .pixels = Bytes({0xAB, 0xC1, 0x23, 0xFF, 0xFF})}.Make()) ==
        std::vector{0xABC, 0xABC, 0xABC, 0x123, 0x123, 0x123, 0, 0, 0});
    CHECK(SamplesOf(TiffFile{.width = 2,
                             .photometric = 2,
                             .bits = 12,
                             .pixels = Bytes({0x10, 0x02, 0x00, 0x30, 0x04, 0x00, 0x50, 0x06, 0x00})}
                        .Make()) == std::vector{0x300, 0x200, 0x100, 0x600, 0x500, 0x400});
}

TEST_CASE("16-bit TIFFs are measured by their valid bits, the picture does not change") {
    const TiffFile grey{.width = 2, .bits = 16, .pixels = Words({0xFFC0, 0x0040})};
    CHECK(SamplesOf(grey.Make()) == std::vector{1023, 1023, 1023, 1, 1, 1});
    CHECK(SamplesOf(grey.Make(), L"OFF", L"16") == std::vector{0xFFC0, 0xFFC0, 0xFFC0, 0x40, 0x40, 0x40});
    const TiffFile rgb{.photometric = 2, .bits = 16, .pixels = Words({0x1000, 0x2000, 0x3000})};
    CHECK(SamplesOf(rgb.Make(), L"OFF", L"8") == std::vector{0x30, 0x20, 0x10});
}

TEST_CASE("what a short file lacks is zero") {
    CHECK(SamplesOf(BmpFile{.width = 1, .height = 2, .pixels = Bytes({1, 2})}.Make()) ==
          std::vector{0, 0, 0, 1, 2, 0});
    CHECK(SamplesOf(TiffFile{.width = 3, .pixels = Bytes({9})}.Make()) ==
          std::vector{9, 9, 9, 0, 0, 0, 0, 0, 0});
    CHECK(SamplesOf(TiffFile{.width = 2, .photometric = 2, .pixels = Bytes({1, 2})}.Make()) ==
          std::vector{0, 2, 1, 0, 0, 0});
    CHECK(SamplesOf(TiffFile{.width = 2, .bits = 16, .pixels = Words({0x1234})}.Make(), L"OFF") ==
          std::vector{0x1234, 0x1234, 0x1234, 0, 0, 0});
}

TEST_CASE("images of many blocks keep every pixel in its place") {
    std::mt19937 random(3);
    constexpr int kWidth = 333, kHeight = 777;
    std::string pixels;
    std::vector<int> expected;
    for (int i = 0; i < kWidth * kHeight; ++i) {
        const int grey = static_cast<int>(random() & 0xFF);
        pixels.push_back(static_cast<char>(grey));
        expected.insert(expected.end(), 3, grey);
    }
    CHECK((SamplesOf(TiffFile{.width = kWidth, .height = kHeight, .pixels = pixels}.Make()) == expected));
    CHECK((SamplesOf(BmpFile{.width = kWidth, .height = -kHeight, .bits = 8, .pixels = pixels}.Make()) ==
           expected));
}

TEST_CASE("one pixel is found by its column and row") {
    const ScratchFolder folder;
    const ImportResult result = ImportImage(
        {.source = folder.Write("a.bmp",
                                BmpFile{.width = 2,
                                        .height = -2,
                                        .pixels = Bytes({1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0})}
                                    .Make()),
         .data_folder = folder.Path(),
         .display_size = L"1.00",
         .valid_bits = L"16",
         .auto_bit = L"ON",
         .before_long_import = {}});
    const auto buffer = ReadSampleBuffer(result.image.value());
    REQUIRE(buffer.has_value());
    const auto pixel = buffer->Pixel(1, 1);
    CHECK(pixel[0] == 10);
    CHECK(pixel[2] == 12);
}

TEST_CASE("values beyond the depth are held at its largest value") {
    const ScratchFolder folder;
    ImageBuffer image;
    image.width = 2;
    image.height = 1;
    image.raw_data = 1;
    image.valid_bits = 10;
    image.bits_per_sample = 16;
    image.data_copy = folder.Write("a.bin", Words({1023, 1024}));
    auto buffer = ReadSampleBuffer(image);
    REQUIRE(buffer.has_value());
    CHECK(buffer->Pixel(0, 0)[0] == 1023);
    CHECK(buffer->Pixel(1, 0)[2] == 1023);
    image.colour = 1;
    image.width = 1;
    image.data_copy = folder.Write("b.bin", Words({5, 6, 0xFFFF}));
    buffer = ReadSampleBuffer(image);
    REQUIRE(buffer.has_value());
    CHECK(buffer->Pixel(0, 0)[1] == 6);
    CHECK(buffer->Pixel(0, 0)[2] == 1023);
}

TEST_CASE("a copy that is not the one that was imported fills no more than the image") {
    const ScratchFolder folder;
    ImageBuffer image;
    image.width = image.height = 2;
    image.display_copy =
        folder.Write("a.bmp", BmpFile{.width = 9, .height = 9, .pixels = std::string(270, 'x')}.Make());
    CHECK(ReadSampleBuffer(image).has_value());
    for (const int photometric : {1, 2}) {
        for (const int bits : {8, 12, 16}) {
            CAPTURE(photometric);
            CAPTURE(bits);
            image.data_copy = folder.Write("a.tiff", TiffFile{.width = 9,
                                                              .height = 9,
                                                              .photometric = photometric,
                                                              .bits = bits,
                                                              .pixels = std::string(500, 'x')}
                                                         .Make());
            const auto buffer = ReadSampleBuffer(image);
            REQUIRE(buffer.has_value());
            CHECK(buffer->samples.All().size() == 12);
        }
    }
    image.data_copy = folder.Write("b.tiff", "no TIFF any more");
    const auto buffer = ReadSampleBuffer(image);
    REQUIRE(buffer.has_value());
    CHECK(buffer->Pixel(1, 1)[0] == 0);
}

TEST_CASE("without its copy, or without memory, there is no buffer") {
    ImageBuffer image;
    image.width = image.height = 1;
    image.display_copy = "missing.bmp";
    CHECK_FALSE(ReadSampleBuffer(image).has_value());
    image.data_copy = "missing.bin";
    CHECK_FALSE(ReadSampleBuffer(image).has_value());
}
