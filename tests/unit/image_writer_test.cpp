#include "image/image_writer.h"

#include <doctest/doctest.h>

#include <vector>

#include "image/region_save.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

using Samples = std::vector<std::uint16_t>;

std::string Written(bool (*write)(const std::filesystem::path&, std::span<const std::uint16_t>,
                                  const TiffImage&),
                    const Samples& samples, const TiffImage& image) {
    const ScratchFolder folder;
    CHECK(write(folder / "a.tif", samples, image));
    CHECK(folder.Names() == "a.tif");
    return folder.Read("a.tif");
}

// The file that a region is saved as; "(none)" when the save failed.
std::string Saved(const Samples& samples, bool colour, std::uint32_t bits, const char* name) {
    const ScratchFolder folder;
    const auto pixels = static_cast<std::uint32_t>(samples.size() / (colour ? 3 : 1));
    const bool saved = SaveRegion(
        {.width = pixels, .height = 1, .colour = colour, .bits = bits, .samples = samples}, folder / name);
    CHECK(saved == (folder.Read(name) != "(none)"));
    return folder.Read(name);
}

}  // namespace

TEST_CASE("a 24-bit BMP holds the low bytes bottom-up") {
    const ScratchFolder folder;
    CHECK(WriteBmp24(folder / "a.bmp", Samples{1, 2, 0x103, 4, 5, 6}, 1, 2));
    CHECK(folder.Read("a.bmp").substr(54) == Bytes({4, 5, 6, 0, 1, 2, 3, 0}));
    CHECK(folder.Read("a.bmp").substr(0, 6) == "BM" + Bytes({62, 0, 0, 0}));
    CHECK(WriteBmp24(folder / "b.bmp", Samples(12, 7), 4, 1));
    CHECK(folder.Read("b.bmp").size() == 54 + 12);
}

TEST_CASE("an 8-bit BMP has a grey palette and rows padded to four bytes") {
    const ScratchFolder folder;
    CHECK(WriteBmp8(folder / "a.bmp", Samples{1, 2, 3, 4, 5, 0x1FF}, 3, 2));
    const std::string bytes = folder.Read("a.bmp");
    // clang-format off
    CHECK(bytes.substr(0, 54) == Bytes({'B', 'M', 0x3E, 0x04, 0, 0, 0, 0, 0, 0, 0x36, 0x04, 0, 0,
                                        40, 0, 0, 0, 3, 0, 0, 0, 2, 0, 0, 0, 1, 0, 8, 0, 0, 0, 0, 0,
                                        8, 0, 0, 0, 0xC4, 0x0E, 0, 0, 0xC4, 0x0E, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}));
    // clang-format on
    CHECK(bytes.substr(54, 8) == Bytes({0, 0, 0, 0, 1, 1, 1, 0}));
    CHECK(bytes.substr(1074, 4) == Bytes({255, 255, 255, 0}));
    CHECK(bytes.substr(1078) == Bytes({4, 5, 0xFF, 0, 1, 2, 3, 0}));
}

TEST_CASE("a grey 16-bit TIFF, byte for byte") {
    // clang-format off
    CHECK(Written(WriteTiff16, {0x1234, 0x00FF}, {2, 1, false}) == Bytes({
        'I', 'I', 42, 0, 8, 0, 0, 0, 12, 0,
        0x00, 1, 4, 0, 1, 0, 0, 0, 2, 0, 0, 0,
        0x01, 1, 4, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0x02, 1, 3, 0, 1, 0, 0, 0, 16, 0, 0, 0,
        0x03, 1, 3, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0x06, 1, 3, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0x11, 1, 4, 0, 1, 0, 0, 0, 174, 0, 0, 0,
        0x15, 1, 3, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0x16, 1, 4, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0x17, 1, 4, 0, 1, 0, 0, 0, 4, 0, 0, 0,
        0x1A, 1, 5, 0, 1, 0, 0, 0, 158, 0, 0, 0,
        0x1B, 1, 5, 0, 1, 0, 0, 0, 166, 0, 0, 0,
        0x28, 1, 3, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0, 0, 0, 0,
        1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0,
        0x34, 0x12, 0xFF, 0x00}));
    // clang-format on
}

TEST_CASE("an RGB TIFF states its bits three times and stores red, green, blue") {
    const std::string bytes = Written(WriteTiff8, {1, 2, 3, 4, 5, 0x106}, {2, 1, true});
    CHECK(bytes.substr(34, 12) == Bytes({0x02, 1, 3, 0, 3, 0, 0, 0, 158, 0, 0, 0}));
    CHECK(bytes.substr(58, 12) == Bytes({0x06, 1, 3, 0, 1, 0, 0, 0, 2, 0, 0, 0}));
    CHECK(bytes.substr(70, 12) == Bytes({0x11, 1, 4, 0, 1, 0, 0, 0, 180, 0, 0, 0}));
    CHECK(bytes.substr(82, 12) == Bytes({0x15, 1, 3, 0, 1, 0, 0, 0, 3, 0, 0, 0}));
    CHECK(bytes.substr(106, 12) == Bytes({0x17, 1, 4, 0, 1, 0, 0, 0, 6, 0, 0, 0}));
    CHECK(bytes.substr(118, 12) == Bytes({0x1A, 1, 5, 0, 1, 0, 0, 0, 164, 0, 0, 0}));
    CHECK(bytes.substr(130, 12) == Bytes({0x1B, 1, 5, 0, 1, 0, 0, 0, 172, 0, 0, 0}));
    CHECK(bytes.substr(158, 6) == Bytes({8, 0, 8, 0, 8, 0}));
    CHECK(bytes.substr(180) == Bytes({3, 2, 1, 6, 5, 4}));
    CHECK(Written(WriteTiff16, {1, 2, 3}, {1, 1, true}).substr(180) == Words({3, 2, 1}));
}

TEST_CASE("the data size of a 12-bit TIFF counts pixel pairs") {
    const auto size = [](const TiffImage& image, int bits) {
        const auto header = TiffFileHeader(image, bits);
        return Little32(header.Bytes(), 114);
    };
    CHECK(size({3, 3, false}, 12) == 5);
    CHECK(size({4, 2, true}, 12) == 4);
    CHECK(size({3, 3, false}, 8) == 9);
    CHECK(size({3, 3, true}, 8) == 27);
    CHECK(size({3, 3, false}, 16) == 18);
    CHECK(size({3, 3, true}, 16) == 54);
}

TEST_CASE("a large TIFF is written whole, block after block") {
    Samples samples(std::size_t{3} * 500 * 200);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<std::uint16_t>(i * 7919);
    const std::string bytes = Written(WriteTiff16, samples, {500, 200, true});
    REQUIRE(bytes.size() == 180 + 2 * samples.size());
    bool equal = true;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t swapped = i / 3 * 3 + (2 - i % 3);
        const auto bytes_of = std::as_bytes(std::span(bytes));
        equal = equal && Little16(bytes_of, 180 + 2 * i) == samples[swapped];
    }
    CHECK(equal);
}

TEST_CASE("a file that cannot be created makes every writer fail and leaves nothing") {
    const ScratchFolder folder;
    const auto nowhere = folder / "missing/a.tif";
    CHECK_FALSE(WriteBmp24(nowhere, Samples{1, 2, 3}, 1, 1));
    CHECK_FALSE(WriteBmp8(nowhere, Samples{1}, 1, 1));
    CHECK_FALSE(WriteTiff16(nowhere, Samples{1}, {1, 1, false}));
    CHECK_FALSE(WriteTiff8(nowhere, Samples{1}, {1, 1, false}));
    folder.Write("old.bmp", "old");
    std::filesystem::permissions(folder / "old.bmp", std::filesystem::perms::owner_read);
    CHECK_FALSE(WriteBmp8(folder / "old.bmp", Samples{1}, 1, 1));
    CHECK(folder.Read("old.bmp") == "old");
    CHECK(folder.Names() == "old.bmp");
}

TEST_CASE("the extension chooses TIFF, in any case") {
    for (const wchar_t* path : {L"a.tif", L"a.TIFF", L"C:\\x\\a.b.TiF"}) CHECK(ChoosesTiff(path));
    for (const wchar_t* path : {L"a.bmp", L"a", L"", L"tif", L"a.tif.bmp", L"a.tifx", L"a.tif "})
        CHECK_FALSE(ChoosesTiff(path));
}

TEST_CASE("a colour region is saved by depth and kind") {
    const Samples samples{0x0301, 0x0FFF, 0xFFFF};
    const auto pixel = [&](std::uint32_t bits) { return Saved(samples, true, bits, "a.bmp").substr(54); };
    CHECK(pixel(8) == Bytes({0x01, 0xFF, 0xFF, 0}));
    CHECK(pixel(10) == Bytes({0xC0, 0xFF, 0xFF, 0}));
    CHECK(pixel(12) == Bytes({0x30, 0xFF, 0xFF, 0}));
    CHECK(pixel(14) == Bytes({0x0C, 0x3F, 0xFF, 0}));
    CHECK(pixel(16) == Bytes({0x03, 0x0F, 0xFF, 0}));
    CHECK(Saved(samples, true, 8, "a.tif").substr(180) == Bytes({0xFF, 0xFF, 0x01}));
    for (const std::uint32_t bits : {10u, 12u, 14u, 16u})
        CHECK(Saved(samples, true, bits, "a.tif").substr(180) == Words({0xFFFF, 0x0FFF, 0x0301}));
}

TEST_CASE("a grey region is saved by depth and kind; 14 and 16 bits as BMP fail") {
    const Samples samples{0x0301, 0x0FFF};
    CHECK(Saved(samples, false, 8, "a.bmp").substr(1078) == Bytes({0x01, 0xFF, 0, 0}));
    CHECK(Saved(samples, false, 10, "a.bmp").substr(1078) == Bytes({0xC0, 0xFF, 0, 0}));
    CHECK(Saved(samples, false, 12, "a.bmp").substr(1078) == Bytes({0x30, 0xFF, 0, 0}));
    CHECK(Saved(samples, false, 14, "a.bmp") == "(none)");
    CHECK(Saved(samples, false, 16, "a.bmp") == "(none)");
    CHECK(Saved(samples, false, 8, "a.tif").substr(174) == Bytes({0x01, 0xFF}));
    for (const std::uint32_t bits : {10u, 12u, 14u, 16u})
        CHECK(Saved(samples, false, bits, "a.tiff").substr(174) == Words({0x0301, 0x0FFF}));
}

TEST_CASE("other depths and empty regions are not saved") {
    for (const std::uint32_t bits : {0u, 1u, 9u, 11u, 15u, 17u, 32u})
        for (const char* name : {"a.bmp", "a.tif"})
            for (const bool colour : {false, true}) CHECK(Saved({1, 2, 3}, colour, bits, name) == "(none)");
    CHECK(Saved({}, false, 8, "a.bmp") == "(none)");
}

TEST_CASE("samples that are not as many as the region's size says are not saved") {
    const ScratchFolder folder;
    const Samples samples(12, 7);
    RegionPixels region{.width = 2, .height = 2, .colour = true, .samples = samples};
    CHECK(SaveRegion(region, folder / "a.tif"));
    region.height = 3;
    for (const char* name : {"b.bmp", "b.tif"}) CHECK_FALSE(SaveRegion(region, folder / name));
    region.height = 2;
    region.colour = false;
    for (const char* name : {"b.bmp", "b.tif"}) CHECK_FALSE(SaveRegion(region, folder / name));
    CHECK(folder.Names() == "a.tif");
}

TEST_CASE("an image file has less than 4 GiB, its header included") {
    CHECK(FitsImageFile(54, 3, 1));
    CHECK(FitsImageFile(54, 0, 4294967295));
    CHECK(FitsImageFile(1078, 65536, 65535));
    CHECK_FALSE(FitsImageFile(1078, 65536, 65536));
    CHECK(FitsImageFile(255, 4294967040, 1));
    CHECK_FALSE(FitsImageFile(256, 4294967040, 1));
    CHECK_FALSE(FitsImageFile(180, 393210, 10923));
    CHECK(FitsImageFile(180, 393210, 10922));
    CHECK_FALSE(FitsImageFile(54, 12884901888, 4294967295));
}

TEST_CASE("nothing is written of an image file that would have 4 GiB or more") {
    const ScratchFolder folder;
    CHECK_FALSE(WriteTiff16(folder / "a.tif", {}, {.width = 65535, .height = 10923, .colour = true}));
    CHECK_FALSE(WriteTiff8(folder / "a.tif", {}, {.width = 65535, .height = 21846, .colour = true}));
    CHECK_FALSE(WriteTiff16(folder / "a.tif", {}, {.width = 65535, .height = 32769, .colour = false}));
    CHECK_FALSE(WriteBmp24(folder / "a.bmp", {}, 65535, 21846));
    CHECK_FALSE(WriteBmp8(folder / "a.bmp", {}, 65536, 65536));
    CHECK(folder.Names().empty());
}
