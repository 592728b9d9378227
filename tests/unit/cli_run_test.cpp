#include "cli/run.h"

#include <doctest/doctest.h>

#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::test;

namespace {

struct Result {
    int status = 0;
    std::string out, error;
};

class Capture final : public cli::Streams {
public:
    bool WriteOut(std::string_view bytes) override {
        result.out += bytes;
        return true;
    }
    void WriteError(std::string_view bytes) override { result.error += bytes; }
    [[nodiscard]] bool OutIsTerminal() const override { return false; }
    [[nodiscard]] bool ErrorIsTerminal() const override { return false; }
    Result result;
};

// A folder, and calls of the program on files in it; "@name" stands for the path of a file.
struct Bench {
    ScratchFolder folder;

    [[nodiscard]] std::string At(const std::string& name) const { return (folder / name).string(); }
    [[nodiscard]] Result Run(std::vector<std::string> arguments) const {
        for (std::string& argument : arguments)
            if (argument.starts_with('@')) argument = At(argument.substr(1));
        Capture capture;
        capture.result.status = cli::Run(arguments, capture, true);
        for (std::string* text : {&capture.result.out, &capture.result.error})
            for (const std::string& at : {At(""), AsInJson(At(""))}) Remove(*text, at);
        return capture.result;
    }

private:
    // JSON writes the separator of Windows twice.
    static std::string AsInJson(const std::string& path) {
        std::string text;
        for (const char c : path) text += c == '\\' ? "\\\\" : std::string(1, c);
        return text;
    }
    static void Remove(std::string& text, const std::string& part) {
        for (std::size_t found; (found = text.find(part)) != std::string::npos;)
            text.erase(found, part.size());
    }
};

const TiffFile kGrey{.width = 2, .height = 2, .pixels = Bytes({0, 2, 4, 200})};
const TiffFile kColour{
    .width = 2, .photometric = 2, .bits = 16, .pixels = Words({16, 32, 48, 0xFFF0, 64, 80})};

}  // namespace

TEST_CASE("stats lists the channels of the region") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("g.tif", kGrey.Make()));
    static_cast<void>(bench.folder.Write("c.tif", kColour.Make()));
    Result result = bench.Run({"stats", "@g.tif", "@c.tif", "--format", "csv", "--region", "0,0,1,0"});
    CHECK(result.status == 0);
    CHECK(result.out ==
          "file,channel,min,max,mean,std\n"
          "g.tif,mono,0,2,1,1\n"
          "c.tif,R,1,4095,2048,2047\n"
          "c.tif,G,2,4,3,1\n"
          "c.tif,B,3,5,4,1\n"
          "c.tif,RGB,1,4095,685,1524.9989071034336\n");
    result = bench.Run({"stats", "@g.tif", "--format", "json", "--region", "1,0,1,1"});
    CHECK(result.out ==
          "{\"file\":\"g.tif\",\"region\":[1,0,1,1],\"channels\":"
          "[{\"name\":\"mono\",\"min\":2,\"max\":200,\"mean\":101,\"std\":99}]}\n");
    result = bench.Run({"stats", "@g.tif"});
    CHECK(result.out == "g.tif (0,0,1,1)\n  mono  min 0  max 200  mean 51.500  std 85.748\n");
    result = bench.Run({"stats", "@c.tif", "--valid-bits", "8", "--format", "csv"});
    CHECK(result.out.find("c.tif,R,0,255,127.5,127.5\n") != std::string::npos);
}

TEST_CASE("a band of whole rows is measured and saved like any other region") {
    const Bench bench;
    const TiffFile tall{.width = 3, .height = 4, .pixels = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12})};
    const BmpFile upward{.width = 1, .height = 3, .pixels = Bytes({7, 7, 7, 0, 8, 8, 8, 0, 9, 9, 9, 0})};
    static_cast<void>(bench.folder.Write("t.tif", tall.Make()));
    static_cast<void>(bench.folder.Write("u.bmp", upward.Make()));
    const std::string header = "file,channel,min,max,mean,std\n";
    CHECK(bench.Run({"stats", "@t.tif", "--format", "csv", "--region", "0,1,2,2"}).out ==
          header + "t.tif,mono,4,9,6.5,1.707825127659933\n");
    CHECK(bench.Run({"stats", "@u.bmp", "--format", "csv", "--region", "0,0,0,1"}).out ==
          header + "u.bmp,mono,8,9,8.5,0.5\n");
    CHECK(bench.Run({"save-region", "@t.tif", "--region", "0,1,2,2", "--out", "@part.tif"}).status == 0);
    CHECK(bench.folder.Read("part.tif").ends_with(Bytes({4, 5, 6, 7, 8, 9})));
}

TEST_CASE("an 8-bit BMP is measured through its palette, and what its last row lacks is black") {
    const Bench bench;
    std::vector<int> grey, plain, colour(1024);
    for (int i = 0; i < 256; ++i)
        for (const int channel : {0, 1, 2, 3}) {
            grey.push_back(channel == 3 ? 0 : 255 - i);
            plain.push_back(channel == 3 ? 0 : i);
        }
    colour[4] = 10, colour[5] = 20, colour[6] = 30;
    const auto write = [&](const char* name, const std::vector<int>& palette,
                           const std::vector<int>& pixels) {
        const BmpFile file{.width = 3,
                           .bits = 8,
                           .data_offset = 1078,
                           .before_data = Bytes(palette),
                           .pixels = Bytes(pixels)};
        static_cast<void>(bench.folder.Write(name, file.Make()));
    };
    write("grey.bmp", grey, {0, 1, 5, 0});
    write("plain.bmp", plain, {3, 1, 5, 0});
    write("colour.bmp", colour, {1, 0, 1, 0});
    write("short grey.bmp", grey, {0, 0});
    write("short colour.bmp", colour, {1, 1});
    const Result result = bench.Run({"stats", "@grey.bmp", "@plain.bmp", "@colour.bmp", "@short grey.bmp",
                                     "@short colour.bmp", "--format", "csv"});
    CHECK(result.error.empty());
    CHECK(result.out ==
          "file,channel,min,max,mean,std\n"
          "grey.bmp,mono,250,255,253,2.160246899469287\n"
          "plain.bmp,mono,1,5,3,1.632993161855452\n"
          "colour.bmp,R,0,30,20,14.142135623730951\n"
          "colour.bmp,G,0,20,13.333333333333334,9.428090415820634\n"
          "colour.bmp,B,0,10,6.666666666666667,4.714045207910317\n"
          "colour.bmp,RGB,0,30,13.333333333333334,11.547005383792516\n"
          "short grey.bmp,mono,0,255,170,120.20815280171308\n"
          "short colour.bmp,R,0,30,20,14.142135623730951\n"
          "short colour.bmp,G,0,20,13.333333333333334,9.428090415820634\n"
          "short colour.bmp,B,0,10,6.666666666666667,4.714045207910317\n"
          "short colour.bmp,RGB,0,30,13.333333333333334,11.547005383792516\n");
    CHECK(bench.Run({"info", "@grey.bmp", "--format", "csv"}).out.find(",false,8,") != std::string::npos);
}

TEST_CASE("info tells the facts in their order") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("c.tif", kColour.Make()));
    const Result json = bench.Run({"info", "@c.tif", "--format", "json"});
    CHECK(json.status == 0);
    CHECK(json.out ==
          "{\"file\":\"c.tif\",\"kind\":\"TIFF II\",\"width\":2,\"height\":1,\"colour\":true,"
          "\"bits_per_sample\":16,\"stored_bits\":16,\"valid_bits\":12,\"bmp_bit_count\":0,\"raw_data\":true,"
          "\"pixel_format\":\"RGB16\"}\n");
    CHECK(bench.Run({"info", "@c.tif", "--format", "csv", "--valid-bits", "14"}).out ==
          "file,kind,width,height,colour,bits_per_sample,stored_bits,valid_bits,bmp_bit_count,raw_data,"
          "pixel_format\nc.tif,TIFF II,2,1,true,16,16,14,0,true,RGB16\n");
    CHECK(bench.Run({"info", "@c.tif"}).out.starts_with("c.tif\n  kind             TIFF II\n"));
}

TEST_CASE("a refused file does not keep the others from their results") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("g.tif", kGrey.Make()));
    static_cast<void>(bench.folder.Write("bad.tif", "no image"));
    const Result result =
        bench.Run({"info", "@g.tif", "@bad.tif", "@none.tif", "@g.tif", "--format", "json"});
    CHECK(result.status == 1);
    CHECK(result.error ==
          "bad.tif: This is an unsupported or invalid image file.\nnone.tif: Failed to Open Image File\n");
    CHECK(result.out.find("{\"file\":\"bad.tif\",\"error\":\"This is an unsupported or invalid image file.\","
                          "\"code\":15}\n{\"file\":\"none.tif\",\"error\":\"Failed to Open Image File\","
                          "\"code\":1}\n{\"file\":\"g.tif\",\"kind\"") != std::string::npos);
}

TEST_CASE("a region or line outside the image is wrong usage and writes nothing") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("g.tif", kGrey.Make()));
    Result result = bench.Run({"stats", "@g.tif", "--region", "0,0,2,1"});
    CHECK(result.status == 2);
    CHECK(result.out.empty());
    CHECK(result.error == "g.tif: the region 0,0,2,1 is outside the image of 2 x 2 pixels\n");
    result = bench.Run({"profile", "@g.tif", "--column", "2", "--out", "@o"});
    CHECK(result.status == 2);
    CHECK(result.error == "g.tif: the column 2 is outside the image of 2 x 2 pixels\n");
    result = bench.Run({"profile", "@g.tif", "--row", "2", "--out", "@o", "--region", "0,0,0,0"});
    CHECK(result.error == "g.tif: the row 2 is outside the image of 2 x 2 pixels\n");
    CHECK(bench.Run({"stats", "@none", "@g.tif", "--region", "0,0,2,1"}).status == 2);
    CHECK(bench.folder.Names() == "g.tif");
}

TEST_CASE("a file that the region does not fit does not keep the others from their results") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("small.tif", kGrey.Make()));
    static_cast<void>(bench.folder.Write(
        "large.tif", TiffFile{.width = 3, .height = 2, .pixels = Bytes({9, 9, 7, 9, 9, 9})}.Make()));
    const Result result =
        bench.Run({"stats", "@small.tif", "@large.tif", "--region", "2,0,2,1", "--format", "csv"});
    CHECK(result.status == 2);
    CHECK(result.error == "small.tif: the region 2,0,2,1 is outside the image of 2 x 2 pixels\n");
    CHECK(result.out == "file,channel,min,max,mean,std\nlarge.tif,mono,7,9,8,1\n");
}

TEST_CASE("a CSV list has its header, whatever becomes of the files") {
    const Bench bench;
    Result result = bench.Run({"stats", "@none.tif", "@no.bmp", "--format", "csv"});
    CHECK(result.status == 1);
    CHECK(result.out == "file,channel,min,max,mean,std\n");
    result = bench.Run({"info", "@none.tif", "--format", "csv"});
    CHECK(result.status == 1);
    CHECK(result.out ==
          "file,kind,width,height,colour,bits_per_sample,stored_bits,valid_bits,bmp_bit_count,raw_data,"
          "pixel_format\n");
    CHECK(bench.Run({"info", "@none.tif", "--format", "json"})
              .out.starts_with("{\"file\":\"none.tif\",\"error\""));
    CHECK(bench.Run({"info", "@none.tif"}).out.empty());
}

TEST_CASE("given valid bits change nothing about a file without 16-bit samples") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("g.tif", kGrey.Make()));
    static_cast<void>(bench.folder.Write(
        "t.tif", TiffFile{.width = 2, .bits = 12, .pixels = Bytes({0x12, 0x34, 0x56})}.Make()));
    static_cast<void>(
        bench.folder.Write("b.bmp", BmpFile{.width = 1, .height = 1, .pixels = Bytes({1, 2, 3, 0})}.Make()));
    for (const char* command : {"info", "stats"}) {
        CAPTURE(command);
        const std::vector<std::string> plain = {command, "@g.tif", "@t.tif", "@b.bmp", "--format", "csv"};
        const Result expected = bench.Run(plain);
        CHECK(expected.status == 0);
        for (const char* bits : {"8", "10", "16", "auto"}) {
            CAPTURE(bits);
            std::vector<std::string> given = plain;
            given.insert(given.end(), {"--valid-bits", bits});
            const Result result = bench.Run(given);
            CHECK(result.status == 0);
            CHECK(result.error.empty());
            CHECK(result.out == expected.out);
        }
    }
}

TEST_CASE("histogram and profile write the files of the views") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("c.tif", kColour.Make()));
    CHECK(bench.Run({"profile", "@c.tif", "--row", "0", "--out", "@p"}).status == 0);
    CHECK(bench.folder.Read("p") == "Loacation,Value (R),Value (G),Value (B)\r\n0,1,2,3\r\n1,4095,4,5\r\n");
    CHECK(bench.Run({"profile", "@c.tif", "--column", "1", "--channel", "R", "--out", "@p"}).status == 0);
    CHECK(bench.folder.Read("p") == "Loacation,Value (R)\r\n0,4095\r\n");
    CHECK(
        bench.Run({"profile", "@c.tif", "--row", "0", "--region", "1,0,1,0", "--channel", "B", "--out", "@p"})
            .status == 0);
    CHECK(bench.folder.Read("p") == "Loacation,Value (B)\r\n1,5\r\n");
    CHECK(bench.Run({"histogram", "@c.tif", "--out", "@h", "--channel", "G"}).status == 0);
    CHECK(bench.folder.Read("h").starts_with("Value,Freq (G)\r\n0,0\r\n1,0\r\n2,1\r\n3,0\r\n4,1\r\n5,0\r\n"));
    static_cast<void>(bench.folder.Write("g.tif", kGrey.Make()));
    CHECK(bench.Run({"histogram", "@g.tif", "--out", "@h", "--channel", "G"}).status == 0);
    CHECK(bench.folder.Read("h").starts_with("Value,Freq.\r\n0,1\r\n1,0\r\n2,1\r\n"));
}

TEST_CASE("a profile's line may lie outside the region that limits it") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("g.tif", kGrey.Make()));
    CHECK(bench.Run({"profile", "@g.tif", "--row", "1", "--region", "1,0,1,0", "--out", "@p"}).status == 0);
    CHECK(bench.folder.Read("p") == "Loacation,Value\r\n1,200\r\n");
}

TEST_CASE("wildcards count as the files that they stand for") {
    const Bench bench;
    static_cast<void>(bench.folder.Write("a.tif", kGrey.Make()));
    CHECK(bench.Run({"histogram", "@?.tif", "--out", "@h.csv"}).status == 0);
    static_cast<void>(bench.folder.Write("b.tif", kGrey.Make()));
    CHECK(bench.Run({"stats", "@*.tif", "--format", "csv"}).out ==
          "file,channel,min,max,mean,std\na.tif,mono,0,200,51.5,85.74817782320508\nb.tif,mono,0,200,51.5,"
          "85.74817782320508\n");
    const Result result = bench.Run({"histogram", "@?.tif", "--out", "@new.csv"});
    CHECK(result.status == 2);
    CHECK(result.error == "pixora-cli: the command takes one file, not 2\n");
    CHECK(bench.folder.Names() == "a.tif b.tif h.csv");
}

TEST_CASE("one file's samples leave nothing behind in the next one's") {
    const Bench bench;
    static_cast<void>(bench.folder.Write(
        "full.tif", TiffFile{.width = 9, .height = 9, .pixels = std::string(81, '\xFF')}.Make()));
    static_cast<void>(bench.folder.Write(
        "short.tif", TiffFile{.width = 4, .height = 4, .pixels = Bytes({1, 1, 1, 1, 1, 1})}.Make()));
    static_cast<void>(bench.folder.Write(
        "short.bmp", BmpFile{.width = 4, .height = 4, .pixels = std::string(30, '\1')}.Make()));
    const Result result = bench.Run({"stats", "@full.tif", "@short.tif", "@full.tif", "@short.bmp",
                                     "--region", "1,0,3,3", "--format", "csv"});
    CHECK(result.out.find("short.tif,mono,0,1,0.3333333333333333,") != std::string::npos);
    CHECK(result.out.find("short.bmp,mono,0,1,0.5833333333333334,0.4930066") != std::string::npos);
}
