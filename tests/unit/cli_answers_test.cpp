// What is answered instead of working: help, the version, and wrong usage of every kind.
#include <doctest/doctest.h>

#include "cli/options.h"

using namespace pixora;
using namespace pixora::cli;

namespace {

using Words = std::vector<std::string>;

/// What is said instead of working; "?" before wrong usage, of which only the first line is given.
std::string Said(const Words& arguments) {
    const auto parsed = ParseOptions(arguments);
    const Reply* reply = std::get_if<Reply>(&parsed);
    if (!reply) return "(nothing)";
    if (!reply->error) return reply->text;
    const std::string_view name = "pixora-cli: ", hint = "\nTry pixora-cli --help.\n";
    REQUIRE(reply->text.starts_with(name));
    REQUIRE(reply->text.ends_with(hint));
    return "? " + reply->text.substr(name.size(), reply->text.size() - name.size() - hint.size());
}

constexpr std::string_view kProgramHelp =
    R"(Reads and measures the images of a camera: BMP and uncompressed TIFF files.
Usage: pixora-cli [OPTIONS] SUBCOMMAND

Options:
  -h,--help                   Print this help message and exit
  --version                   Display program version information and exit

Subcommands:
  info                        Tell the format facts of images
  stats                       Measure minimum, maximum, mean and deviation
  histogram                   Write the histogram of an image
  profile                     Write the samples along a row or a column
  save-region                 Save a part of an image as a file of its own
  convert                     Write the copies of an image that a viewer works with

pixora-cli COMMAND --help tells more. A name that begins with a dash goes after --.
Exit status: 0 all done; 1 a file was refused, or could not be read or written; 2 wrong usage.
Example: pixora-cli stats *.tif --format json
)";

constexpr std::string_view kInfoHelp = R"(Tell the format facts of images
Usage: pixora-cli info [OPTIONS] FILE...

Positionals:
  FILE ... REQUIRED           BMP or uncompressed TIFF

Options:
  -h,--help                   Print this help message and exit
  --valid-bits auto|8|10|12|14|16
                              upper bits of a 16-bit sample that carry signal (default: found from the samples)
  --format text|csv|json      form of the results (default: text)

Example: pixora-cli info *.tif --format json
)";

constexpr std::string_view kSaveRegionHelp = R"(Save a part of an image as a file of its own
Usage: pixora-cli save-region [OPTIONS] FILE

Positionals:
  FILE REQUIRED               BMP or uncompressed TIFF

Options:
  -h,--help                   Print this help message and exit
  --region L,T,R,B REQUIRED   inclusive, in image pixels
  --out PATH REQUIRED         the file to write; .tif or .tiff chooses TIFF, anything else BMP

Example: pixora-cli save-region chart.tif --region 0,0,99,99 --out patch.tif
)";

}  // namespace

TEST_CASE("the value of an option may be any text") {
    for (const char* value : {"--help", "--", "-1", "-x", "++", "info", "", "[a]", "--out"}) {
        CAPTURE(value);
        const auto parsed = ParseOptions({"histogram", "a", "--out", value});
        REQUIRE(std::holds_alternative<Options>(parsed));
        CHECK(std::get<Options>(parsed).out == value);
    }
}

TEST_CASE("names of files are what is no option, and all that follows two dashes") {
    const auto files = [](const Words& arguments) {
        const auto parsed = ParseOptions(arguments);
        return std::holds_alternative<Options>(parsed) ? std::get<Options>(parsed).files : Words{};
    };
    CHECK(files({"info", "-1", "-", "---", "-!", "-- x"}) == Words{"-1", "-", "---", "-!", "-- x"});
    CHECK(files({"info", "--", "-x", "--help", "--", "++"}) == Words{"-x", "--help", "--", "++"});
    CHECK(files({"info", "info", "stats"}) == Words{"info", "stats"});
    CHECK(files({"info", "a", "--format", "csv", "b", "c"}) == Words{"a", "b", "c"});
    CHECK(files({"histogram", "--out", "c", "--", "-x"}) == Words{"-x"});
    CHECK(files({"info", "a", "--", "-b", "--", "[c]"}) == Words{"a", "-b", "--", "[c]"});
    CHECK(files({"info", "a", "--format", "csv", "--", "--format", "json"}) ==
          Words{"a", "--format", "json"});
    CHECK(files({"histogram", "--out", "--", "--", "--out"}) == Words{"--out"});
    CHECK(files({"histogram", "--out=c", "--", "-a"}) == Words{"-a"});
    CHECK(files({"info", "a", "--"}) == Words{"a"});
    CHECK(Said({"info", "--"}) == Said({"info"}));
    CHECK(Said({"histogram", "--out", "c", "--", "a", "-b"}) == "? there is no place for \"-b\"");
}

TEST_CASE("help is an answer wherever it is asked for") {
    CHECK(Said({"--help"}) == kProgramHelp);
    CHECK(Said({"-h"}) == kProgramHelp);
    CHECK(Said({"bogus", "--help"}) == kProgramHelp);
    CHECK(Said({"--help=no"}) == kProgramHelp);
    CHECK(Said({"--help", "--", "info"}) == kProgramHelp);
    for (const Words& arguments : {Words{"info", "--help"},
                                   {"info", "-h"},
                                   {"info", "-hx"},
                                   {"--help", "info"},
                                   {"info", "a", "--bogus", "-h"},
                                   {"info", "a", "++", "-h"}})
        CHECK(Said(arguments) == kInfoHelp);
    CHECK(Said({"save-region", "--help"}) == kSaveRegionHelp);
    CHECK(Said({"--help", "save-region", "a", "b"}) == kSaveRegionHelp);
    CHECK(Said({"--h"}) == "? there is no option --h");
    CHECK(Said({"info", "a", "--h"}) == "? the command has no option --h");
    CHECK(Said({"info", "a", "-help"}) == kInfoHelp);
}

TEST_CASE("the version is told before anything else is looked at") {
    const std::string version = Said({"--version"});
    CHECK(version.starts_with("pixora-cli "));
    CHECK(version.ends_with("\n"));
    CHECK(version.find('\n') == version.size() - 1);
    for (const Words& arguments : {Words{"--version", "--help"},
                                   {"--version", "info"},
                                   {"bogus", "--version"},
                                   {"info", "a", "++", "--version"}})
        CHECK(Said(arguments) == version);
    for (const char* value : {"yes", "TRUE", "On", "enable", "t", "y", "+", "1", "12", "+7", "1x", "{}", "",
                              "99999999999999999999"}) {
        CAPTURE(value);
        CHECK(Said({"--version=" + std::string(value)}) == version);
    }
    for (const char* value :
         {"no", "False", "off", "disable", "f", "n", "-", "0", "-3", "-99999999999999999999"}) {
        CAPTURE(value);
        CHECK(Said({"--version=" + std::string(value)}) ==
              "? there is no option --version=" + std::string(value));
        CHECK(Said({"--version=" + std::string(value), "info", "a"}) == "(nothing)");
    }
    CHECK(Said({"--version=junk", "info", "a"}) == "? Could not convert: --version = junk");
    CHECK(Said({"--version", "--version=--5", "info", "a"}) == "? Could not convert: --version = true,--5");
    CHECK(Said({"info", "--version"}) == "? FILE is required");
    CHECK(Said({"info", "a", "--version"}) == "? the command has no option --version");
}

TEST_CASE("without a command that is what is wrong") {
    CHECK(Said({}) == "? a command is missing");
    CHECK(Said({""}) == "? a command is missing");
    CHECK(Said({"bogus"}) == "? there is no command bogus");
    CHECK(Said({"Info", "a"}) == "? there is no command Info");
    CHECK(Said({"--format", "csv"}) == "? there is no option --format");
    CHECK(Said({"--", "info", "a"}) == "? there is no option --");
    CHECK(Said({"--help", "--", "info", "--format"}) == "? there is no option --help");
    CHECK(Said({"++", "a"}) == "? there is no command ++");
}

TEST_CASE("what lacks, and what is given twice, is named in the order of the help") {
    CHECK(Said({"info"}) == "? FILE is required");
    CHECK(Said({"save-region", "a"}) == "? --region is required");
    CHECK(Said({"save-region", "a", "--region", "1,2,3,4"}) == "? --out is required");
    CHECK(Said({"convert", "a", "--data", "b"}) == "? --display is required");
    CHECK(Said({"stats", "a", "--region"}) == "? --region: 1 required L,T,R,B missing");
    CHECK(Said({"info", "--valid-bits="}) == "? --valid-bits: 1 required auto|8|10|12|14|16 missing");
    CHECK(Said({"stats", "--format", "a", "--region", "b", "--format", "c", "--region", "d", "--region=e"}) ==
          "? --region: At Most 1 required but received 3");
    CHECK(Said({"info", "--format", "a", "--format", "b", "--help"}) ==
          "? --format: At Most 1 required but received 2");
    CHECK(Said({"info", "--help", "--format"}) == "? --format: 1 required text|csv|json missing");
}

TEST_CASE("what has no place is named, options first") {
    CHECK(Said({"info", "a", "-x"}) == "? the command has no option -x");
    CHECK(Said({"info", "a", "--region", "1,2,3,4"}) == "? the command has no option --region");
    CHECK(Said({"info", "a", "--region=1"}) == "? the command has no option --region=1");
    CHECK(Said({"info", "a", "--FILE", "b"}) == "? the command has no option --FILE");
    CHECK(Said({"histogram", "a", "b", "--bogus", "--out", "c"}) == "? the command has no option --bogus");
    CHECK(Said({"histogram", "a", "[b]", "c", "--out", "c"}) == "? there is no place for \"[b]\"");
    CHECK(Said({"--bogus", "info", "a"}) == "? there is no place for \"\"");
    CHECK(Said({"info", "a", "++", "b"}) == "? there is no place for \"\"");
}
