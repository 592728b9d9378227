// One call of the program while it works through its files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/import.h"
#include "cli/console.h"
#include "cli/options.h"
#include "cli/region_sink.h"

namespace pixora::cli {

struct Session {
    const Options& options;
    Console& console;
    SumSink sums{};  ///< what is kept from file to file

    /// Writes a line about a file, or about a place to write to, to standard error.
    void Say(std::string_view file, std::string_view message) const;
    /// Says why a file was refused; in JSON the results say it too. @return kFailed.
    int Refuse(const std::string& file, const ImportResult& refused) const;

    /// Says what is odd about a file that was read.
    void Warn(const std::string& file, const ImportResult& read) const;

    /// Reads the facts of a file and, when there is a sink, what it expects of the samples.
    /// @return nothing when that failed; `status` then says how, and it has been said.
    [[nodiscard]] std::optional<ImageBuffer> Read(const std::string& file, PartSink* sink, int& status) const;

    [[nodiscard]] SourceRequest RequestFor(const std::string& file) const;
};

/// "10,20,30,40".
[[nodiscard]] std::string RegionText(const Region& region);

}  // namespace pixora::cli
