// Every kind of image file that the program reads.
#include <doctest/doctest.h>

#include <algorithm>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

/// A sample, and what follows its name in the caption.
struct Expected {
    const wchar_t *name, *bits;
};
constexpr Expected kSamples[] = {
    {L"bmp24-colour.bmp", L""},
    {L"bmp24-grey.bmp", L""},
    {L"bmp24-top-down.bmp", L""},
    {L"bmp32-colour.bmp", L""},
    {L"bmp8-grey.bmp", L""},
    {L"bmp8-palette.bmp", L""},
    {L"tiff12-mono.tif", L"  (12bit)"},
    {L"tiff12-rgb.tif", L"  (12bit)"},
    {L"tiff16-mono-big-endian.tif", L"   (16bit"},
    {L"tiff16-mono-upper10.tif", L"   (Upper 10bit / 16bit)"},
    {L"tiff16-mono-upper12.tif", L"   (Upper 12bit / 16bit)"},
    {L"tiff16-mono-upper14.tif", L"   (Upper 14bit / 16bit)"},
    {L"tiff16-mono.tif", L"   (16bit"},
    {L"tiff16-rgb-upper12.tif", L"   (Upper 12bit / 16bit)"},
    {L"tiff16-rgb.tif", L"   (16bit"},
    {L"tiff8-mono.tif", L"  (8bit)"},
    {L"tiff8-rgb-big-endian.tif", L"  (8bit)"},
    {L"tiff8-rgb.tif", L"  (8bit)"},
};

}  // namespace

TEST_CASE("every sample opens with its caption and its picture") {
    Program program;
    for (const Expected& sample : kSamples) {
        CAPTURE(std::wstring(sample.name));
        const Window viewer = program.Open(Sample(sample.name));
        CHECK(viewer.Text() == std::wstring(L"[1 ]  (100%) File Name : ") + sample.name + sample.bits);
        CHECK(DifferenceEnlarged(program.See(viewer), ReadImage(Sample(sample.name)), 1) == "");
        program.Close(viewer);
    }
    program.Exit();
}

TEST_CASE("the samples that are tested are all there are") {
    std::vector<std::wstring> tested, present;
    for (const Expected& sample : kSamples) tested.push_back(sample.name);
    for (const auto& entry : std::filesystem::directory_iterator(SamplesFolder())) {
        const std::wstring extension = entry.path().extension().wstring();
        if (extension == L".bmp" || extension == L".tif" || extension == L".tiff")
            present.push_back(entry.path().filename().wstring());
    }
    std::sort(present.begin(), present.end());
    CHECK(present == tested);
}

TEST_CASE("with automatic detection off the setting tells the valid bits, the picture stays the same") {
    struct Setting {
        const wchar_t *valid_bits, *bits;
    };
    const Setting settings[] = {
        {L"16", L"   (16bit"}, {L"14", L"   (Upper 14bit / 16bit)"}, {L"8", L"   (Upper 8bit / 16bit)"}};
    for (const Setting& setting : settings) {
        Program program({.settings = {{L"AUTO_BIT", L"OFF"}, {L"VALID_BITS", setting.valid_bits}}});
        const Window viewer = program.Open(Sample(L"tiff16-rgb.tif"));
        CHECK(viewer.Text() == std::wstring(L"[1 ]  (100%) File Name : tiff16-rgb.tif") + setting.bits);
        CHECK(DifferenceEnlarged(program.See(viewer), ReadImage(Sample(L"tiff16-rgb.tif")), 1) == "");
        program.Exit();
    }
}

TEST_CASE("the full caption style shows the path, shortened") {
    const std::filesystem::path file = ScratchFile(
        L"a folder with a name that makes the path long\\scene.bmp", BmpBytes(Chart(400, 20), 24));
    const std::wstring path = file.wstring();
    Program program({.settings = {{L"CAP_STYLE", L"FULL"}, {L"IMG_SIZE", L"0.50"}}});
    CHECK(program.Open(file).Text() ==
          L"[1 ]  (50%) File Name : " + path.substr(0, 5) + L"....." + path.substr(path.size() - 41));
    program.Exit();
}

TEST_CASE("the temporary copies hold what the image's kind asks for") {
    Program program;
    program.Open(Sample(L"bmp24-top-down.bmp"), 1);
    program.Open(Sample(L"tiff8-mono.tif"), 2);
    program.Open(Sample(L"tiff12-rgb.tif"), 3);
    program.Open(Sample(L"tiff16-rgb.tif"), 4);
    program.Open(Sample(L"bmp8-palette.bmp"), 5);
    CHECK(TemporaryCopies() == std::vector<std::wstring>{L"import_img_00.bmp", L"import_img_01.bmp",
                                                         L"import_img_01.tiff", L"import_img_02.bmp",
                                                         L"import_img_02.tiff", L"import_img_03.bin",
                                                         L"import_img_03.bmp", L"import_img_04.bmp"});
    const auto copy = [](const wchar_t* name) { return ReadBytes(DataFolder() / name); };
    CHECK((copy(L"import_img_00.bmp") == ReadBytes(Sample(L"bmp24-top-down.bmp"))));
    CHECK((copy(L"import_img_01.tiff") == ReadBytes(Sample(L"tiff8-mono.tif"))));
    CHECK((copy(L"import_img_02.tiff") == ReadBytes(Sample(L"tiff12-rgb.tif"))));
    CHECK(copy(L"import_img_03.bin").size() == ReadImage(Sample(L"tiff16-rgb.tif")).pixels.size() * 3 * 2);
    // Display copies that the program writes itself are 24-bit BMPs, upside down as usual.
    CHECK((copy(L"import_img_03.bmp") == BmpBytes(ReadImage(Sample(L"tiff16-rgb.tif")), 24)));
    CHECK((copy(L"import_img_04.bmp") == BmpBytes(ReadImage(Sample(L"bmp8-palette.bmp")), 24)));
    program.Exit();
}
