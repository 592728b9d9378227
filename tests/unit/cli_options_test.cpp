#include "cli/options.h"

#include <doctest/doctest.h>

using namespace pixora;
using namespace pixora::cli;

namespace {

Options Parsed(const std::vector<std::string>& arguments) {
    const auto parsed = ParseOptions(arguments);
    const Reply* reply = std::get_if<Reply>(&parsed);
    REQUIRE_MESSAGE(!reply, reply->text);
    return std::get<Options>(parsed);
}

// The first line of what is said of wrong usage, without the program's name.
std::string Complaint(const std::vector<std::string>& arguments) {
    const auto parsed = ParseOptions(arguments);
    REQUIRE(std::holds_alternative<Reply>(parsed));
    const Reply& reply = std::get<Reply>(parsed);
    CHECK(reply.error);
    const std::string_view name = "pixora-cli: ";
    REQUIRE(reply.text.starts_with(name));
    return reply.text.substr(name.size(), reply.text.find('\n') - name.size());
}

}  // namespace

TEST_CASE("a region is four plain numbers with commas, its edges in order") {
    CHECK(ParseRegion("1,2,3,4") == Region{1, 2, 3, 4});
    CHECK(ParseRegion("0,0,0,0") == Region{0, 0, 0, 0});
    CHECK(ParseRegion("007,0,999999999,0") == Region{7, 0, 999999999, 0});
    for (const char* text : {"", "1", "1,2,3", "1,2,3,", ",1,2,3", "1,2,3,4,", "1,2,3,4,5", "1,2,,4",
                             " 1,2,3,4", "1,2,3,4 ", "-1,2,3,4", "+1,2,3,4", "1,2,3,0x4", "1.0,2,3,4",
                             "1;2;3;4", "4,2,3,4", "1,5,3,4", "1,2,3,1000000000"}) {
        CAPTURE(text);
        CHECK_FALSE(ParseRegion(text).has_value());
    }
}

TEST_CASE("options take their defaults from what is usual") {
    const Options options = Parsed({"stats", "a.tif", "b.tif"});
    CHECK(options.command == Command::stats);
    CHECK(options.files == std::vector<std::string>{"a.tif", "b.tif"});
    CHECK_FALSE(options.region.has_value());
    CHECK(options.auto_bit == L"ON");
    CHECK(options.format == Format::text);
    CHECK(options.channel == 4);
}

TEST_CASE("options may stand anywhere after the command") {
    const Options options = Parsed({"profile", "--row=7", "a.tif", "--channel", "G", "--out", "o.csv",
                                    "--valid-bits", "12", "--region", "1,2,3,4"});
    CHECK(options.command == Command::profile);
    CHECK(options.files == std::vector<std::string>{"a.tif"});
    CHECK(options.kind == ProfileKind::horizontal);
    CHECK(options.line == 7);
    CHECK(options.channel == 2);
    CHECK(options.out == "o.csv");
    CHECK(options.valid_bits == L"12");
    CHECK(options.auto_bit == L"OFF");
    CHECK(options.region == Region{1, 2, 3, 4});
    CHECK(Parsed({"profile", "a", "--out", "o", "--column", "9"}).kind == ProfileKind::vertical);
    CHECK(Parsed({"histogram", "a", "--out", "o", "--channel", "R"}).channel == 1);
    CHECK(Parsed({"histogram", "a", "--out", "o", "--channel", "B"}).channel == 3);
    CHECK(Parsed({"info", "a", "--valid-bits", "auto"}).auto_bit == L"ON");
    CHECK(Parsed({"info", "a", "--format", "csv"}).format == Format::csv);
    CHECK(Parsed({"convert", "a", "--display", "b", "--data", "c"}).data == "c");
    CHECK(Parsed({"save-region", "a", "--region", "0,0,1,1", "--out", "b"}).command == Command::save_region);
}

TEST_CASE("names of files come through as they are typed") {
    for (const char* name : {"[a]", "[a,b]", "[]", "[", "a b", "\xE6\x97\xA5", "stats", "convert", "'a'",
                             "\"a\"", "a=b", "/a", "/help", "@a", "%a%", "1"}) {
        CAPTURE(name);
        CHECK(Parsed({"info", name}).files == std::vector<std::string>{name});
        CHECK(Parsed({"info", "x", name, name}).files == std::vector<std::string>{"x", name, name});
        CHECK(Parsed({"histogram", name, "--out", name}).out == name);
    }
    for (const char* name : {"-a", "--format", "--", "-"}) {
        CAPTURE(name);
        CHECK(Parsed({"info", "--", name}).files == std::vector<std::string>{name});
    }
}

TEST_CASE("wrong usage is told in one line") {
    CHECK(Complaint({}) == "a command is missing");
    CHECK(Complaint({"bogus"}) == "there is no command bogus");
    CHECK(Complaint({"--bogus"}) == "there is no option --bogus");
    CHECK(Complaint({"info"}) == "FILE is required");
    CHECK(Complaint({"info", ""}) == "the name of a file is empty");
    CHECK(Complaint({"info", "a", "--format", "xml"}) == "--format takes text, csv or json, not \"xml\"");
    CHECK(Complaint({"info", "a", "--valid-bits", "9"}) ==
          "--valid-bits takes auto, 8, 10, 12, 14 or 16, not \"9\"");
    CHECK(Complaint({"histogram", "a", "--out", "b", "--channel", "r"}) ==
          "--channel takes R, G, B or RGB, not \"r\"");
    CHECK(Complaint({"stats", "a", "--region", "1,2,3"}) ==
          "--region takes left,top,right,bottom in pixels, not \"1,2,3\"");
    CHECK(Complaint({"stats", "a", "--region", ""}) ==
          "--region takes left,top,right,bottom in pixels, not \"\"");
    CHECK(Complaint({"profile", "a", "--out", "b"}) == "either --row or --column must be given");
    CHECK(Complaint({"profile", "a", "--out", "b", "--row", "1", "--column", "1"}) ==
          "either --row or --column must be given");
    CHECK(Complaint({"profile", "a", "--out", "b", "--row", "x"}) == "--row takes a whole number, not \"x\"");
    CHECK(Complaint({"info", "a", "--format", "[x]"}) == "--format takes text, csv or json, not \"[x]\"");
    CHECK(Complaint({"info", "a", "--valid-bits", "[8]"}) ==
          "--valid-bits takes auto, 8, 10, 12, 14 or 16, not \"[8]\"");
    CHECK(Complaint({"histogram", "a", "--out", "b", "--channel", "[R]"}) ==
          "--channel takes R, G, B or RGB, not \"[R]\"");
    CHECK(Complaint({"stats", "a", "--region", "[1,2,3,4]"}) ==
          "--region takes left,top,right,bottom in pixels, not \"[1,2,3,4]\"");
    CHECK(Complaint({"profile", "a", "--out", "b", "--column", "[0]"}) ==
          "--column takes a whole number, not \"[0]\"");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"info", "a", "--region", "0,0,0,0"},
          {"info", "a", "--bogus"},
          {"stats", "a", "--region", "0,0,0,0", "--region", "0,0,0,0"},
          {"histogram", "a"},
          {"histogram", "a", "b", "--out", "c"},
          {"save-region", "a", "--out", "b"},
          {"convert", "a"},
          {"info", "a", "-x"},
          {"stats", "a", "--format"}})
        CHECK_FALSE(Complaint(arguments).empty());
}

TEST_CASE("help and version are answers, not complaints") {
    const auto answer = [](const std::vector<std::string>& arguments) {
        const auto parsed = ParseOptions(arguments);
        REQUIRE(std::holds_alternative<Reply>(parsed));
        CHECK_FALSE(std::get<Reply>(parsed).error);
        return std::get<Reply>(parsed).text;
    };
    CHECK(answer({"--version"}).starts_with("pixora-cli "));
    CHECK(answer({"--help"}).find("save-region") != std::string::npos);
    for (const char* command : {"info", "stats", "histogram", "profile", "save-region", "convert"}) {
        CAPTURE(command);
        const std::string text = answer({command, "--help"});
        CHECK(text.find("Usage: pixora-cli " + std::string(command)) != std::string::npos);
        CHECK(text.find("Example: pixora-cli " + std::string(command)) != std::string::npos);
    }
}

TEST_CASE("what is too much in a call is named") {
    CHECK(Complaint({"convert", "a.tif", "--display", "b.bmp", "--region", "0,0,1,1"}) ==
          "the command has no option --region");
    CHECK(Complaint({"histogram", "a.tif", "b.tif", "--out", "c"}) == "there is no place for \"b.tif\"");
    CHECK(Complaint({"histogram", "a.tif", "[b]", "--out", "c"}) == "there is no place for \"[b]\"");
}
