#include "cli/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <utility>

#include "base/utf8.h"
#include "cli/arguments.h"
#include "cli/concat.h"

namespace pixora::cli {
namespace {

constexpr std::string_view kBits[] = {"auto", "8", "10", "12", "14", "16"};
constexpr std::string_view kFormats[] = {"text", "csv", "json"};
constexpr std::string_view kChannels[] = {"R", "G", "B", "RGB"};

// @return nothing when no plain number of at most nine digits stands there.
std::optional<int> ParseNumber(std::string_view text) {
    int value = 0;
    const bool digits = !text.empty() && text.size() <= 9 &&
                        std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    if (!digits) return std::nullopt;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// "--format takes text, csv or json, not "xml"".
std::string ChoicesText(std::string_view option, std::span<const std::string_view> choices,
                        std::string_view typed) {
    std::string what = Concat({"--", option, " takes "});
    for (std::size_t i = 0; i < choices.size(); ++i)
        what += Concat({i == 0 ? "" : i + 1 < choices.size() ? ", " : " or ", choices[i]});
    return Concat({what, ", not \"", typed, "\""});
}

// Looks closely at what was given for each option. Every step says whether to go on.
class OptionTaker {
public:
    explicit OptionTaker(Call call) : call_(std::move(call)) { options_.command = call_.form->command; }

    std::variant<Options, Reply> Take() {
        const bool taken =
            TakeFiles() && TakeRegion() && TakeValidBits() && TakeFormat() && TakeChannel() && TakeLine();
        if (!taken) return Complaint(wrong_);
        options_.out = call_.Value("out").value_or(call_.Value("display").value_or(""));
        options_.data = call_.Value("data").value_or("");
        return std::move(options_);
    }

private:
    bool Refuse(std::string what) {
        wrong_ = std::move(what);
        return false;
    }

    bool TakeFiles() {
        options_.files = std::move(call_.files);
        return std::ranges::count(options_.files, "") == 0 || Refuse("the name of a file is empty");
    }

    bool TakeRegion() {
        const auto typed = call_.Value("region");
        if (!typed) return true;
        options_.region = ParseRegion(*typed);
        return options_.region ||
               Refuse(Concat({"--region takes left,top,right,bottom in pixels, not \"", *typed, "\""}));
    }

    // The place of what was given among the choices; `usual` without the option.
    bool TakeChoice(std::string_view option, std::span<const std::string_view> choices, int usual,
                    int& choice) {
        choice = usual;
        const auto typed = call_.Value(option);
        if (!typed) return true;
        const auto found = std::ranges::find(choices, *typed);
        choice = static_cast<int>(found - choices.begin());
        return found != choices.end() || Refuse(ChoicesText(option, choices, *typed));
    }

    bool TakeValidBits() {
        int choice = 0;
        if (!TakeChoice("valid-bits", kBits, 0, choice)) return false;
        if (choice == 0) return true;
        options_.valid_bits = WideFromUtf8(kBits[choice]);
        options_.auto_bit = L"OFF";
        return true;
    }

    bool TakeFormat() {
        int choice = 0;
        const bool taken = TakeChoice("format", kFormats, 0, choice);
        options_.format = static_cast<Format>(choice);
        return taken;
    }

    bool TakeChannel() {
        int choice = 0;
        const bool taken = TakeChoice("channel", kChannels, kAllChannels - kRed, choice);
        options_.channel = kRed + choice;
        return taken;
    }

    bool TakeLine() {
        if (options_.command != Command::profile) return true;
        const auto row = call_.Value("row"), column = call_.Value("column");
        if (row.has_value() == column.has_value()) return Refuse("either --row or --column must be given");
        const std::string_view text = row ? *row : *column;
        const std::optional<int> line = ParseNumber(text);
        if (!line)
            return Refuse(Concat({row ? "--row" : "--column", " takes a whole number, not \"", text, "\""}));
        options_.kind = row ? ProfileKind::horizontal : ProfileKind::vertical;
        options_.line = *line;
        return true;
    }

    Call call_;
    Options options_;
    std::string wrong_;
};

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

std::variant<Options, Reply> ParseOptions(std::vector<std::string> arguments) {
    std::variant<Call, Reply> read = ReadArguments(std::move(arguments));
    if (Reply* reply = std::get_if<Reply>(&read)) return std::move(*reply);
    return OptionTaker(std::get<Call>(std::move(read))).Take();
}

}  // namespace pixora::cli
