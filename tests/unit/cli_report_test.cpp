#include "cli/report.h"

#include <doctest/doctest.h>

#include "cli/console.h"
#include "cli/paths.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using namespace pixora::cli;
using pixora::test::ScratchFolder;

TEST_CASE("a number is written as the shortest decimal that reads back") {
    CHECK(ShortestText(0) == "0");
    CHECK(ShortestText(2) == "2");
    CHECK(ShortestText(0.1) == "0.1");
    CHECK(ShortestText(1.0 / 3) == "0.3333333333333333");
    CHECK(ShortestText(65535) == "65535");
    CHECK(ShortestText(2.0000000000000004) == "2.0000000000000004");
    CHECK(ShortestText(5e-324) == "5e-324");
    CHECK(ShortestText(9007199254740993.0) == "9007199254740992");
}

TEST_CASE("a JSON text is quoted and is always UTF-8") {
    const auto json = [](std::string_view text) { return JsonObject({TextField("t", text)}); };
    CHECK(json("a") == R"({"t":"a"})");
    CHECK(json("a\"b\\c\n\r\t/") == R"({"t":"a\"b\\c\n\r\t/"})");
    CHECK(json({"\0\x1f\x7f", 3}) == "{\"t\":\"\\u0000\\u001F\x7f\"}");
    CHECK(json("\xE6\x97\xA5/") == "{\"t\":\"\xE6\x97\xA5/\"}");
    CHECK(json("a\xFF") == "{\"t\":\"a\xEF\xBF\xBD\"}");
}

TEST_CASE("a CSV field is quoted only when it must be") {
    CHECK(CsvField("a b") == "a b");
    CHECK(CsvField("a,b") == "\"a,b\"");
    CHECK(CsvField("a\"b") == "\"a\"\"b\"");
    CHECK(CsvField("a\nb") == "\"a\nb\"");
    CHECK(CsvField("") == "");
}

TEST_CASE("fields keep their order") {
    const std::vector<Field> fields = {TextField("z", "1,2"),
                                       NumberField("a", -5),
                                       TruthField("m", true),
                                       {"mean", ShortestText(2.0000000000000004)}};
    CHECK(JsonObject(fields) == R"({"z":"1,2","a":-5,"m":true,"mean":2.0000000000000004})");
    CHECK(CsvHeader(fields) == "z,a,m,mean\n");
    CHECK(CsvLine(fields) == "\"1,2\",-5,true,2.0000000000000004\n");
    CHECK(JsonObject({}) == "{}");
}

TEST_CASE("wildcards stand for any text and for any character") {
    CHECK(Matches(L"a.tif", L"*"));
    CHECK(Matches(L"a.tif", L"*.tif"));
    CHECK(Matches(L"A.TIF", L"a*.tif"));
    CHECK(Matches(L"abc", L"a?c"));
    CHECK(Matches(L"aXbXc", L"a*b*c"));
    CHECK(Matches(L"aaab", L"*a*ab"));
    CHECK(Matches(L"", L"*"));
    CHECK(Matches(L"a", L"a**"));
    CHECK_FALSE(Matches(L"a.tiff", L"*.tif"));
    CHECK_FALSE(Matches(L"ac", L"a?c"));
    CHECK_FALSE(Matches(L"", L"?"));
    CHECK_FALSE(Matches(L"ab", L"a"));
    CHECK_FALSE(Matches(L"a", L"ab"));
}

TEST_CASE("names with wildcards become the files that fit, sorted; others stay") {
    const ScratchFolder folder;
    for (const char* name : {"b.tif", "a.tif", "c.bmp"}) static_cast<void>(folder.Write(name, ""));
    std::filesystem::create_directory(folder / "d.tif");
    const std::string at = folder.Path().string() + "/";
    CHECK(
        Expanded({at + "*.tif", "x", at + "?.bmp", at + "*.png", at + "a.tif"}) ==
        std::vector<std::string>{at + "a.tif", at + "b.tif", "x", at + "c.bmp", at + "*.png", at + "a.tif"});
    CHECK(Expanded({at + "missing/*"}) == std::vector<std::string>{at + "missing/*"});
}

TEST_CASE("two names of one file are known as such") {
    const ScratchFolder folder;
    static_cast<void>(folder.Write("a", ""));
    const std::string at = folder.Path().string() + "/";
    CHECK(SameFile(at + "a", at + "./a"));
    CHECK(SameFile(at + "new", at + "x/../new"));
    CHECK_FALSE(SameFile(at + "a", at + "b"));
    CHECK_FALSE(SameFile(at + "new", at + "newer"));
}

TEST_CASE("a pending file appears when it is complete, and goes away otherwise") {
    const ScratchFolder folder;
    static_cast<void>(folder.Write("a", "old"));
    {
        auto pending = PendingFile::For(folder / "a");
        REQUIRE(pending.has_value());
        static_cast<void>(folder.Write(pending->Name().filename().string(), "new"));
        CHECK(folder.Read("a") == "old");
    }
    CHECK(folder.Names() == "a");
    CHECK(folder.Read("a") == "old");
    auto pending = PendingFile::For(folder / "a");
    REQUIRE(pending.has_value());
    static_cast<void>(folder.Write(pending->Name().filename().string(), "new"));
    CHECK(pending->Commit());
    CHECK(folder.Read("a") == "new");
    CHECK(folder.Names() == "a");
    CHECK_FALSE(PendingFile::For(folder.Path()).has_value());
    CHECK_FALSE(PendingFile::For(folder.Path() / "missing" / "a").has_value());
}

#ifndef _WIN32
TEST_CASE("a pending file takes the place of the file behind a link, with the rights of that") {
    namespace fs = std::filesystem;
    const ScratchFolder folder;
    fs::create_directory(folder / "deep");
    static_cast<void>(folder.Write("deep/a", "old"));
    fs::permissions(folder / "deep" / "a", fs::perms(0600));
    fs::create_symlink(fs::path("deep") / "a", folder / "link");
    auto pending = PendingFile::For(folder / "link");
    REQUIRE(pending.has_value());
    CHECK(pending->Name().parent_path() == folder / "deep");
    static_cast<void>(folder.Write("deep/" + pending->Name().filename().string(), "new"));
    CHECK(pending->Commit());
    CHECK(folder.Read("deep/a") == "new");
    CHECK(fs::status(folder / "deep" / "a").permissions() == fs::perms(0600));
    CHECK(fs::is_symlink(folder / "link"));
    CHECK(folder.Names() == "deep link");
}
#endif

namespace {

struct FakeStreams final : Streams {
    bool WriteOut(std::string_view bytes) override {
        out += bytes;
        all += bytes;
        ++out_writes;
        return !broken;
    }
    void WriteError(std::string_view bytes) override {
        error += bytes;
        all += bytes;
    }
    [[nodiscard]] bool OutIsTerminal() const override { return terminal; }
    [[nodiscard]] bool ErrorIsTerminal() const override { return terminal; }
    std::string out, error, all;
    int out_writes = 0;
    bool terminal = false, broken = false;
};

}  // namespace

TEST_CASE("the progress bar fills up") {
    CHECK(ProgressBar(0, 10) == "[..............................] 0% 0/10");
    CHECK(ProgressBar(5, 10) == "[###############...............] 50% 5/10");
    CHECK(ProgressBar(10, 10) == "[##############################] 100% 10/10");
}

TEST_CASE("results are written in large pieces, messages at once") {
    FakeStreams streams;
    Console console(streams);
    console.Out("a\n");
    console.Out("b\n");
    console.Progress(1, 5);
    console.Error("wrong");
    CHECK(streams.all == "wrong\n");
    CHECK(console.Finish());
    CHECK(streams.out == "a\nb\n");
    CHECK(streams.out_writes == 1);
}

TEST_CASE("on a terminal the bar makes room for every line and is gone in the end") {
    FakeStreams streams;
    streams.terminal = true;
    Console console(streams);
    console.Progress(0, 1);
    CHECK(streams.all.empty());
    console.Progress(0, 2);
    const std::string bar = "\r[..............................] 0% 0/2";
    CHECK(streams.all == bar);
    console.Progress(1, 2);  // too soon
    CHECK(streams.all == bar);
    console.Out("a\n");
    const std::string gone = "\r" + std::string(bar.size() - 1, ' ') + "\r";
    CHECK(streams.all == bar + gone + "a\n");
    console.Progress(1, 2);
    console.Error("b");
    CHECK(streams.all.ends_with("50% 1/2\r" + std::string(38 + 2, ' ') + "\rb\n"));
    console.Progress(1, 2);
    CHECK(console.Finish());
    CHECK(streams.all.ends_with(" \r"));
}

TEST_CASE("results that are lost are told") {
    FakeStreams streams;
    streams.broken = true;
    Console console(streams);
    CHECK(console.Finish());
    console.Out("a\n");
    CHECK_FALSE(console.Finish());
}
