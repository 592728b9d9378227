#include "viewer/picture_rows.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/file.h"

using namespace pixora;

namespace {

// Two pixels a row, so eight bytes with padding; three rows of which each has its own letter.
constexpr std::string_view kRows = "aaaaaa..bbbbbb..cccccc..";

BmpHeader Header(bool bottom_up) {
    return {.data_offset = 4, .width = 2, .height = 3, .bottom_up = bottom_up, .bit_count = 24};
}

std::filesystem::path TestFile() {
    return std::filesystem::temp_directory_path() / "pixora_picture_rows_test.bmp";
}

// Whether a file of `size` bytes whose info header has the given size is ordinary, with 24 bytes of rows
// at 54.
bool Ordinary(std::size_t size, char info_size) {
    std::string bytes(size, 'x');
    if (size >= 18) bytes.replace(14, 4, {info_size, 0, 0, 0});
    REQUIRE(WriteWholeFile(TestFile(), bytes));
    BmpHeader header = Header(true);
    header.data_offset = 54;
    bool ordinary = false;
    {
        std::optional<File> file = File::OpenForReading(TestFile());
        REQUIRE(file);
        ordinary = IsOrdinaryPicture(*file, header);
    }
    DeleteQuietly(TestFile());
    return ordinary;
}

// What ReadPictureRows makes of a file with these bytes; nothing when it refuses.
std::optional<std::string> Rows(std::string_view file_bytes, const BmpHeader& header, std::size_t size = 24) {
    const std::filesystem::path path = TestFile();
    REQUIRE(WriteWholeFile(path, file_bytes));
    std::vector<std::byte> rows(size);
    bool read = false;
    {
        std::optional<File> file = File::OpenForReading(path);
        REQUIRE(file);
        read = ReadPictureRows(*file, header, rows);
    }
    DeleteQuietly(path);
    if (!read) return std::nullopt;
    std::string text;
    for (const std::byte byte : rows) text.push_back(byte == std::byte{} ? '0' : static_cast<char>(byte));
    return text;
}

}  // namespace

TEST_CASE("the rows of a bottom-up file are read as they stand") {
    CHECK(Rows("head" + std::string(kRows), Header(true)) == kRows);
}

TEST_CASE("the rows of a top-down file are turned over") {
    CHECK(Rows("head" + std::string(kRows), Header(false)) == "cccccc..bbbbbb..aaaaaa..");
}

TEST_CASE("rows that a short file does not hold are black") {
    CHECK(Rows("headaaaaaa..bb", Header(true)) == "aaaaaa..bb00000000000000");
    CHECK(Rows("headaaaaaa..bb", Header(false)) == "00000000bb000000aaaaaa..");
}

TEST_CASE("a file without any pixel is refused") {
    CHECK_FALSE(Rows("head", Header(true)));
    CHECK_FALSE(Rows("he", Header(true)));
}

TEST_CASE("only uncompressed 24-bit rows of the right number are read") {
    BmpHeader header = Header(true);
    header.bit_count = 32;
    CHECK_FALSE(Rows("head" + std::string(kRows), header));
    header = Header(true);
    header.compression = 1;
    CHECK_FALSE(Rows("head" + std::string(kRows), header));
    CHECK_FALSE(Rows("head" + std::string(kRows), Header(true), 16));
    CHECK_FALSE(Rows("head" + std::string(kRows), Header(true), 25));
}

TEST_CASE("a picture of two gibibytes or more fits no bitmap") {
    CHECK(FitsBitmap(1, 1));
    CHECK(FitsBitmap(65535, 10922));        // 196,608 bytes a row: one row below the limit
    CHECK_FALSE(FitsBitmap(65535, 10923));  // 2,147,549,184 bytes
    CHECK(FitsBitmap(16384, 43690));        // 49,152 bytes a row: 2,147,450,880
    CHECK_FALSE(FitsBitmap(16384, 43691));  // 2,147,500,032
    CHECK_FALSE(FitsBitmap(4294967295u, 4294967295u));
}

TEST_CASE("a picture is ordinary when all of its rows are there") {
    CHECK(Ordinary(78, 40));
    CHECK(Ordinary(100, 40));
    CHECK_FALSE(Ordinary(77, 40));
    CHECK_FALSE(Ordinary(54, 40));
    CHECK_FALSE(Ordinary(10, 40));
}

TEST_CASE("a picture is ordinary when its info header has a usual size") {
    CHECK(Ordinary(78, 124));
    CHECK_FALSE(Ordinary(78, 125));
    CHECK_FALSE(Ordinary(78, 39));
    CHECK_FALSE(Ordinary(78, 12));
}
