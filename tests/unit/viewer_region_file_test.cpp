#include "viewer/region_file.h"

#include <doctest/doctest.h>

#include <utility>

#include "support/scratch_folder.h"
#include "support/viewer_states.h"

using namespace pixora;

namespace {

using Samples = std::vector<std::uint16_t>;

std::wstring NameOf(const wchar_t* source, ImageFileKind kind = ImageFileKind::bmp) {
    ImageBuffer image;
    image.file_name = source;
    image.file_kind = kind;
    return RegionFileName(image, {10, 20, 30, 40});
}

// 4 x 3 pixels; blue is 100 and the row and the column, green 1000 more, red 2000 more. Grey has the blue in
// all three.
ViewerState WithSamples(bool colour) {
    ViewerState state = test::NewViewer(4, 3);
    state.image.colour = colour ? 1 : 0;
    state.samples.width = 4;
    state.samples.height = 3;
    std::optional<ZeroedArray<std::uint16_t>> samples = ZeroedArray<std::uint16_t>::Make(4 * 3 * 3);
    REQUIRE(samples);
    state.samples.samples = *std::move(samples);
    for (int i = 0; i < 4 * 3 * 3; ++i)
        state.samples.samples.All()[static_cast<std::size_t>(i)] =
            static_cast<std::uint16_t>(100 + 10 * (i / 12) + i / 3 % 4 + (colour ? i % 3 * 1000 : 0));
    return state;
}

CutRegion CutOf(const ViewerState& state) {
    return CutOutRegion(state.samples, state.image.colour != 0, EffectiveBits(state.image), state.region);
}

}  // namespace

TEST_CASE("a region's file is named after its source and its edges") {
    CHECK(NameOf(L"a.bmp") == L"a_10.20_30.40.bmp");
    CHECK(NameOf(L"a.b.bmp") == L"a.b_10.20_30.40.bmp");
    CHECK(NameOf(L"a.tif", ImageFileKind::tiff_little) == L"a_10.20_30.40.tif");
    CHECK(NameOf(L"a.TIFF", ImageFileKind::tiff_big) == L"a_10.20_30.40.tif");
}

TEST_CASE("a name without an extension is kept whole") {
    CHECK(NameOf(L"photo") == L"photo_10.20_30.40.bmp");
    CHECK(NameOf(L".bmp") == L".bmp_10.20_30.40.bmp");
    CHECK(NameOf(L".a.bmp") == L".a_10.20_30.40.bmp");
    CHECK(NameOf(L"a.") == L"a_10.20_30.40.bmp");
}

TEST_CASE("the name has the edges as they are stored, outside the image too") {
    ImageBuffer image;
    image.file_name = L"a.bmp";
    CHECK(RegionFileName(image, {-1, 79, 100, 31}) == L"a_-1.79_100.31.bmp");
}

TEST_CASE("a region is cut out row by row, one sample a grey pixel, three a colour one") {
    ViewerState grey = WithSamples(false);
    grey.region = {1, 1, 2, 2};
    const CutRegion one = CutOf(grey);
    CHECK(one.width == 2);
    CHECK(one.height == 2);
    CHECK_FALSE(one.colour);
    CHECK(one.samples == Samples{111, 112, 121, 122});
    ViewerState colour = WithSamples(true);
    colour.region = {3, 0, 3, 1};
    const CutRegion three = CutOf(colour);
    CHECK(three.colour);
    CHECK(three.width == 1);
    CHECK(three.height == 2);
    CHECK(three.samples == Samples{103, 1103, 2103, 113, 1113, 2113});
    CHECK(three.Pixels().samples.size() == 6);
}

TEST_CASE("what lies outside the image is left out") {
    ViewerState state = WithSamples(false);
    state.region = {-1, 2, 0, 9};
    CHECK(CutOf(state).samples == Samples{120});
    for (const Region& region : {Region{0, 2, 3, 1}, Region{4, 0, 9, 2}, Region{-5, 0, -1, 2}}) {
        state.region = region;
        const CutRegion cut = CutOf(state);
        CHECK(cut.width == 0);
        CHECK(cut.height == 0);
        CHECK(cut.samples.empty());
    }
}

TEST_CASE("a region has the depth that measurements work with") {
    ViewerState state = WithSamples(false);
    CHECK(CutOf(state).bits == 8);
    state.image.bits_per_sample = 16;
    state.image.valid_bits = 12;
    state.image.raw_data = 1;
    CHECK(CutOf(state).bits == 12);
}

TEST_CASE("the proposed name stands in the folder where regions were saved last") {
    ImageBuffer image;
    image.file_name = L"a.tif";
    image.file_kind = ImageFileKind::tiff_big;
    CHECK(ProposedRegionPath(image, {1, 2, 3, 4}, L"C:\\pics\\") == L"C:\\pics\\a_1.2_3.4.tif");
    CHECK(ProposedRegionPath(image, {1, 2, 3, 4}, L"C:\\pics") == L"C:\\pics\\a_1.2_3.4.tif");
    CHECK(ProposedRegionPath(image, {1, 2, 3, 4}, L"") == L"a_1.2_3.4.tif");
    CHECK(ProposedRegionPath(image, {1, 2, 3, 4}, L"IMG_SIZE=1\nCAP_STYLE=FULL\n") == L"a_1.2_3.4.tif");
    CHECK(RegionFileExtension(image) == L"tif");
    image.file_kind = ImageFileKind::bmp;
    CHECK(RegionFileExtension(image) == L"bmp");
}

TEST_CASE("a region is saved as any file, as a BMP or as a TIFF") {
    CHECK(kRegionFilter ==
          L"All Files(*.*)|*.*|BMP Files(*.bmp)|*.bmp|TIFF Files(*.tif;*.tiff)|*.tif;*.tiff||");
}

TEST_CASE("the folder of a saved region ends with its backslash") {
    CHECK(SaveFolderOf(L"C:\\pics\\new\\a.bmp") == L"C:\\pics\\new\\");
    CHECK(SaveFolderOf(L"C:\\a.bmp") == L"C:\\");
    CHECK(SaveFolderOf(L"a.bmp") == L"");
}

TEST_CASE("a region that cannot be saved is told with the short name of its file") {
    CHECK(RegionNotSaved(L"C:\\pics\\a.bmp") ==
          Message{L" : Error", L"File: a.bmp", L"Failed to save the image file.", L""});
    CHECK(RegionNotSaved(L"C:\\p\\0123456789012345678901234567890123456789.bmp").line1 ==
          L"File: 01234.....5678901234567890123456789.bmp");
}

TEST_CASE("a region is saved as its file's extension says") {
    const test::ScratchFolder folder;
    ViewerState state = WithSamples(false);
    CHECK(SaveRegionOf(state, {1, 1, 2, 2}, folder / "a.bmp"));
    CHECK(folder.Read("a.bmp").substr(1078) == std::string("\x79\x7a\0\0\x6f\x70\0\0", 8));
    CHECK(SaveRegionOf(state, {1, 1, 2, 2}, folder / "a.TIF"));
    CHECK(folder.Read("a.TIF").substr(174) == "\x6f\x70\x79\x7a");
    CHECK(folder.Names() == "a.TIF a.bmp");
}

TEST_CASE("a region that cannot be saved leaves an earlier file of that name as it was") {
    const test::ScratchFolder folder;
    folder.Write("a.bmp", "mine");
    ViewerState state = WithSamples(false);
    CHECK_FALSE(SaveRegionOf(state, {4, 0, 9, 2}, folder / "a.bmp"));
    state.image.bits_per_sample = state.image.valid_bits = 16;
    state.image.raw_data = 1;
    CHECK_FALSE(SaveRegionOf(state, {1, 1, 2, 2}, folder / "a.bmp"));
    CHECK_FALSE(SaveRegionOf(state, {1, 1, 2, 2}, folder / "b.bmp"));
    CHECK(folder.Read("a.bmp") == "mine");
    CHECK(folder.Names() == "a.bmp");
}
