#include <doctest/doctest.h>

#include <new>
#include <string>
#include <vector>

#include "app/import.h"
#include "image/read_result.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"
#include "tests/unit/support/small_files.h"
#include "viewer/sample_buffer.h"

using namespace pixora;
using namespace pixora::test;

namespace {

// Keeps everything that comes, top row first, three samples a pixel.
class Collector final : public SampleSink {
public:
    bool Begin(std::uint32_t width, std::uint32_t height, RowOrder order) override {
        ++begun;
        width_ = width;
        order_ = order;
        arrived_.clear();
        size_ = std::size_t{3} * width * height;
        return begun <= allowed_begins;
    }
    bool Take(std::span<const std::uint16_t> samples, std::size_t channels) override {
        ++taken;
        for (const std::uint16_t sample : samples)
            arrived_.insert(arrived_.end(), channels == 1 ? 3 : 1, sample);
        return !stop;
    }
    [[nodiscard]] std::vector<int> Samples() const {
        std::vector<std::uint16_t> all = arrived_;
        all.resize(size_);
        const auto row = std::ptrdiff_t{3} * width_;
        if (order_ == RowOrder::top_down) return {all.begin(), all.end()};
        std::vector<int> turned;
        for (auto end = all.end(); end != all.begin(); end -= row)
            turned.insert(turned.end(), end - row, end);
        return turned;
    }

    int begun = 0, taken = 0, allowed_begins = 100;
    bool stop = false;

private:
    std::uint32_t width_ = 0;
    RowOrder order_ = RowOrder::top_down;
    std::size_t size_ = 0;
    std::vector<std::uint16_t> arrived_;
};

}  // namespace

TEST_CASE("reading an image gives the record and the samples that an import keeps in its copies") {
    const ScratchFolder folder;
    for (const std::string& bytes : SmallFiles()) {
        for (const wchar_t* auto_bit : {L"ON", L"OFF"}) {
            CAPTURE(bytes.size());
            const auto path = folder.Write("a.img", bytes);
            const ImportResult imported = ImportInto(folder, path, auto_bit);
            Collector sink;
            const ImportResult read = ReadImage({path, L"12", auto_bit}, &sink);
            const ImportResult facts = ReadImage({path, L"12", auto_bit}, nullptr);
            CHECK(read.code == imported.code);
            CHECK(facts.code == imported.code);
            CHECK(read.reason == imported.reason);
            REQUIRE(read.image.has_value() == imported.image.has_value());
            REQUIRE(facts.image.has_value() == imported.image.has_value());
            if (!imported.image) continue;
            const ImageBuffer& expected = *imported.image;
            for (const ImageBuffer& image : {*read.image, *facts.image}) {
                CHECK(image.file_kind == expected.file_kind);
                CHECK(image.data_kind == expected.data_kind);
                CHECK(image.width == expected.width);
                CHECK(image.height == expected.height);
                CHECK(image.colour == expected.colour);
                CHECK(image.pixel_format == expected.pixel_format);
                CHECK(image.bits_per_sample == expected.bits_per_sample);
                CHECK(image.stored_bits == expected.stored_bits);
                CHECK(image.valid_bits == expected.valid_bits);
                CHECK(image.raw_data == expected.raw_data);
                CHECK(image.bmp_bit_count == expected.bmp_bit_count);
                CHECK(image.source_path == expected.source_path);
                CHECK(image.file_name == L"a.img");
            }
            const auto buffer = ReadSampleBuffer(expected);
            REQUIRE(buffer.has_value());
            CHECK(sink.Samples() ==
                  std::vector<int>(buffer->samples.All().begin(), buffer->samples.All().end()));
            DeleteTemporaryCopies(folder.Path());
            CHECK(folder.Names() == "a.img");
        }
    }
}

TEST_CASE("a sink hears of a wrong guess of the valid bits and gets all samples again") {
    const ScratchFolder folder;
    std::string late(std::size_t{2} * 300 * 300, '\0');
    late[late.size() - 2] = 1;
    const auto path =
        folder.Write("a.tif", TiffFile{.width = 300, .height = 300, .bits = 16, .pixels = late}.Make());
    Collector sink;
    REQUIRE(ReadImage({path, L"", L"ON"}, &sink).image->valid_bits == 16);
    CHECK(sink.begun == 2);
    CHECK(sink.Samples().back() == 1);
}

TEST_CASE("a sink ends the reading") {
    const ScratchFolder folder;
    for (const std::string& bytes :
         {SmallFiles()[0], SmallFiles()[1], SmallFiles()[2], SmallFiles()[8], SmallFiles()[10]}) {
        const auto path = folder.Write("a.img", bytes);
        Collector at_once;
        at_once.allowed_begins = 0;
        const ImportResult refused = ReadImage({path, L"", L"ON"}, &at_once);
        CHECK_FALSE(refused.image.has_value());
        CHECK(refused.code == static_cast<int>(ReadResult::write_failed));
        CHECK(at_once.taken == 0);
        Collector later;
        later.stop = true;
        CHECK(ReadImage({path, L"", L"ON"}, &later).code == static_cast<int>(ReadResult::write_failed));
        CHECK(later.taken == 1);
    }
}

TEST_CASE("an image whose samples do not fit into memory is refused like one that promises too many") {
    struct Poor final : SampleSink {
        bool Begin(std::uint32_t, std::uint32_t, RowOrder) override { throw std::bad_alloc(); }
        bool Take(std::span<const std::uint16_t>, std::size_t) override { return true; }
    };
    const ScratchFolder folder;
    const auto check = [&](const std::string& bytes, const std::wstring& reason) {
        const auto path = folder.Write("a.img", bytes);
        Poor sink;
        const ImportResult refused = ReadImage({path, L"", L"ON"}, &sink);
        CHECK_FALSE(refused.image.has_value());
        CHECK(refused.code == 1);
        CHECK(refused.reason == reason);
        CHECK(refused.message.line2 == reason);
        CHECK(RefusedForMemory(path).code == 1);
        CHECK(RefusedForMemory(path).reason == reason);
    };
    check(BmpFile{.pixels = std::string(4, '\1')}.Make(), L"This image file is invalid.");
    check(TiffFile{.pixels = Bytes({5})}.Make(), L"This image file is invalid.");
    check(TiffFile{.bits = 12, .pixels = Bytes({5, 6, 7})}.Make(), L"This image file is invalid.");
    check(TiffFile{.bits = 16, .pixels = Words({5})}.Make(), L"This file is invalid or corrupt.");
}

TEST_CASE("copies are written under names of the caller's, a data copy for 16 bits alone") {
    const ScratchFolder folder;
    const auto source =
        folder.Write("a.tif", TiffFile{.width = 2, .bits = 16, .pixels = Words({0x1230, 0x4560})}.Make());
    REQUIRE(CopyImage({source, L"", L"ON"}, folder / "b.bmp", folder / "b.bin").image.has_value());
    CHECK(folder.Read("b.bin") == Words({0x123, 0x456}));
    CHECK(folder.Read("b.bmp").size() == 54 + 8);
    CHECK(folder.Read("b.bmp").substr(54, 6) == Bytes({0x12, 0x12, 0x12, 0x45, 0x45, 0x45}));
    const std::string display = folder.Read("b.bmp");
    REQUIRE(CopyImage({source, L"", L"ON"}, folder / "c.bmp", {}).image.has_value());
    CHECK(folder.Read("c.bmp") == display);
    const auto eight = folder.Write("e.tif", TiffFile{.pixels = Bytes({5})}.Make());
    REQUIRE(CopyImage({eight, L"", L"ON"}, folder / "d.bmp", folder / "d.bin").image.has_value());
    CHECK(folder.Names() == "a.tif b.bin b.bmp c.bmp d.bmp e.tif");
}

TEST_CASE("a copy that cannot be written leaves nothing and is told from a refusal") {
    const ScratchFolder folder;
    const auto source = folder.Write("a.tif", TiffFile{.bits = 16, .pixels = Words({0x1230})}.Make());
    const SourceRequest request{source, L"", L"ON"};
    const ImportResult no_display = CopyImage(request, folder.Path() / "no" / "b", folder / "b.bin");
    CHECK(no_display.code == 100);
    CHECK_FALSE(no_display.data_copy_failed);
    const ImportResult no_data = CopyImage(request, folder / "b.bmp", folder.Path() / "no" / "b");
    CHECK(no_data.code == 100);
    CHECK(no_data.data_copy_failed);
    const auto damaged = folder.Write("b.tif", TiffFile{.bits = 16}.Make());
    const ImportResult refused = CopyImage({damaged, L"", L"ON"}, folder / "b.bmp", folder / "b.bin");
    CHECK(refused.code == 1);
    CHECK_FALSE(refused.data_copy_failed);
    CHECK(folder.Names() == "a.tif b.tif");
}

TEST_CASE("every refusal has its code and its reason in one line") {
    const ScratchFolder folder;
    const auto refusal = [&](const std::string& bytes) {
        const ImportResult result = ReadImage({folder.Write("a", bytes), L"", L"ON"}, nullptr);
        return std::to_wstring(result.code) + L" " + result.reason;
    };
    CHECK(refusal("no image") == L"15 This is an unsupported or invalid image file.");
    CHECK(refusal("BM") == L"1 This image file is invalid.");
    CHECK(refusal(BmpFile{.bits = 16}.Make()) == L"15 This file is not supported.");
    CHECK(refusal(BmpFile{.bits = 1}.Make()) == L"4 1-Bit BMP file is not supported.");
    CHECK(refusal(TiffFile{.bits = 10}.Make()) ==
          L"15 This TIFF file is 10-bit. Only 8, 12, and 16-bit formats are supported.");
    CHECK(refusal(TiffFile{.bits = 16, .compression = 5}.Make()) == L"1 This file is invalid or corrupt.");
    const ImportResult missing = ReadImage({folder / "missing", L"", L"ON"}, nullptr);
    CHECK(missing.code == 1);
    CHECK(missing.reason == L"Failed to Open Image File");
}

TEST_CASE("a strip table too large to be fetched is told") {
    const ScratchFolder folder;
    TiffFile file{.pixels = Bytes({5})};
    CHECK_FALSE(ReadImage({folder.Write("a", file.Make()), L"", L"ON"}, nullptr).strips_too_many);
    file.more = {{273, 4, 3000, 0}};
    const auto path = folder.Write("a", file.Make());
    CHECK(ReadImage({path, L"", L"ON"}, nullptr).strips_too_many);
    file.more = {{273, 3, 4096, 0}};  // 8,192 bytes are fetched, if they are there
    CHECK_FALSE(ReadImage({folder.Write("a", file.Make()), L"", L"ON"}, nullptr).strips_too_many);
}
