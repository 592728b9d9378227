#include "base/file.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "tests/unit/support/scratch_folder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

using namespace pixora;
using pixora::test::BytesOf;
using pixora::test::ScratchFolder;

namespace {

namespace fs = std::filesystem;

/// Reads up to `count` bytes from the current position.
std::string Next(File& file, std::size_t count) {
    std::string text(count, '\0');
    text.resize(file.Read(std::as_writable_bytes(std::span(text))));
    return text;
}

/// The first bytes of a file, "(none)" when it cannot be opened.
std::string Content(const fs::path& path) {
    std::optional<File> file = File::OpenForReading(path);
    return file ? Next(*file, 1000) : "(none)";
}

/// A file in `folder` whose name is as long as the system allows.
fs::path LongestPath(const ScratchFolder& folder) {
    std::size_t name_length = 255;
#ifdef _WIN32
    constexpr std::size_t kLongestPath = 259;
    name_length = std::min(name_length, kLongestPath - folder.Path().native().size() - 1);
#endif
    return folder / std::string(name_length, 'n');
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
    CHECK(file->Write(BytesOf(bytes)));
    CHECK(file->Write({}));
    CHECK(file->Close());
    CHECK(folder.Read("a") == bytes);
}

TEST_CASE("bytes are written where the file stands, also before and behind those that are there") {
    const ScratchFolder folder;
    auto file = File::Create(folder / "a");
    REQUIRE(file.has_value());
    CHECK(file->Write(BytesOf("0123")));
    CHECK(file->Size() == 4);
    CHECK(file->Seek(1));
    CHECK(file->Write(BytesOf("xy")));
    CHECK(file->Seek(6));
    CHECK(file->Size() == 4);  // going there alone adds nothing
    File moved(*std::move(file));
    CHECK(moved.Write(BytesOf("z")));
    CHECK(moved.Size() == 7);
    CHECK(moved.ExtendTo(9));
    CHECK(moved.ExtendTo(5));
    CHECK(moved.Close());
    CHECK(folder.Read("a") == std::string("0xy3\0\0z\0\0", 9));
}

TEST_CASE("a file that grows or shrinks while it is open is read as it is now") {
    const ScratchFolder folder;
    folder.Write("a", "0123456789");
    auto file = File::OpenForReading(folder / "a");
    REQUIRE(file.has_value());
    CHECK(Next(*file, 4) == "0123");
    fs::resize_file(folder / "a", 6);
    CHECK(file->Size() == 6);
    CHECK(Next(*file, 4) == "45");
    fs::resize_file(folder / "a", 8);
    CHECK(file->Size() == 8);
    CHECK(Next(*file, 4) == std::string(2, '\0'));
    fs::resize_file(folder / "a", 1);
    CHECK(Next(*file, 4).empty());
}

TEST_CASE("a closed file cannot be closed again") {
    const ScratchFolder folder;
    auto file = File::Create(folder / "a");
    REQUIRE(file.has_value());
    CHECK(file->Close());
    CHECK_FALSE(file->Close());
}

TEST_CASE("blocks are handed on to the end of what is asked for or of the file") {
    const ScratchFolder folder;
    folder.Write("a", "0123456789");
    auto file = File::OpenForReading(folder / "a");
    REQUIRE(file.has_value());
    std::string all;
    const auto take = [&](std::span<const std::byte> got, std::span<const std::byte> whole) {
        for (const std::byte byte : whole) all.push_back(byte == std::byte{} ? '_' : static_cast<char>(byte));
        all += "|" + std::to_string(got.size());
        return true;
    };
    CHECK(file->Seek(2));
    CHECK(ForEachBlock(*file, 4, 4, take));
    CHECK(all == "2345|4");
    all.clear();
    CHECK(ForEachBlock(*file, 40, 8, take));  // four bytes are left, half of a unit
    CHECK(all == "6789____|4");
    all.clear();
    CHECK(ForEachBlock(*file, 8, 4, take));
    CHECK(ForEachBlock(*file, 0, 4, take));
    CHECK(all.empty());
}

TEST_CASE("a long file is handed on in more than one block, until there is enough") {
    const ScratchFolder folder;
    constexpr std::size_t kBytes = 3 * kBlockBytes + 1;
    folder.Write("a", std::string(kBytes, 'x'));
    auto file = File::OpenForReading(folder / "a");
    REQUIRE(file.has_value());
    std::size_t bytes = 0;
    int calls = 0;
    CHECK(ForEachBlock(*file, kBytes, 1, [&](auto got, auto) {
        bytes += got.size();
        ++calls;
        return true;
    }));
    CHECK(bytes == kBytes);
    CHECK(calls == 4);
    CHECK(file->Seek(0));
    CHECK_FALSE(ForEachBlock(*file, kBytes, 1, [&](auto, auto) { return ++calls < 6; }));
    CHECK(calls == 6);
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

TEST_CASE("a file is replaced by what somebody fills it with, or stays when that fails") {
    const ScratchFolder folder;
    CHECK(WriteWholeFile(folder / "a", [](File& file) {
        return file.Write(BytesOf("first ")) && file.Write(BytesOf("second"));
    }));
    CHECK(folder.Read("a") == "first second");
    CHECK_FALSE(WriteWholeFile(folder / "a", [](File& file) { return !file.Write(BytesOf("third")); }));
    CHECK(folder.Read("a") == "first second");
    CHECK(folder.Names() == "a");
}

TEST_CASE("a replacement that is not completed leaves the old file and nothing else") {
    const ScratchFolder folder;
    folder.Write("a", "old");
    {
        auto file = AtomicFile::Create(folder / "a");
        REQUIRE(file.has_value());
        CHECK(file->Out().Write(BytesOf("half")));
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
    CHECK(file.Out().Write(BytesOf("new")));
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

#ifndef _WIN32
TEST_CASE("of a link the file behind it is replaced, and the link stays") {
    const ScratchFolder folder;
    fs::create_directory(folder / "deep");
    folder.Write("deep/a", "old");
    fs::create_symlink(fs::path("deep") / "a", folder / "link");
    fs::create_symlink(folder / "link", folder / "second");
    CHECK(WriteWholeFile(folder / "second", "new"));
    CHECK(folder.Read("deep/a") == "new");
    CHECK(fs::read_symlink(folder / "link") == fs::path("deep") / "a");
    CHECK(fs::read_symlink(folder / "second") == folder / "link");
    fs::create_symlink("fresh", folder / "deep" / "early");  // what it names comes later
    CHECK(WriteWholeFile(folder / "deep" / "early", "made"));
    CHECK(folder.Read("deep/fresh") == "made");
    CHECK(fs::is_symlink(folder / "deep" / "early"));
    CHECK(folder.Names() == "deep link second");
    fs::permissions(folder / "deep" / "a", fs::perms::owner_write, fs::perm_options::remove);
    CHECK_FALSE(WriteWholeFile(folder / "second", "newer"));
    CHECK(folder.Read("deep/a") == "new");
}

TEST_CASE("what is no file is not replaced, named directly or by a link") {
    const ScratchFolder folder;
    REQUIRE(mkfifo((folder / "pipe").c_str(), 0600) == 0);
    fs::create_symlink("pipe", folder / "to pipe");
    fs::create_symlink("round", folder / "round");
    fs::create_symlink(".", folder / "to folder");
    for (const char* name : {"pipe", "to pipe", "round", "to folder"}) {
        CAPTURE(name);
        CHECK_FALSE(AtomicFile::Create(folder / name).has_value());
        CHECK_FALSE(WriteWholeFile(folder / name, "new"));
    }
    CHECK(fs::is_fifo(fs::symlink_status(folder / "pipe")));
    CHECK(folder.Names() == "pipe round to folder to pipe");
}

TEST_CASE("a replacement lets the same users read and write it as the old file did") {
    const ScratchFolder folder;
    folder.Write("a", "old");
    for (const fs::perms rights : {fs::perms(0600), fs::perms(0640), fs::perms(0666), fs::perms(0755)}) {
        fs::permissions(folder / "a", rights);
        {
            auto file = AtomicFile::Create(folder / "a");
            REQUIRE(file.has_value());
            CHECK(fs::status(folder / "a.tmp0").permissions() == rights);  // at no time more than that
            CHECK(file->Commit());
        }
        CHECK(fs::status(folder / "a").permissions() == rights);
    }
    CHECK(WriteWholeFile(folder / "new", "x"));
    folder.Write("usual", "x");
    CHECK(fs::status(folder / "new").permissions() == fs::status(folder / "usual").permissions());
}
#endif

TEST_CASE("a temporary name never takes a file of the user's") {
    const ScratchFolder folder;
    folder.Write("a.tmp0", "the user's");
    CHECK(WriteWholeFile(folder / "a", "new"));
    CHECK(folder.Read("a.tmp0") == "the user's");
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a a.tmp0");
}

TEST_CASE("a file of the longest possible name is replaced too") {
    const ScratchFolder folder;
    const fs::path path = LongestPath(folder);
    CHECK(WriteWholeFile(path, "first"));
    CHECK(Content(path) == "first");
    CHECK(WriteWholeFile(path, "second"));
    CHECK(Content(path) == "second");
    CHECK(folder.Names() == path.filename().string());
}

TEST_CASE("a file that another program holds open is replaced or stays as it is, as the system allows") {
    const ScratchFolder folder;
    std::ifstream holder(folder.Write("a", "old"), std::ios::binary);
    REQUIRE(holder.is_open());
#ifdef _WIN32
    CHECK_FALSE(WriteWholeFile(folder / "a", "new"));
    CHECK(folder.Read("a") == "old");
    DeleteQuietly(folder / "a");
    CHECK(folder.Names() == "a");
#else
    CHECK(WriteWholeFile(folder / "a", "new"));
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a");
#endif
}

TEST_CASE("a file that another program opens for a moment is replaced") {
    const ScratchFolder folder;
    std::ifstream holder(folder.Write("a", "old"), std::ios::binary);
    REQUIRE(holder.is_open());
    std::thread scanner([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        holder.close();
    });
    CHECK(WriteWholeFile(folder / "a", "new"));
    scanner.join();
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a");
}

TEST_CASE("what interrupted replacements left is deleted, and nothing else") {
    const ScratchFolder folder;
    for (const char* name : {"Pixora.ini", "Pixora.ini.tmp0", "Pixora.ini.tmp1", "Pixor.tmp0",
                             "Pixora.ini.tmp", "Pixora.ini.tmpx", "Other.ini.tmp0"})
        folder.Write(name, "x");
    DeleteInterruptedReplacements(folder / "Pixora.ini");
    CHECK(folder.Names() == "Other.ini.tmp0 Pixora.ini Pixora.ini.tmp Pixora.ini.tmpx");
    fs::create_directory(folder / "Pixora.ini.tmp0");
    folder.Write("Pixora.ini.tmp1", "x");
    DeleteInterruptedReplacements(folder / "Pixora.ini");
    CHECK(folder.Names() == "Other.ini.tmp0 Pixora.ini Pixora.ini.tmp Pixora.ini.tmp0 Pixora.ini.tmpx");
    DeleteInterruptedReplacements(folder / "missing" / "a");
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
    CHECK(Content(folder.Path() / name) == "x");
    CHECK(WideText(name) == L"\u753B\u50CF \U0001F4F7.txt");
}
