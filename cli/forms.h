// What can be typed after the program's name: the commands, their options, and the words that explain them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/options.h"

namespace pixora::cli {

struct OptionForm {
    std::string_view name;   ///< without the dashes
    std::string_view value;  ///< what its value looks like
    std::string_view what;
    bool required = false;
};

struct CommandForm {
    Command command;
    bool many_files;
    std::string_view name, what;
    std::string_view example;  ///< without the program's name
    std::span<const OptionForm> options;
};

inline constexpr std::string_view kProgram = "pixora-cli";
inline constexpr std::string_view kHelp = "help", kHelpLetter = "h", kVersion = "version";
/// The one thing that every command takes without an option.
inline constexpr std::string_view kFile = "FILE";

namespace forms {

inline constexpr OptionForm kRegion{"region", "L,T,R,B",
                                    "inclusive, in image pixels; default the whole image"};
inline constexpr OptionForm kPartRegion{"region", "L,T,R,B", "inclusive, in image pixels", true};
inline constexpr OptionForm kValidBits{
    "valid-bits", "auto|8|10|12|14|16",
    "upper bits of a 16-bit sample that carry signal (default: found from the samples)"};
inline constexpr OptionForm kFormat{"format", "text|csv|json", "form of the results (default: text)"};
inline constexpr OptionForm kChannel{"channel", "R|G|B|RGB", "of a colour image (default: RGB)"};
inline constexpr OptionForm kRow{"row", "N", "the row, from 0 at the top"};
inline constexpr OptionForm kColumn{"column", "N", "the column, from 0 at the left"};
inline constexpr OptionForm kCsvOut{"out", "CSV", "the file to write", true};
inline constexpr OptionForm kPartOut{
    "out", "PATH", "the file to write; .tif or .tiff chooses TIFF, anything else BMP", true};
inline constexpr OptionForm kDisplay{"display", "OUT.bmp", "24-bit picture", true};
inline constexpr OptionForm kData{"data", "OUT.bin", "samples of a 16-bit TIFF, scaled to their valid bits"};

inline constexpr OptionForm kInfo[] = {kValidBits, kFormat};
inline constexpr OptionForm kStats[] = {kRegion, kValidBits, kFormat};
inline constexpr OptionForm kHistogram[] = {kCsvOut, kChannel, kRegion, kValidBits};
inline constexpr OptionForm kProfile[] = {kRow, kColumn, kCsvOut, kChannel, kRegion, kValidBits};
inline constexpr OptionForm kSaveRegion[] = {kPartRegion, kPartOut};
inline constexpr OptionForm kConvert[] = {kDisplay, kData, kValidBits};

}  // namespace forms

inline constexpr CommandForm kCommands[] = {
    {Command::info, true, "info", "Tell the format facts of images", "info *.tif --format json",
     forms::kInfo},
    {Command::stats, true, "stats", "Measure minimum, maximum, mean and deviation",
     "stats flat.tif --region 10,10,109,59 --format csv", forms::kStats},
    {Command::histogram, false, "histogram", "Write the histogram of an image",
     "histogram flat.tif --out flat.csv --channel G", forms::kHistogram},
    {Command::profile, false, "profile", "Write the samples along a row or a column",
     "profile edge.tif --row 120 --out edge.csv", forms::kProfile},
    {Command::save_region, false, "save-region", "Save a part of an image as a file of its own",
     "save-region chart.tif --region 0,0,99,99 --out patch.tif", forms::kSaveRegion},
    {Command::convert, false, "convert", "Write the copies of an image that a viewer works with",
     "convert raw.tif --display raw.bmp --data raw.bin", forms::kConvert},
};

/// What `--help` answers, alone and after a command.
[[nodiscard]] std::string ProgramHelp();
[[nodiscard]] std::string CommandHelp(const CommandForm& form);

}  // namespace pixora::cli
