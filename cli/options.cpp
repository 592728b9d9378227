#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>

#include "base/utf8.h"
#include "cli/concat.h"

namespace pixora::cli {
namespace {

constexpr std::string_view kMark = "\x01";

constexpr std::string_view kVersionFlag = "--version", kVersionText = "pixora-cli " PIXORA_VERSION;
constexpr std::string_view kExitStatus =
    "Exit status: 0 all done; 1 a file was refused, or could not be read or written; 2 wrong usage.";

// The parser takes a text in brackets for a list; it must come through whole, as a name and in a complaint.
bool LooksLikeList(std::string_view text) {
    return text.size() >= 2 && text.front() == '[' && text.back() == ']';
}
std::string Marked(const std::string& text) {
    return Concat({kMark, text});
}
std::string Protected(const std::string& text) {
    return LooksLikeList(text) || text.starts_with(kMark) ? Marked(text) : text;
}
std::string Plain(const std::string& text) {
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

// What is typed, before it is looked at more closely.
struct Typed {
    std::string region, valid_bits = "auto", format = "text", channel = "RGB", out, data;
    std::string row, column;

    void TakeMarksOff() {
        for (std::string* text : {&region, &valid_bits, &format, &channel, &out, &data, &row, &column})
            *text = Plain(*text);
    }
};

void AddFiles(::CLI::App& command, bool many) {
    command.add_option("FILE", "BMP or uncompressed TIFF")
        ->required()
        ->expected(1, many ? ::CLI::detail::expected_max_vector_size : 1)
        ->allow_extra_args(many)
        ->type_name("");
}

void AddRegion(::CLI::App& command, Typed& typed) {
    command.add_option("--region", typed.region, "inclusive, in image pixels; default the whole image")
        ->type_name("L,T,R,B");
}

void AddValidBits(::CLI::App& command, Typed& typed) {
    command
        .add_option("--valid-bits", typed.valid_bits,
                    "upper bits of a 16-bit sample that carry signal (default: found from the samples)")
        ->type_name("auto|8|10|12|14|16");
}

void AddFormat(::CLI::App& command, Typed& typed) {
    command.add_option("--format", typed.format, "form of the results (default: text)")
        ->type_name("text|csv|json");
}

void AddChannel(::CLI::App& command, Typed& typed) {
    command.add_option("--channel", typed.channel, "of a colour image (default: RGB)")
        ->type_name("R|G|B|RGB");
}

void AddOut(::CLI::App& command, Typed& typed, const char* what, const char* type) {
    command.add_option("--out", typed.out, what)->required()->type_name(type);
}

void AddInfo(::CLI::App& info, Typed& typed) {
    AddFiles(info, true);
    AddValidBits(info, typed);
    AddFormat(info, typed);
}

void AddStats(::CLI::App& stats, Typed& typed) {
    AddFiles(stats, true);
    AddRegion(stats, typed);
    AddValidBits(stats, typed);
    AddFormat(stats, typed);
}

void AddHistogram(::CLI::App& histogram, Typed& typed) {
    AddFiles(histogram, false);
    AddOut(histogram, typed, "the file to write", "CSV");
    AddChannel(histogram, typed);
    AddRegion(histogram, typed);
    AddValidBits(histogram, typed);
}

void AddProfile(::CLI::App& profile, Typed& typed) {
    AddFiles(profile, false);
    profile.add_option("--row", typed.row, "the row, from 0 at the top")->type_name("N");
    profile.add_option("--column", typed.column, "the column, from 0 at the left")->type_name("N");
    AddOut(profile, typed, "the file to write", "CSV");
    AddChannel(profile, typed);
    AddRegion(profile, typed);
    AddValidBits(profile, typed);
}

void AddSaveRegion(::CLI::App& save, Typed& typed) {
    AddFiles(save, false);
    AddRegion(save, typed);
    save.get_option("--region")->required()->description("inclusive, in image pixels");
    AddOut(save, typed, "the file to write; .tif or .tiff chooses TIFF, anything else BMP", "PATH");
}

void AddConvert(::CLI::App& convert, Typed& typed) {
    AddFiles(convert, false);
    convert.add_option("--display", typed.out, "24-bit picture")->required()->type_name("OUT.bmp");
    convert.add_option("--data", typed.data, "samples of a 16-bit TIFF, scaled to their valid bits")
        ->type_name("OUT.bin");
    AddValidBits(convert, typed);
}

struct CommandForm {
    Command command;
    std::string_view name, what, example;
    void (*add_options)(::CLI::App&, Typed&);
};

constexpr CommandForm kCommands[] = {
    {Command::info, "info", "Tell the format facts of images", "info *.tif --format json", AddInfo},
    {Command::stats, "stats", "Measure minimum, maximum, mean and deviation",
     "stats flat.tif --region 10,10,109,59 --format csv", AddStats},
    {Command::histogram, "histogram", "Write the histogram of an image",
     "histogram flat.tif --out flat.csv --channel G", AddHistogram},
    {Command::profile, "profile", "Write the samples along a row or a column",
     "profile edge.tif --row 120 --out edge.csv", AddProfile},
    {Command::save_region, "save-region", "Save a part of an image as a file of its own",
     "save-region chart.tif --region 0,0,99,99 --out patch.tif", AddSaveRegion},
    {Command::convert, "convert", "Write the copies of an image that a viewer works with",
     "convert raw.tif --display raw.bmp --data raw.bin", AddConvert},
};

bool IsCommand(std::string_view text) {
    return std::ranges::count(kCommands, text, &CommandForm::name) > 0;
}

// A call that begins with a command can have no other one, so that one alone is made for it.
void AddCommands(::CLI::App& program, std::string_view first, Typed& typed) {
    const bool named = IsCommand(first);
    for (const CommandForm& form : kCommands) {
        if (named && form.name != first) continue;
        ::CLI::App& command = *program.add_subcommand(std::string(form.name), std::string(form.what));
        command.footer(Concat({"Example: pixora-cli ", form.example}));
        command.allow_windows_style_options(false);
        form.add_options(command, typed);
    }
}

void MakeProgram(::CLI::App& program, std::string_view first, Typed& typed) {
    program.allow_windows_style_options(false);
    program.set_version_flag(std::string(kVersionFlag), std::string(kVersionText));
    program.require_subcommand(1);
    program.footer(
        std::string("pixora-cli COMMAND --help tells more. A name that begins with a dash goes after --.\n") +
        std::string(kExitStatus) + "\nExample: pixora-cli stats *.tif --format json");
    AddCommands(program, first, typed);
}

Reply VersionReply() {
    return {Concat({kVersionText, "\n"})};
}

Reply HelpReply(const ::CLI::App& program, const ::CLI::App* command) {
    return {command ? command->help("pixora-cli") : program.help()};
}

// The answer to a call that asks for nothing else. The parser throws its answers, and the first throw takes
// twice as long as all the rest of such a call.
std::optional<Reply> PlainAnswer(const ::CLI::App& program, const std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments.size() > 2) return std::nullopt;
    const std::string &first = arguments.front(), &last = arguments.back();
    const bool alone = arguments.size() == 1;
    if (alone && last == kVersionFlag) return VersionReply();
    if (last != "--help" && last != "-h") return std::nullopt;
    if (alone) return HelpReply(program, nullptr);
    if (!IsCommand(first)) return std::nullopt;
    return HelpReply(program, program.get_subcommand(first));
}

// Wrong usage that the parser itself does not see.
struct Wrong {
    std::string what;
};

template <std::size_t kCount>
int ChoiceOf(std::string_view option, const std::string& typed,
             const std::array<std::string_view, kCount>& choices) {
    const auto found = std::ranges::find(choices, std::string_view(typed));
    if (found != choices.end()) return static_cast<int>(found - choices.begin());
    std::string what = std::string(option) + " takes ";
    for (std::size_t i = 0; i < kCount; ++i)
        what += (i == 0 ? "" : i + 1 < kCount ? ", " : " or ") + std::string(choices[i]);
    throw Wrong{what + ", not \"" + typed + "\""};
}

// @return nothing when no plain number of at most nine digits stands there.
std::optional<int> ParseNumber(std::string_view text) {
    int value = 0;
    const bool digits = !text.empty() && text.size() <= 9 &&
                        std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    if (!digits) return std::nullopt;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

void TakeLine(const ::CLI::App& command, const Typed& typed, Options& options) {
    const bool row = command.count("--row") > 0, column = command.count("--column") > 0;
    if (row == column) throw Wrong{"either --row or --column must be given"};
    const std::string& text = row ? typed.row : typed.column;
    const std::optional<int> line = ParseNumber(text);
    if (!line)
        throw Wrong{std::string(row ? "--row" : "--column") + " takes a whole number, not \"" + text + "\""};
    options.kind = row ? ProfileKind::horizontal : ProfileKind::vertical;
    options.line = *line;
}

Options TakeOptions(const ::CLI::App& program, const Typed& typed) {
    constexpr std::array<std::string_view, 6> kBits = {"auto", "8", "10", "12", "14", "16"};
    constexpr std::array<std::string_view, 3> kFormats = {"text", "csv", "json"};
    constexpr std::array<std::string_view, 4> kChannels = {"R", "G", "B", "RGB"};
    const ::CLI::App& command = *program.get_subcommands().front();
    Options options;
    options.command = std::ranges::find(kCommands, command.get_name(), &CommandForm::name)->command;
    for (const std::string& file : command.get_option("FILE")->results())
        options.files.push_back(Plain(file));
    if (std::ranges::count(options.files, "") > 0) throw Wrong{"the name of a file is empty"};
    const bool has_region = !command
                                 .get_options([](const ::CLI::Option* option) {
                                     return option->check_lname("region") && option->count() > 0;
                                 })
                                 .empty();
    if (has_region) {
        options.region = ParseRegion(typed.region);
        if (!options.region)
            throw Wrong{"--region takes left,top,right,bottom in pixels, not \"" + typed.region + "\""};
    }
    if (ChoiceOf("--valid-bits", typed.valid_bits, kBits) != 0) {
        options.valid_bits = WideFromUtf8(typed.valid_bits);
        options.auto_bit = L"OFF";
    }
    options.format = static_cast<Format>(ChoiceOf("--format", typed.format, kFormats));
    options.channel = kRed + ChoiceOf("--channel", typed.channel, kChannels);
    if (options.command == Command::profile) TakeLine(command, typed, options);
    options.out = typed.out;
    options.data = typed.data;
    return options;
}

// Said when no command was found.
std::string NoCommandText(const std::string& first) {
    if (first.empty()) return "a command is missing";
    return Concat({"there is no ", first.front() == '-' ? "option " : "command ", first});
}

// Said of arguments that belong to nothing; options are named before what may have been their values.
std::string ExtraText(const std::vector<std::string>& extras) {
    const auto option =
        std::ranges::find_if(extras, [](const std::string& extra) { return extra.starts_with('-'); });
    if (option != extras.end()) return Concat({"the command has no option ", *option});
    return Concat({"there is no place for \"", extras.empty() ? std::string() : Plain(extras.front()), "\""});
}

bool TakesValue(const std::string& argument) {
    return argument.starts_with("--") && argument.find('=') == std::string::npos && argument != "--help" &&
           argument != kVersionFlag;
}

// The arguments as the parser takes them, last one first. What follows two dashes is names, whatever it looks
// like; the parser knows that only of names that are still lacking, so it gets them marked and without the
// dashes.
std::vector<std::string> ForParser(const std::vector<std::string>& arguments) {
    std::vector<std::string> result;
    const bool command = !arguments.empty() && IsCommand(arguments.front());
    bool value = false, names = false;
    for (const std::string& argument : arguments) {
        if (command && !names && !value && argument == "--") {
            names = true;
            continue;
        }
        result.push_back(names ? Marked(argument) : Protected(argument));
        value = !value && TakesValue(argument);
    }
    std::ranges::reverse(result);
    return result;
}

}  // namespace

std::string UsageLine(std::string_view what) {
    return Concat({"pixora-cli: ", what, "\n"});
}

std::optional<Region> ParseRegion(std::string_view text) {
    std::array<int, 4> edges{};
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const std::size_t comma = text.find(',');
        const bool last = i + 1 == edges.size();
        if (last != (comma == std::string_view::npos)) return std::nullopt;
        const std::optional<int> edge = ParseNumber(text.substr(0, comma));
        if (!edge) return std::nullopt;
        edges[i] = *edge;
        if (!last) text.remove_prefix(comma + 1);
    }
    const Region region{edges[0], edges[1], edges[2], edges[3]};
    if (IsEmpty(region)) return std::nullopt;
    return region;
}

std::variant<Options, Reply> ParseOptions(const std::vector<std::string>& arguments) {
    Typed typed;
    ::CLI::App program("Reads and measures the images of a camera: BMP and uncompressed TIFF files.",
                       "pixora-cli");
    const std::string first = arguments.empty() ? std::string() : arguments.front();
    MakeProgram(program, first, typed);
    if (std::optional<Reply> reply = PlainAnswer(program, arguments)) return *std::move(reply);
    try {
        program.parse(ForParser(arguments));
        typed.TakeMarksOff();
        return TakeOptions(program, typed);
    } catch (const ::CLI::CallForVersion&) {
        return VersionReply();
    } catch (const ::CLI::CallForHelp&) {
        const auto commands = program.get_subcommands();
        return HelpReply(program, commands.empty() ? nullptr : commands.front());
    } catch (const ::CLI::ParseError& error) {
        const auto commands = program.get_subcommands();
        std::string what = error.what();
        if (commands.empty())
            what = NoCommandText(first);
        else if (error.get_exit_code() == static_cast<int>(::CLI::ExitCodes::ExtrasError))
            what = ExtraText(commands.front()->remaining());
        return Reply{UsageLine(what) + "Try pixora-cli --help.\n", true};
    } catch (const Wrong& wrong) {
        return Reply{UsageLine(wrong.what) + "Try pixora-cli --help.\n", true};
    }
}

}  // namespace pixora::cli
