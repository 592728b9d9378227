#include "analysis/csv_lines.h"

#include <doctest/doctest.h>

#include <random>
#include <string>

#include "analysis/csv.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

/// A field as it is told plainly.
std::string Plain(std::uint32_t value, std::uint32_t largest, const char* beyond) {
    return value > largest ? beyond : std::to_string(value);
}
std::string PlainPlace(std::uint32_t value) {
    return Plain(value, 99'999, "-----");
}
std::string PlainCount(std::uint32_t value) {
    return Plain(value, 99'999'999, "--------");
}

/// What PutField() makes; "(too long)" when it touches more than it may.
std::string Put(std::uint32_t value, CsvField field) {
    std::array<char, kFieldBytes + 1> text{};
    text.back() = '!';
    char* const end = PutField(text.data(), value, field);
    return text.back() == '!' ? std::string(text.data(), end) : "(too long)";
}

constexpr std::uint32_t kEdges[] = {0,
                                    1,
                                    9,
                                    10,
                                    11,
                                    99,
                                    100,
                                    101,
                                    999,
                                    1000,
                                    1001,
                                    1009,
                                    1010,
                                    1100,
                                    9999,
                                    10'000,
                                    10'001,
                                    65'535,
                                    99'999,
                                    100'000,
                                    100'001,
                                    999'999,
                                    1'000'000,
                                    1'000'001,
                                    9'999'999,
                                    10'000'000,
                                    99'999'999,
                                    100'000'000,
                                    100'000'001,
                                    2'147'483'647,
                                    2'147'483'648,
                                    4'294'967'295};

/// Counts that are edges mostly, the same for the same seed.
HistogramCounts SomeCounts(std::size_t bins, unsigned seed) {
    std::minstd_rand random(seed);
    HistogramCounts counts;
    for (auto& channel : counts) {
        channel.resize(bins);
        for (std::uint32_t& count : channel)
            count = random() % 2 == 0 ? static_cast<std::uint32_t>(random()) >> random() % 32
                                      : kEdges[random() % std::size(kEdges)];
    }
    return counts;
}

}  // namespace

TEST_CASE("every number is written as it is told plainly, or as what stands for a larger one") {
    int wrong = 0;
    for (std::uint32_t value = 0; value < 1'100'000; ++value) {
        if (Put(value, kPlaceField) != PlainPlace(value)) ++wrong;
        if (Put(value, kCountField) != PlainCount(value)) ++wrong;
    }
    CHECK(wrong == 0);
    for (const std::uint32_t value : kEdges) {
        CAPTURE(value);
        CHECK(Put(value, kPlaceField) == PlainPlace(value));
        CHECK(Put(value, kCountField) == PlainCount(value));
    }
}

TEST_CASE("a counter goes up by one, past its field and on from 0 after the largest number") {
    for (const std::uint32_t first : {0u, 7u, 98u, 995u, 99'990u, 4'294'967'285u, 0x7FFF'FFF0u}) {
        CsvCounter counter(first, kPlaceField);
        for (std::uint32_t step = 0; step < 1200; ++step, counter.Advance()) {
            std::array<char, kFieldBytes> text{};
            const std::string told(text.data(), counter.Put(text.data()));
            CAPTURE(first + step);
            REQUIRE(told == PlainPlace(first + step));
        }
    }
}

TEST_CASE("a histogram of any depth and selector is told as line after line would be") {
    for (const std::uint32_t bits : {8u, 10u, 12u, 14u, 16u}) {
        const HistogramCounts counts = SomeCounts(BinCount(bits), bits);
        std::string grey = "Value,Freq.\r\n", green = "Value,Freq (G)\r\n",
                    all = "Value,Freq (R),Freq (G),Freq (B)\r\n";
        for (std::uint32_t level = 0; level < BinCount(bits); ++level) {
            const std::string b = PlainCount(counts[0][level]), g = PlainCount(counts[1][level]),
                              r = PlainCount(counts[2][level]);
            const std::string start = std::to_string(level) + ",";
            grey += start + b + "\r\n";
            green += start + g + "\r\n";
            all += start + r;
            all += "," + g;
            all += "," + b + "\r\n";
        }
        CHECK((HistogramCsv(counts, false, 0, bits) == grey));
        CHECK((HistogramCsv(counts, true, 2, bits) == green));
        CHECK((HistogramCsv(counts, true, 4, bits) == all));
    }
}

TEST_CASE("a histogram whose counts end early goes on with zeros") {
    HistogramCounts counts{{{5, 6}, {}, {7}}};
    CHECK(HistogramCsv(counts, true, 4, 8)
              .starts_with("Value,Freq (R),Freq (G),Freq (B)\r\n0,7,0,5\r\n1,0,0,6\r\n2,0,0,0\r\n"));
    CHECK(HistogramCsv(counts, true, 4, 8).ends_with("\r\n255,0,0,0\r\n"));
}

TEST_CASE("a profile that begins before the image counts from 0 when it gets there") {
    const LineProfile profile{.first = -2, .count = 4, .values = {{{1, 2, 3, 4}, {}, {}}}};
    CHECK(ProfileCsv(profile, false, 0) == "Loacation,Value\r\n-----,1\r\n-----,2\r\n0,3\r\n1,4\r\n");
}

TEST_CASE("a file gets the bytes that are told, in whatever pieces") {
    const ScratchFolder folder;
    for (const std::uint32_t bits : {8u, 12u, 16u})
        for (const bool colour : {false, true}) {
            const HistogramCounts counts = SomeCounts(BinCount(bits), bits + 100);
            CHECK(WriteWholeFile(folder / "a.csv", [&](File& file) {
                return WriteHistogramCsv(file, counts, colour, 4, bits);
            }));
            CHECK((folder.Read("a.csv") == HistogramCsv(counts, colour, 4, bits)));
        }
    LineProfile profile{.first = 3, .count = 20'000, .values = {}};
    for (auto& channel : profile.values)
        for (int i = 0; i < profile.count; ++i) channel.push_back(static_cast<std::uint16_t>(i * 37));
    CHECK(WriteWholeFile(folder / "p.csv",
                         [&](File& file) { return WriteProfileCsv(file, profile, true, 4); }));
    CHECK((folder.Read("p.csv") == ProfileCsv(profile, true, 4)));
}

TEST_CASE("what cannot be written is told, at the first block and at the last") {
    const ScratchFolder folder;
    folder.Write("a", "");
    auto file = File::OpenForReading(folder / "a");
    REQUIRE(file.has_value());
    CHECK_FALSE(WriteHistogramCsv(*file, SomeCounts(65536, 1), true, 4, 16));
    CHECK_FALSE(WriteHistogramCsv(*file, SomeCounts(256, 1), false, 0, 8));
    CHECK_FALSE(WriteProfileCsv(*file, {}, false, 0));
}
