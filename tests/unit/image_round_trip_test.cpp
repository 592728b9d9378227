// What is saved opens again with the same samples.
#include <doctest/doctest.h>

#include <vector>

#include "app/import.h"
#include "image/region_save.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"
#include "viewer/sample_buffer.h"

using namespace pixora;
using namespace pixora::test;

namespace {

using Samples = std::vector<std::uint16_t>;

struct Reopened {
    ImageBuffer image;
    Samples samples;      // three a pixel
    std::string picture;  // the rows of the display copy
};

// Saves a region of 3 x 2 pixels and opens the file, all bits of a 16-bit sample being valid.
Reopened SaveAndOpen(const Samples& samples, bool colour, std::uint32_t bits, const char* name) {
    const ScratchFolder folder;
    REQUIRE(SaveRegion({.width = 3, .height = 2, .colour = colour, .bits = bits, .samples = samples},
                       folder / name));
    const ImportResult result = ImportImage({.source = folder / name,
                                             .data_folder = folder.Path(),
                                             .display_size = L"1.00",
                                             .valid_bits = L"16",
                                             .auto_bit = L"OFF",
                                             .before_long_import = {}});
    REQUIRE(result.image.has_value());
    const auto buffer = ReadSampleBuffer(*result.image);
    REQUIRE(buffer.has_value());
    CHECK(buffer->width == 3);
    CHECK(buffer->height == 2);
    return {*result.image,
            {buffer->samples.All().begin(), buffer->samples.All().end()},
            folder.Read("import_img_00.bmp").substr(54)};
}

// Blue, green, red of six pixels, all different, in the low bits.
const Samples kColour = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
const Samples kGrey = {10, 20, 30, 40, 50, 60};
const Samples kGreyThrice = {10, 10, 10, 20, 20, 20, 30, 30, 30, 40, 40, 40, 50, 50, 50, 60, 60, 60};

Samples Times(const Samples& samples, int factor) {
    Samples product;
    for (const std::uint16_t sample : samples) product.push_back(static_cast<std::uint16_t>(sample * factor));
    return product;
}

}  // namespace

TEST_CASE("a colour region of 8 bits reopens with its samples, from both kinds of file") {
    const std::string picture = Bytes({10, 11, 12, 13, 14, 15, 16, 17, 18, 0, 0, 0,  //
                                       1,  2,  3,  4,  5,  6,  7,  8,  9,  0, 0, 0});
    for (const char* name : {"a.bmp", "a.tif"}) {
        CAPTURE(name);
        const Reopened reopened = SaveAndOpen(kColour, true, 8, name);
        CHECK(reopened.image.pixel_format == L"RGB8");
        CHECK(reopened.samples == kColour);
        CHECK(reopened.picture == picture);
    }
}

TEST_CASE("a grey region of 8 bits reopens with its samples, from both kinds of file") {
    for (const char* name : {"a.bmp", "a.tiff"}) {
        CAPTURE(name);
        const Reopened reopened = SaveAndOpen(kGrey, false, 8, name);
        CHECK(reopened.image.pixel_format == L"Mono8");
        CHECK(reopened.samples == kGreyThrice);
        CHECK(reopened.picture == Bytes({40, 40, 40, 50, 50, 50, 60, 60, 60, 0, 0, 0,  //
                                         10, 10, 10, 20, 20, 20, 30, 30, 30, 0, 0, 0}));
    }
}

TEST_CASE("a region of more than 8 bits reopens from a TIFF with its samples") {
    for (const std::uint32_t bits : {10u, 12u, 14u, 16u}) {
        CAPTURE(bits);
        const int factor = 1 << (bits - 6);  // the largest of the values fills the bits
        const Reopened colour = SaveAndOpen(Times(kColour, factor), true, bits, "a.tif");
        CHECK(colour.image.pixel_format == L"RGB16");
        CHECK(colour.samples == Times(kColour, factor));
        const Reopened grey = SaveAndOpen(Times(kGrey, factor), false, bits, "a.tif");
        CHECK(grey.image.pixel_format == L"Mono16");
        CHECK(grey.samples == Times(kGreyThrice, factor));
    }
}

TEST_CASE("a region of more than 8 bits reopens from a BMP with its upper eight bits") {
    for (const std::uint32_t bits : {10u, 12u, 14u, 16u}) {
        CAPTURE(bits);
        const int factor = 1 << (bits - 8);
        CHECK(SaveAndOpen(Times(kColour, factor), true, bits, "a.bmp").samples == kColour);
        if (bits <= 12) CHECK(SaveAndOpen(Times(kGrey, factor), false, bits, "a.bmp").samples == kGreyThrice);
    }
}
