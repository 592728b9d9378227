// What a call of the program asks for.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "analysis/channel.h"
#include "analysis/line_profile.h"
#include "image/region.h"

namespace pixora::cli {

enum class Command { info, stats, histogram, profile, save_region, convert };
enum class Format { text, csv, json };

struct Options {
    Command command = Command::info;
    std::vector<std::string> files;             ///< as they were typed, UTF-8 on Windows
    std::optional<Region> region;               ///< not crossed; the whole image without one
    std::wstring valid_bits, auto_bit = L"ON";  ///< as the settings of these names
    Format format = Format::text;
    int channel = kAllChannels;  ///< the selector for a colour image
    ProfileKind kind = ProfileKind::horizontal;
    int line = 0;      ///< the row or column of a profile
    std::string out;   ///< the file to write; of a conversion the display copy
    std::string data;  ///< the data copy; empty when none is wanted
};

/// What to say instead of working.
struct Reply {
    std::string text;    ///< ends with a line end
    bool error = false;  ///< wrong usage: goes to standard error
};

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;  ///< at least one file was refused, or could not be read or written
inline constexpr int kUsage = 2;   ///< wrong usage

/// The first line of every message about wrong usage.
[[nodiscard]] std::string UsageLine(std::string_view what);

/// Reads the arguments of a call, the program's name not among them.
[[nodiscard]] std::variant<Options, Reply> ParseOptions(const std::vector<std::string>& arguments);

/// A region as it is typed: left, top, right and bottom as plain decimal numbers, with commas between them.
/// @return nothing for anything else, and when the edges are crossed.
[[nodiscard]] std::optional<Region> ParseRegion(std::string_view text);

}  // namespace pixora::cli
