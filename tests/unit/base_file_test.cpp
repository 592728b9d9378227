#include "base/file.h"

#include <doctest/doctest.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>

#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

namespace fs = std::filesystem;

std::span<const std::byte> Bytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

/// Reads up to `count` bytes from the current position.
std::string Next(File& file, std::size_t count) {
    std::string text(count, '\0');
    text.resize(file.Read(std::as_writable_bytes(std::span(text))));
    return text;
}

}  // namespace

TEST_CASE("what is missing and what is a folder cannot be opened for reading") {
    const ScratchFolder folder;
    CHECK_FALSE(File::OpenForReading(folder / "missing").has_value());
    CHECK_FALSE(File::OpenForReading(folder.Path()).has_value());
    CHECK_FALSE(File::OpenForReading(fs::path()).has_value());
}

TEST_CASE("a file is created only in a folder that exists and not over a folder") {
    const ScratchFolder folder;
    CHECK_FALSE(File::Create(folder / "missing" / "a").has_value());
    CHECK_FALSE(File::Create(folder.Path()).has_value());
    folder.Write("a", "old");
    auto file = File::Create(folder / "a");
    REQUIRE(file.has_value());
    CHECK(file->Close());
    CHECK(folder.Read("a").empty());
}

TEST_CASE("a file is read from any position, and short at its end") {
    const ScratchFolder folder;
    folder.Write("a", "0123456789");
    auto file = File::OpenForReading(folder / "a");
    REQUIRE(file.has_value());
    CHECK(file->Size() == 10);
    CHECK(Next(*file, 4) == "0123");
    CHECK(file->Size() == 10);
    CHECK(Next(*file, 3) == "456");
    CHECK(file->Seek(8));
    CHECK(Next(*file, 5) == "89");
    CHECK(Next(*file, 5).empty());
    CHECK(file->Seek(100));
    CHECK(Next(*file, 1).empty());
    CHECK(file->Seek(0));
    CHECK(Next(*file, 1) == "0");
    CHECK_FALSE(file->Seek(0xFFFFFFFFFFFFFFFFULL));
}

TEST_CASE("an exact read fails when the file does not hold all of it") {
    const ScratchFolder folder;
    folder.Write("a", "0123456789");
    auto file = File::OpenForReading(folder / "a");
    REQUIRE(file.has_value());
    std::array<std::byte, 4> target{};
    CHECK(file->ReadExactly(6, target));
    CHECK(target[0] == std::byte{'6'});
    CHECK(target[3] == std::byte{'9'});
    CHECK_FALSE(file->ReadExactly(7, target));
    CHECK_FALSE(file->ReadExactly(1ULL << 40, target));
    CHECK(file->ReadExactly(10, {}));
}

TEST_CASE("bytes are written as they are, line ends and Ctrl+Z too") {
    const ScratchFolder folder;
    auto file = File::Create(folder / "a");
    REQUIRE(file.has_value());
    const std::string bytes("a\nb\r\nc\x1A\0d", 9);
    CHECK(file->Write(Bytes(bytes)));
    CHECK(file->Write({}));
    CHECK(file->Close());
    CHECK(folder.Read("a") == bytes);
    CHECK(ReadWholeFile(folder / "a", 9) == bytes);
}

TEST_CASE("a closed file cannot be closed again") {
    const ScratchFolder folder;
    auto file = File::Create(folder / "a");
    REQUIRE(file.has_value());
    CHECK(file->Close());
    CHECK_FALSE(file->Close());
}

TEST_CASE("a whole file is read up to a limit") {
    const ScratchFolder folder;
    folder.Write("a", "0123456789");
    CHECK(ReadWholeFile(folder / "a", 10) == "0123456789");
    CHECK_FALSE(ReadWholeFile(folder / "a", 9).has_value());
    CHECK_FALSE(ReadWholeFile(folder / "missing", 10).has_value());
    CHECK_FALSE(ReadWholeFile(folder.Path(), 10).has_value());
    folder.Write("empty", "");
    CHECK(ReadWholeFile(folder / "empty", 0) == "");
}

TEST_CASE("a file is replaced as a whole") {
    const ScratchFolder folder;
    CHECK(WriteWholeFile(folder / "a", "first"));
    CHECK(folder.Read("a") == "first");
    CHECK(WriteWholeFile(folder / "a", ""));
    CHECK(folder.Read("a").empty());
    CHECK(WriteWholeFile(folder / "a", "second"));
    CHECK(folder.Read("a") == "second");
    CHECK(folder.Names() == "a");
}

TEST_CASE("a replacement that is not completed leaves the old file and nothing else") {
    const ScratchFolder folder;
    folder.Write("a", "old");
    {
        auto file = AtomicFile::Create(folder / "a");
        REQUIRE(file.has_value());
        CHECK(file->Out().Write(Bytes("half")));
        CHECK(folder.Read("a") == "old");
        CHECK(folder.Names() == "a a.tmp0");
    }
    CHECK(folder.Read("a") == "old");
    CHECK(folder.Names() == "a");
}

TEST_CASE("a replacement shows only when it is committed, also after it was moved") {
    const ScratchFolder folder;
    auto made = AtomicFile::Create(folder / "a");
    REQUIRE(made.has_value());
    AtomicFile file(*std::move(made));
    made.reset();
    CHECK(file.Out().Write(Bytes("new")));
    CHECK_FALSE(fs::exists(folder / "a"));
    CHECK(file.Commit());
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a");
}

TEST_CASE("a write-protected file and a folder are not replaced") {
    const ScratchFolder folder;
    folder.Write("a", "old");
    fs::permissions(folder / "a", fs::perms::owner_write, fs::perm_options::remove);
    CHECK_FALSE(WriteWholeFile(folder / "a", "new"));
    CHECK(folder.Read("a") == "old");
    fs::create_directory(folder / "b");
    CHECK_FALSE(WriteWholeFile(folder / "b", "new"));
    CHECK_FALSE(WriteWholeFile(folder / "missing" / "c", "new"));
    CHECK(folder.Names() == "a b");
}

TEST_CASE("a temporary name never takes a file of the user's") {
    const ScratchFolder folder;
    folder.Write("a.tmp0", "the user's");
    CHECK(WriteWholeFile(folder / "a", "new"));
    CHECK(folder.Read("a.tmp0") == "the user's");
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a a.tmp0");
}

TEST_CASE("a file is deleted even when it is write-protected, and a folder never") {
    const ScratchFolder folder;
    folder.Write("a", "x");
    fs::permissions(folder / "a", fs::perms::owner_write, fs::perm_options::remove);
    DeleteQuietly(folder / "a");
    CHECK_FALSE(fs::exists(folder / "a"));
    DeleteQuietly(folder / "missing");
    fs::create_directory(folder / "b");
    DeleteQuietly(folder / "b");
    CHECK(fs::exists(folder / "b"));
}

TEST_CASE("names may hold any character") {
    const ScratchFolder folder;
    const fs::path name(u8"\u753B\u50CF \U0001F4F7.txt");
    CHECK(WriteWholeFile(folder.Path() / name, "x"));
    CHECK(ReadWholeFile(folder.Path() / name, 1) == "x");
    CHECK(WideText(name) == L"\u753B\u50CF \U0001F4F7.txt");
}
