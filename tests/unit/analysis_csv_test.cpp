#include "analysis/csv.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace pixora;

namespace {

HistogramCounts Counts(std::size_t bins) {
    HistogramCounts counts;
    for (auto& channel : counts) channel.assign(bins, 0);
    return counts;
}

LineProfile Profile() {
    return {.first = 98, .count = 3, .values = {{{1, 2, 3}, {40, 50, 60}, {700, 800, 65535}}}};
}

std::string Begin(const std::string& text, std::size_t length) {
    return text.substr(0, length);
}

}  // namespace

TEST_CASE("a grey histogram has the levels and the counts, every line ended by CR and LF") {
    HistogramCounts counts = Counts(256);
    counts[0][0] = 7;
    counts[0][255] = 12345;
    const std::string csv = HistogramCsv(counts, false, 0, 8);
    CHECK(csv.starts_with("Value,Freq.\r\n0,7\r\n1,0\r\n2,0\r\n"));
    CHECK(csv.ends_with("254,0\r\n255,12345\r\n"));
    CHECK(std::ranges::count(csv, '\n') == 257);
    CHECK(std::ranges::count(csv, '\r') == 257);
}

TEST_CASE("a colour histogram has the columns of the channel that is selected, red first") {
    HistogramCounts counts = Counts(256);
    counts[0][1] = 11;  // blue
    counts[1][1] = 22;
    counts[2][1] = 33;  // red
    CHECK(HistogramCsv(counts, true, 1, 8).starts_with("Value,Freq (R)\r\n0,0\r\n1,33\r\n"));
    CHECK(HistogramCsv(counts, true, 2, 8).starts_with("Value,Freq (G)\r\n0,0\r\n1,22\r\n"));
    CHECK(HistogramCsv(counts, true, 3, 8).starts_with("Value,Freq (B)\r\n0,0\r\n1,11\r\n"));
    CHECK(HistogramCsv(counts, true, 4, 8)
              .starts_with("Value,Freq (R),Freq (G),Freq (B)\r\n0,0,0,0\r\n1,33,22,11\r\n"));
}

TEST_CASE("a selector out of range gives a colour image's levels alone") {
    for (const int channel : {0, 5, -1}) {
        CHECK(HistogramCsv(Counts(256), true, channel, 8).starts_with("Value\r\n0\r\n1\r\n"));
        CHECK(ProfileCsv(Profile(), true, channel) == "Loacation\r\n98\r\n99\r\n100\r\n");
    }
}

TEST_CASE("a grey image has no channels to select") {
    for (const int channel : {0, 1, 4, 9}) {
        CHECK(HistogramCsv(Counts(256), false, channel, 8).starts_with("Value,Freq.\r\n0,0\r\n"));
        CHECK(ProfileCsv(Profile(), false, channel).starts_with("Loacation,Value\r\n98,1\r\n"));
    }
}

TEST_CASE("the depth sets the number of lines of a histogram") {
    const auto lines = [](std::uint32_t bits) {
        return std::ranges::count(HistogramCsv(Counts(BinCount(bits)), false, 0, bits), '\n') - 1;
    };
    CHECK(lines(8) == 256);
    CHECK(lines(10) == 1024);
    CHECK(lines(12) == 4096);
    CHECK(lines(14) == 16384);
    CHECK(lines(16) == 65536);
    CHECK(lines(9) == 256);
}

TEST_CASE("a count above 99,999,999 becomes eight minus signs") {
    HistogramCounts counts = Counts(256);
    counts[0][0] = 99'999'999;
    counts[0][1] = 100'000'000;
    counts[0][2] = 4'294'967'295;
    CHECK(Begin(HistogramCsv(counts, false, 0, 8), 47) ==
          "Value,Freq.\r\n0,99999999\r\n1,--------\r\n2,--------");
}

TEST_CASE("a location above 99999 becomes five minus signs") {
    const LineProfile profile{.first = 99'999, .count = 2, .values = {{{5, 6}, {}, {}}}};
    CHECK(ProfileCsv(profile, false, 0) == "Loacation,Value\r\n99999,5\r\n-----,6\r\n");
}

TEST_CASE("the widest lines fit") {
    HistogramCounts counts = Counts(65536);
    for (auto& channel : counts) std::ranges::fill(channel, 4'294'967'295u);
    const std::string csv = HistogramCsv(counts, true, 4, 16);
    CHECK(csv.ends_with("65535,--------,--------,--------\r\n"));
}

TEST_CASE("a profile has the locations and the values of the channel that is selected") {
    CHECK(ProfileCsv(Profile(), false, 0) == "Loacation,Value\r\n98,1\r\n99,2\r\n100,3\r\n");
    CHECK(ProfileCsv(Profile(), true, 1) == "Loacation,Value (R)\r\n98,700\r\n99,800\r\n100,65535\r\n");
    CHECK(ProfileCsv(Profile(), true, 2) == "Loacation,Value (G)\r\n98,40\r\n99,50\r\n100,60\r\n");
    CHECK(ProfileCsv(Profile(), true, 3) == "Loacation,Value (B)\r\n98,1\r\n99,2\r\n100,3\r\n");
    CHECK(ProfileCsv(Profile(), true, 4) ==
          "Loacation,Value (R),Value (G),Value (B)\r\n98,700,40,1\r\n99,800,50,2\r\n100,65535,60,3\r\n");
}

TEST_CASE("a profile without positions is its header") {
    CHECK(ProfileCsv({}, false, 0) == "Loacation,Value\r\n");
    CHECK(ProfileCsv({}, true, 4) == "Loacation,Value (R),Value (G),Value (B)\r\n");
}

TEST_CASE("the name of a histogram's file is proposed from the image's and the channel") {
    CHECK(HistogramCsvName(L"C:\\data\\", L"a.tif", false, 0) == L"C:\\data\\a_HIS.csv");
    CHECK(HistogramCsvName(L"C:\\data\\", L"a.tif", true, 1) == L"C:\\data\\a_HIS(R).csv");
    CHECK(HistogramCsvName(L"C:\\data\\", L"a.tif", true, 2) == L"C:\\data\\a_HIS(G).csv");
    CHECK(HistogramCsvName(L"C:\\data\\", L"a.tif", true, 3) == L"C:\\data\\a_HIS(B).csv");
    CHECK(HistogramCsvName(L"C:\\data\\", L"a.tif", true, 4) == L"C:\\data\\a_HIS(RGB).csv");
    CHECK(HistogramCsvName(L"", L"a.b.tif", true, 7) == L"a.b_HIS.csv");
}

TEST_CASE("a folder that was stored without its last backslash gets one in a proposed name") {
    CHECK(HistogramCsvName(L"D:\\data", L"a.tif", false, 0) == L"D:\\data\\a_HIS.csv");
    CHECK(ProfileCsvName(L"D:", L"a.bmp", ProfileKind::vertical, 3, false, 0) == L"D:\\a_V3.csv");
}

TEST_CASE("an image's name loses everything from its last point on, even all of it") {
    CHECK(HistogramCsvName(L"", L"plain", false, 0) == L"plain_HIS.csv");
    CHECK(HistogramCsvName(L"", L".bmp", false, 0) == L"_HIS.csv");
}

TEST_CASE("the name of a profile's file tells its line") {
    CHECK(ProfileCsvName(L"D:\\", L"a.bmp", ProfileKind::horizontal, 120, true, 4) == L"D:\\a_H120(RGB).csv");
    CHECK(ProfileCsvName(L"D:\\", L"a.bmp", ProfileKind::vertical, 0, false, 0) == L"D:\\a_V0.csv");
}

TEST_CASE("the folder of an export ends with its backslash") {
    CHECK(CsvFolderOf(L"C:\\data\\more\\a.csv") == L"C:\\data\\more\\");
    CHECK(CsvFolderOf(L"C:\\a.csv") == L"C:\\");
    CHECK(CsvFolderOf(L"a.csv").empty());
}
