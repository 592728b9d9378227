// Files that stand in each other's way: taken names, several runs at a moment, pipes.
#include <doctest/doctest.h>

#include <filesystem>
#include <string_view>

#include "base/file.h"
#include "tests/unit/support/scratch_folder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

using namespace pixora;
using pixora::test::BytesOf;
using pixora::test::ScratchFolder;

namespace {

namespace fs = std::filesystem;

}  // namespace

TEST_CASE("a new file is made only under a name that nothing has") {
    const ScratchFolder folder;
    bool taken = true;
    {
        auto file = File::CreateNew(folder / "a", taken);
        REQUIRE(file.has_value());
        CHECK_FALSE(taken);
        CHECK(file->Write(BytesOf("line\n")));
    }
    CHECK_FALSE(File::CreateNew(folder / "a", taken).has_value());
    CHECK(taken);
    CHECK(folder.Read("a") == "line\n");
    CHECK_FALSE(File::CreateNew(folder / "missing" / "a", taken).has_value());
    CHECK_FALSE(taken);
}

TEST_CASE("two replacements of one file at the same moment do not meet") {
    const ScratchFolder folder;
    auto first = AtomicFile::Create(folder / "a"), second = AtomicFile::Create(folder / "a");
    REQUIRE(first.has_value());
    REQUIRE(second.has_value());
    CHECK(first->Out().Write(BytesOf("first")));
    CHECK(second->Out().Write(BytesOf("second")));
    CHECK(first->Commit());
    CHECK(folder.Read("a") == "first");
    CHECK(second->Commit());
    CHECK(folder.Read("a") == "second");
    CHECK(folder.Names() == "a");
}

#ifndef _WIN32
TEST_CASE("a link to nowhere that has a temporary name is not followed") {
    const ScratchFolder folder;
    fs::create_symlink("made", folder / "a.tmp0");
    CHECK(WriteWholeFile(folder / "a", "new"));
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a a.tmp0");
}

TEST_CASE("a pipe cannot be opened for reading, and nobody waits for it") {
    const ScratchFolder folder;
    REQUIRE(mkfifo((folder / "pipe").c_str(), 0600) == 0);
    fs::create_symlink("pipe", folder / "to pipe");
    CHECK_FALSE(File::OpenForReading(folder / "pipe").has_value());
    CHECK_FALSE(File::OpenForReading(folder / "to pipe").has_value());
    fs::create_symlink(folder.Write("file", "bytes"), folder / "to file");
    CHECK(File::OpenForReading(folder / "to file").has_value());
}
#endif
