// The arguments of a call, told apart into the command, its options and the names of files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/forms.h"
#include "cli/options.h"

namespace pixora::cli {

/// A call that names a command with all that it needs, and nothing else.
struct Call {
    const CommandForm* form = nullptr;
    std::vector<std::string> files;                   ///< at least one
    std::vector<std::optional<std::string>> options;  ///< their values, in the order of the form

    /// What was given for an option; nothing also when the command does not have it.
    [[nodiscard]] std::optional<std::string_view> Value(std::string_view option) const;
};

/// What is said of wrong usage.
[[nodiscard]] Reply Complaint(std::string_view what);

/// Reads the arguments. Options may stand anywhere after the command, as "--name value" or "--name=value";
/// the value may be any text. After "--" all are names of files. Of what is wrong in several ways one thing
/// is told.
[[nodiscard]] std::variant<Call, Reply> ReadArguments(std::vector<std::string> arguments);

}  // namespace pixora::cli
