// A disk that fills up while copies and regions are written.
#include <doctest/doctest.h>
#include <sys/resource.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/import.h"
#include "image/picture.h"
#include "image/region_save.h"
#include "tests/unit/support/child.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

// Every kind of source, 400 x 400 pixels: their display copies take 480,054 bytes, more than two blocks.
struct Source {
    const char* kind;
    std::string bytes;
};

std::vector<Source> Sources() {
    constexpr std::size_t kPixels = 400 * 400;
    const auto bmp = [](int height, std::uint16_t bits, std::size_t bytes) {
        return BmpFile{.width = 400, .height = height, .bits = bits, .pixels = std::string(bytes, 'x')}
            .Make();
    };
    const auto tiff = [](int photometric, int bits, std::size_t bytes) {
        return TiffFile{.width = 400,
                        .height = 400,
                        .photometric = photometric,
                        .bits = bits,
                        .pixels = std::string(bytes, 'x')}
            .Make();
    };
    return {{"24-bit BMP", bmp(400, 24, 3 * kPixels)},
            {"32-bit BMP", bmp(400, 32, 4 * kPixels)},
            {"32-bit BMP, top-down", bmp(-400, 32, 4 * kPixels)},
            {"8-bit BMP", bmp(400, 8, kPixels)},
            {"8-bit BMP, top-down", bmp(-400, 8, kPixels)},
            {"8-bit TIFF", tiff(1, 8, kPixels)},
            {"8-bit RGB TIFF", tiff(2, 8, 3 * kPixels)},
            {"12-bit TIFF", tiff(1, 12, kPixels * 3 / 2)},
            {"16-bit TIFF", tiff(1, 16, 2 * kPixels)},
            {"16-bit RGB TIFF", tiff(2, 16, 6 * kPixels)},
            {"32-bit BMP, cut off", bmp(400, 32, 10)},
            {"8-bit TIFF, cut off", tiff(1, 8, 10)},
            {"16-bit TIFF, cut off", tiff(1, 16, 10)}};
}

ImportResult ImportInto(const ScratchFolder& data, const std::filesystem::path& source) {
    return ImportImage({.source = source,
                        .data_folder = data.Path(),
                        .display_size = L"1.00",
                        .valid_bits = L"16",
                        .auto_bit = L"ON",
                        .before_long_import = {}});
}

}  // namespace

TEST_CASE("an import on a full disk is refused with words and leaves nothing") {
    const ScratchFolder sources;
    for (const Source& source : Sources()) {
        const auto path = sources.Write("a.img", source.bytes);
        // Full at once, behind the header, within the second block, within the last row.
        for (const std::uint64_t file_bytes : {0, 54, 300'000, 480'000}) {
            CAPTURE(source.kind);
            CAPTURE(file_bytes);
            const ScratchFolder data;
            const int status = InChildOnFullDisk(file_bytes, [&] {
                const ImportResult result = ImportInto(data, path);
                if (result.image) return 1;
                const bool data_copy_failed = result.message.line2 == L"This file is invalid or corrupt.";
                return data_copy_failed || result.message.line2 == L"Failed to Open Image File" ? 0 : 2;
            });
            CHECK(status == 0);
            CHECK(data.Names().empty());
        }
    }
}

TEST_CASE("a 16-bit TIFF says which copy the disk was too full for, cut off or not") {
    const ScratchFolder sources;
    for (const std::size_t pixel_bytes : {320'000, 10}) {
        CAPTURE(pixel_bytes);
        const TiffFile file{.width = 400, .height = 400, .bits = 16, .pixels = std::string(pixel_bytes, 'x')};
        const auto path = sources.Write("a.img", file.Make());
        const auto says_on = [&](std::uint64_t file_bytes, const wchar_t* expected) {
            const ScratchFolder data;
            return InChildOnFullDisk(file_bytes, [&] {
                const ImportResult result = ImportInto(data, path);
                return !result.image && result.message.line2 == expected ? 0 : 1;
            });
        };
        CHECK(says_on(319'999, L"This file is invalid or corrupt.") == 0);
        CHECK(says_on(320'000, L"Failed to Open Image File") == 0);
    }
}

TEST_CASE("a picture whose writing failed for a while is not kept, although it has its full length") {
    const auto set_limit = [](std::uint64_t file_bytes) {
        rlimit limit{};
        if (getrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
        limit.rlim_cur = file_bytes;
        return setrlimit(RLIMIT_FSIZE, &limit) == 0;
    };
    for (const RowOrder order : {RowOrder::top_down, RowOrder::bottom_up}) {
        const ScratchFolder folder;
        const int status = InChildOnFullDisk(RLIM_INFINITY, [&] {
            // Rows of 1,200 bytes; what is appended at a time is more than is kept back.
            auto picture = PictureWriter::Create(folder / "a.bmp", 400, 3000, order);
            const auto append_rows = [&](std::size_t rows) {
                picture->Append(400 * rows, [](std::size_t, std::span<std::byte> run) {
                    std::ranges::fill(run, std::byte{7});
                });
            };
            if (!picture) return 2;
            append_rows(1000);
            if (!set_limit(0)) return 3;
            append_rows(1000);
            if (!set_limit(RLIM_INFINITY)) return 4;
            append_rows(1000);
            return picture->Commit() ? 1 : 0;
        });
        CHECK(status == 0);
        CHECK(folder.Names().empty());
    }
}

TEST_CASE("a region saved to a full disk fails and leaves the old file") {
    const std::vector<std::uint16_t> samples(std::size_t{3} * 400 * 400, 0x55);
    for (const char* name : {"a.bmp", "a.tif"}) {
        for (const bool colour : {false, true}) {
            const std::size_t count = samples.size() / (colour ? 1 : 3);
            const RegionPixels region{.width = 400,
                                      .height = 400,
                                      .colour = colour,
                                      .bits = 8,
                                      .samples = std::span(samples).first(count)};
            // 174 bytes and more of header, then the samples.
            for (const std::uint64_t file_bytes :
                 {std::uint64_t{0}, std::uint64_t{100}, std::uint64_t{count}}) {
                CAPTURE(name);
                CAPTURE(colour);
                CAPTURE(file_bytes);
                const ScratchFolder folder;
                folder.Write(name, "old");
                CHECK(InChildOnFullDisk(file_bytes,
                                        [&] { return SaveRegion(region, folder / name) ? 1 : 0; }) == 0);
                CHECK(folder.Read(name) == "old");
                CHECK(folder.Names() == name);
            }
        }
    }
}
