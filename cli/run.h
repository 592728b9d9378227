// The whole program, without the ways of one system.
#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace pixora::cli {

/// @param arguments        without the program's name; UTF-8 on Windows.
/// @param expand_wildcards  names with `*` and `?` stand for the files that fit.
/// @return the exit status.
[[nodiscard]] int Run(const std::vector<std::string>& arguments, Streams& streams, bool expand_wildcards);

}  // namespace pixora::cli
