#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "cli/concat.h"

namespace pixora::cli {
namespace {

constexpr std::string_view kMark = "--";        // names of files follow
constexpr std::string_view kCommandEnd = "++";  // what follows is for the program itself

bool MayBeginName(char c) {
    return c != '-' && c != '!' && c != ' ' && c != '\n';
}
bool IsLong(std::string_view text) {
    return text.size() > 2 && text.starts_with("--") && MayBeginName(text[2]);
}
// A negative number is none.
bool IsShort(std::string_view text) {
    return text.size() > 1 && text[0] == '-' && MayBeginName(text[1]) && !(text[1] >= '0' && text[1] <= '9');
}

const CommandForm* FormOf(std::string_view name) {
    const auto* const found = std::ranges::find(kCommands, name, &CommandForm::name);
    return found == std::end(kCommands) ? nullptr : found;
}

// An option as it is typed: "--name=value", "--name", or letters after one dash.
struct TypedOption {
    bool is_long;
    std::string name;
    std::string value;    // behind "="
    std::string letters;  // behind the first letter

    explicit TypedOption(const std::string& text) : is_long(IsLong(text)) {
        if (!is_long) {
            name = text.substr(1, 1);
            letters = text.substr(2);
            return;
        }
        const std::size_t sign = std::min(text.find('='), text.size());
        name = text.substr(2, sign - 2);
        value = text.substr(std::min(sign + 1, text.size()));
    }
    [[nodiscard]] bool IsHelp() const { return name == (is_long ? kHelp : kHelpLetter); }
};

// A flag may have been given a value, as in "--version=no". @return nothing for a text that is neither.
std::optional<bool> Truth(std::string text) {
    constexpr std::string_view kTrue[] = {"true", "on", "yes", "enable", "t", "y", "+"};
    constexpr std::string_view kFalse[] = {"false", "off", "no", "disable", "f", "n", "-"};
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (std::ranges::count(kTrue, text) > 0) return true;
    if (std::ranges::count(kFalse, text) > 0) return false;
    char* end = nullptr;
    errno = 0;
    const long long number = std::strtoll(text.c_str(), &end, 10);
    if (end == text.c_str()) return std::nullopt;
    return errno == ERANGE ? !text.starts_with('-') : number > 0;
}

class ArgumentReader {
public:
    explicit ArgumentReader(std::vector<std::string> arguments) : rest_(std::move(arguments)) {
        if (!rest_.empty()) first_ = rest_.front();
        std::ranges::reverse(rest_);
    }

    std::variant<Call, Reply> Read() {
        if (!ReadProgram()) return Complain(fault_);
        if (std::optional<Reply> reply = Answer()) return *std::move(reply);
        Level& level = LevelOf(*command_);
        return Call{command_, std::move(level.files), std::move(level.values)};
    }

private:
    // What was found for the program itself, or for one command.
    struct Level {
        bool met = false;
        std::vector<std::string> files;
        std::vector<std::optional<std::string>> values;
        std::vector<int> counts;  // how often each option was given
        bool help = false;
        std::vector<std::string> extras;  // what has no place, and marks
        std::size_t marks = 0;

        [[nodiscard]] bool HasExtras() const { return extras.size() > marks; }
        void AddMark() {
            extras.emplace_back(kMark);
            ++marks;
        }
    };
    enum class Kind { mark, command, option, command_end, plain };

    Level& LevelOf(const CommandForm& form) {
        return levels_[static_cast<std::size_t>(&form - std::begin(kCommands))];
    }

    std::string Next() {
        std::string text = std::move(rest_.back());
        rest_.pop_back();
        return text;
    }

    // One command is enough: the name of another one is a file's.
    Kind KindOf(const std::string& text, bool in_command) {
        if (text == kMark) return Kind::mark;
        const CommandForm* const form = command_ ? nullptr : FormOf(text);
        if (form && !LevelOf(*form).met) return Kind::command;
        if (IsLong(text) || IsShort(text)) return Kind::option;
        return in_command && text == kCommandEnd ? Kind::command_end : Kind::plain;
    }

    // @return false when an option lacks its value.
    bool ReadProgram() {
        bool only_plain = false;
        while (!rest_.empty()) {
            const Kind kind = only_plain ? Kind::plain : KindOf(rest_.back(), false);
            const std::string text = Next();
            const CommandForm* const form = command_ ? nullptr : FormOf(text);
            if (kind == Kind::mark) {
                program_.AddMark();
                only_plain = true;
            } else if (kind == Kind::option) {
                ReadProgramOption(text);
            } else if (form) {
                if (kind == Kind::command) command_ = form;
                if (!ReadCommand(*form)) return false;
            } else {
                program_.extras.push_back(text);
            }
        }
        return true;
    }

    void ReadProgramOption(const std::string& text) {
        const TypedOption option(text);
        if (option.IsHelp()) {
            TakeHelp(program_, option);
        } else if (option.name == kVersion) {
            versions_.push_back(option.value.empty() || option.value == "{}" ? "true" : option.value);
        } else {
            program_.extras.push_back(text);
        }
    }

    void TakeHelp(Level& level, const TypedOption& option) {
        level.help = true;
        if (!option.letters.empty()) rest_.push_back("-" + option.letters);
    }

    // Reads until the arguments end or are no longer the command's.
    bool ReadCommand(const CommandForm& form) {
        Level& level = LevelOf(form);
        level.met = true;
        level.values.resize(form.options.size());
        level.counts.resize(form.options.size());
        bool only_plain = false;
        while (!rest_.empty()) {
            switch (only_plain ? Kind::plain : KindOf(rest_.back(), true)) {
                case Kind::mark:
                    rest_.pop_back();
                    // Deliberate: behind a name the mark ends the command, so that no name can follow it.
                    if (!level.files.empty()) return true;
                    level.AddMark();
                    only_plain = true;
                    break;
                case Kind::command_end:
                    rest_.pop_back();
                    return true;
                case Kind::command:
                    if (!level.files.empty()) return true;
                    level.files.push_back(Next());
                    break;
                case Kind::option:
                    if (!ReadOption(form, level)) return false;
                    break;
                case Kind::plain:
                    if (level.files.empty() || form.many_files)
                        level.files.push_back(Next());
                    else if (!command_ && FormOf(rest_.back()))
                        return true;
                    else
                        level.extras.push_back(Next());
                    break;
            }
        }
        return true;
    }

    bool ReadOption(const CommandForm& form, Level& level) {
        std::string text = Next();
        const TypedOption option(text);
        const auto known = std::ranges::find(form.options, option.name, &OptionForm::name);
        if (option.IsHelp()) {
            TakeHelp(level, option);
        } else if (known == form.options.end() || !option.is_long) {
            level.extras.push_back(std::move(text));
        } else if (option.value.empty() && rest_.empty()) {
            fault_ = Concat({"--", known->name, ": 1 required ", known->value, " missing"});
            return false;
        } else {
            const auto place = static_cast<std::size_t>(known - form.options.begin());
            level.values[place] = option.value.empty() ? Next() : option.value;
            ++level.counts[place];
        }
        return true;
    }

    // Without a command that is what is wrong, whatever else is.
    [[nodiscard]] Reply Complain(std::string_view what) const {
        if (command_) return Complaint(what);
        if (first_.empty()) return Complaint("a command is missing");
        return Complaint(Concat({"there is no ", first_.front() == '-' ? "option " : "command ", first_}));
    }

    // What is to be said instead of working; of several things the first one in this order.
    std::optional<Reply> Answer() {
        if (!versions_.empty()) {
            const std::optional<bool> wanted = Truth(versions_.back());
            if (!wanted) return Complain(Concat({"Could not convert: --", kVersion, " = ", Versions()}));
            if (*wanted) return Reply{Concat({kProgram, " ", PIXORA_VERSION, "\n"})};
        }
        for (const CommandForm& form : kCommands)
            if (const std::string fault = Repeated(form); !fault.empty()) return Complain(fault);
        if (command_ && (program_.help || LevelOf(*command_).help)) return Reply{CommandHelp(*command_)};
        if (!command_ && program_.help) return Reply{ProgramHelp()};
        if (!command_) return Complain({});
        if (const std::string fault = Missing(); !fault.empty()) return Complain(fault);
        if (program_.HasExtras() || LevelOf(*command_).HasExtras()) return Complain(Extra());
        return std::nullopt;
    }

    [[nodiscard]] std::string Versions() const {
        std::string all;
        for (const std::string& version : versions_) all += (all.empty() ? "" : ",") + version;
        return all;
    }

    std::string Repeated(const CommandForm& form) {
        const Level& level = LevelOf(form);
        const auto found = std::ranges::find_if(level.counts, [](int count) { return count > 1; });
        if (found == level.counts.end()) return {};
        const auto place = static_cast<std::size_t>(found - level.counts.begin());
        return Concat(
            {"--", form.options[place].name, ": At Most 1 required but received ", std::to_string(*found)});
    }

    std::string Missing() {
        const Level& level = LevelOf(*command_);
        if (level.files.empty()) return Concat({kFile, " is required"});
        for (std::size_t i = 0; i < level.values.size(); ++i)
            if (command_->options[i].required && !level.values[i])
                return Concat({"--", command_->options[i].name, " is required"});
        return {};
    }

    // Options are named before what may have been their values.
    std::string Extra() {
        const std::vector<std::string>& extras = LevelOf(*command_).extras;
        const auto option =
            std::ranges::find_if(extras, [](const std::string& extra) { return extra.starts_with('-'); });
        if (option != extras.end()) return Concat({"the command has no option ", *option});
        return Concat({"there is no place for \"", extras.empty() ? std::string() : extras.front(), "\""});
    }

    std::vector<std::string> rest_;  // the next one last
    std::string first_;
    const CommandForm* command_ = nullptr;
    Level program_;
    std::array<Level, std::size(kCommands)> levels_;
    std::vector<std::string> versions_;  // the values of that flag
    std::string fault_;
};

}  // namespace

std::optional<std::string_view> Call::Value(std::string_view option) const {
    const auto known = std::ranges::find(form->options, option, &OptionForm::name);
    if (known == form->options.end()) return std::nullopt;
    const std::optional<std::string>& value =
        options[static_cast<std::size_t>(known - form->options.begin())];
    return value ? std::optional<std::string_view>(*value) : std::nullopt;
}

Reply Complaint(std::string_view what) {
    return {UsageLine(what) + "Try pixora-cli --help.\n", true};
}

std::variant<Call, Reply> ReadArguments(std::vector<std::string> arguments) {
    return ArgumentReader(std::move(arguments)).Read();
}

}  // namespace pixora::cli
