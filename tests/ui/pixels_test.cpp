// What a viewer paints, pixel by pixel.
#include <doctest/doctest.h>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

TEST_CASE("an enlarged image shows each of its pixels as a block") {
    struct Size {
        const wchar_t *ratio, *percent;
        int zoom, width, height;
    };
    const Size sizes[] = {{L"1.00", L"100%", 1, 319, 241},
                          {L"2.00", L"200%", 2, 319, 241},
                          {L"5.00", L"500%", 5, 121, 83},
                          {L"10.00", L"1000%", 10, 61, 37}};
    for (const Size& size : sizes) {
        CAPTURE(size.zoom);
        const Picture picture = Chart(size.width, size.height);
        Program program({.settings = {{L"IMG_SIZE", size.ratio}}});
        const Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(picture, 24)));
        CHECK(viewer.Text() == std::wstring(L"[1 ]  (") + size.percent + L") File Name : chart.bmp");
        CHECK(DifferenceEnlarged(program.See(viewer), picture, size.zoom) == "");
        program.Exit();
    }
}

TEST_CASE("a reduced image leaves pixels out and mixes none") {
    const Picture picture = Chart(319, 241);
    for (const double ratio : {0.5, 0.3, 0.05}) {
        CAPTURE(ratio);
        Program program({.settings = {{L"IMG_SIZE", std::to_wstring(ratio).substr(0, 4)}}});
        const Window viewer = program.Open(ScratchFile(L"chart.bmp", BmpBytes(picture, 24)));
        CHECK(DifferenceReduced(program.See(viewer), picture, ratio) == "");
        program.Exit();
    }
}

TEST_CASE("the picture on the screen is the picture of the file") {
    Program program;
    const Window viewer = program.Open(Sample(L"bmp24-colour.bmp"));
    const RECT client = viewer.Client();
    const Picture screen =
        CaptureScreen(client.left, client.top, client.right - client.left, client.bottom - client.top);
    CHECK(DifferenceEnlarged(screen, ReadImage(Sample(L"bmp24-colour.bmp")), 1) == "");
    program.Exit();
}

TEST_CASE("both row orders and both depths of a colour BMP show the same picture") {
    // Widths of every remainder by four: rows are filled up to whole words.
    for (int width = 5; width <= 8; ++width) {
        CAPTURE(width);
        const Picture picture = Chart(width, 7);
        Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
        int number = 0;
        for (const std::uint16_t bits : {std::uint16_t{24}, std::uint16_t{32}}) {
            for (const bool top_down : {false, true}) {
                CAPTURE(bits);
                CAPTURE(top_down);
                const auto file = ScratchFile(L"p" + std::to_wstring(++number) + L".bmp",
                                              BmpBytes(picture, bits, top_down));
                const Window viewer = program.Open(file, number);
                CHECK(DifferenceEnlarged(program.See(viewer), picture, 10) == "");
            }
        }
        program.Exit();
    }
}

TEST_CASE("the fourth byte of a 32-bit pixel is ignored") {
    const Picture picture = Chart(20, 10);
    std::string bytes = BmpBytes(picture, 32);
    for (std::size_t i = 54 + 3; i < bytes.size(); i += 4) bytes[i] = static_cast<char>(i * 29);
    Program program({.settings = {{L"IMG_SIZE", L"5.00"}}});
    CHECK(DifferenceEnlarged(program.See(program.Open(ScratchFile(L"fourth.bmp", bytes))), picture, 5) == "");
    program.Exit();
}

TEST_CASE("an 8-bit BMP stored from top to bottom shows its indices as grey levels") {
    // Deliberate, like the drift of its rows: neither the palette nor the bytes that fill up a row are
    // respected.
    constexpr int kWidth = 30, kHeight = 6, kStride = 32;
    BmpFile file{.width = kWidth, .height = -kHeight, .bits = 8};
    for (int i = 0; i < 256; ++i) file.palette += {static_cast<char>(255 - i), 10, static_cast<char>(i), 0};
    for (int i = 0; i < kStride * kHeight; ++i) file.pixels += static_cast<char>(i);
    Picture expected(kWidth, kHeight);
    for (int i = 0; i < kWidth * kHeight; ++i) expected.pixels[static_cast<std::size_t>(i)] = Rgb(i, i, i);
    Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
    CHECK(DifferenceEnlarged(program.See(program.Open(ScratchFile(L"drift.bmp", Bytes(file)))), expected,
                             10) == "");
    program.Exit();
}

TEST_CASE("the last pixel of an odd number of 12-bit pixels stays black") {
    TiffFile file{.width = 5, .height = 3, .bits = 12};
    file.pixels = std::string(BlankPixels(file).size(), '\xFF');
    Picture expected(5, 3);
    for (std::uint32_t& pixel : expected.pixels) pixel = 0xFFFFFF;
    expected.At(4, 2) = 0;
    Program program({.settings = {{L"IMG_SIZE", L"10.00"}}});
    CHECK(DifferenceEnlarged(program.See(program.Open(ScratchFile(L"odd.tif", Bytes(file)))), expected, 10) ==
          "");
    program.Exit();
}

TEST_CASE("an image whose pixels are cut off opens with the missing part black") {
    const Picture picture = Chart(24, 20);
    const std::string whole = BmpBytes(picture, 24);
    // The file begins with the bottom row: what is missing are the upper eight rows.
    Picture expected = picture;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 24; ++x) expected.At(x, y) = 0;
    Program program({.settings = {{L"IMG_SIZE", L"5.00"}}});
    const auto file = ScratchFile(L"cut.bmp", whole.substr(0, 54 + 24 * 3 * 12));
    CHECK(DifferenceEnlarged(program.See(program.Open(file, 1)), expected, 5) == "");
    TiffFile tiff{.width = 24, .height = 20, .bits = 16};
    tiff.pixels = std::string(24 * 2 * 12, '\x80');
    const Window second = program.Open(ScratchFile(L"cut.tif", Bytes(tiff)), 2);
    Picture grey(24, 20);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 24; ++x) grey.At(x, y) = 0x808080;
    CHECK(DifferenceEnlarged(program.See(second), grey, 5) == "");
    program.Exit();
}
