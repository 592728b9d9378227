#include "cli/forms.h"

#include <algorithm>

#include "cli/concat.h"

namespace pixora::cli {
namespace {

constexpr std::string_view kExitStatus =
    "Exit status: 0 all done; 1 a file was refused, or could not be read or written; 2 wrong usage.";

// A line of a list. An entry that reaches into the column of the explanations has a line of its own.
std::string Line(std::string_view entry, std::string_view what) {
    constexpr std::size_t kColumn = 30;
    std::string line = Concat({"  ", entry});
    if (line.size() >= kColumn) line += '\n' + std::string(kColumn, ' ');
    line.resize(std::max(line.size(), kColumn), ' ');
    return Concat({line, what, "\n"});
}

std::string HelpLine() {
    return Line(Concat({"-", kHelpLetter, ",--", kHelp}), "Print this help message and exit");
}

}  // namespace

std::string ProgramHelp() {
    std::string text = Concat(
        {"Reads and measures the images of a camera: BMP and uncompressed TIFF files.\n", "Usage: ", kProgram,
         " [OPTIONS] SUBCOMMAND\n\nOptions:\n", HelpLine(),
         Line(Concat({"--", kVersion}), "Display program version information and exit"), "\nSubcommands:\n"});
    for (const CommandForm& form : kCommands) text += Line(form.name, form.what);
    return Concat({text, "\n", kProgram,
                   " COMMAND --help tells more. A name that begins with a dash goes after --.\n", kExitStatus,
                   "\nExample: ", kProgram, " stats *.tif --format json\n"});
}

std::string CommandHelp(const CommandForm& form) {
    std::string text =
        Concat({form.what, "\nUsage: ", kProgram, " ", form.name, " [OPTIONS] ", kFile,
                form.many_files ? "..." : "", "\n\nPositionals:\n",
                Line(Concat({kFile, form.many_files ? " ..." : "", " REQUIRED"}), "BMP or uncompressed TIFF"),
                "\nOptions:\n", HelpLine()});
    for (const OptionForm& option : form.options)
        text += Line(Concat({"--", option.name, " ", option.value, option.required ? " REQUIRED" : ""}),
                     option.what);
    return Concat({text, "\nExample: ", kProgram, " ", form.example, "\n"});
}

}  // namespace pixora::cli
