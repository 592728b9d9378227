// The commands of the program.
#pragma once

#include <string>

#include "cli/session.h"

namespace pixora::cli {

/// Writes what the results of all files begin with: a line of names in CSV, nothing otherwise.
void BeginListing(Session& session);

/// Each does its work for one file. @return kDone, kFailed or kUsage; what went wrong has been said.
[[nodiscard]] int Info(Session& session, const std::string& file);
[[nodiscard]] int Stats(Session& session, const std::string& file);
[[nodiscard]] int Histogram(Session& session, const std::string& file);
[[nodiscard]] int Profile(Session& session, const std::string& file);
[[nodiscard]] int SavePart(Session& session, const std::string& file);
[[nodiscard]] int Convert(Session& session, const std::string& file);

}  // namespace pixora::cli
