#include "cli/run.h"

#include <algorithm>
#include <exception>
#include <variant>

#include "base/stop.h"
#include "cli/commands.h"
#include "cli/options.h"
#include "cli/paths.h"
#include "cli/session.h"

namespace pixora::cli {
namespace {

using Work = int (*)(Session&, const std::string&);

Work WorkOf(Command command) {
    switch (command) {
        case Command::info:
            return Info;
        case Command::stats:
            return Stats;
        case Command::histogram:
            return Histogram;
        case Command::profile:
            return Profile;
        case Command::save_region:
            return SavePart;
        case Command::convert:
            return Convert;
    }
    return Info;
}

bool TakesMany(Command command) {
    return command == Command::info || command == Command::stats;
}

int WorkThrough(const Options& options, Console& console) {
    Session session{.options = options, .console = console};
    const Work work = WorkOf(options.command);
    BeginListing(session);
    int status = kDone;
    for (std::size_t i = 0; i < options.files.size() && !StopRequested(); ++i) {
        console.Progress(i, options.files.size());
        int result = kFailed;
        try {
            result = work(session, options.files[i]);
        } catch (const std::exception&) {  // no memory
            result = session.Refuse(options.files[i], RefusedForMemory(PathOf(options.files[i])));
        }
        status = std::max(status, result);  // wrong usage is the worst
    }
    return status;
}

int Answer(const Reply& reply, Streams& streams) {
    if (reply.error) {
        streams.WriteError(reply.text);
        return kUsage;
    }
    return streams.WriteOut(reply.text) ? kDone : kFailed;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, Streams& streams, bool expand_wildcards) {
    std::variant<Options, Reply> parsed = ParseOptions(arguments);
    if (const Reply* reply = std::get_if<Reply>(&parsed)) return Answer(*reply, streams);
    Options& options = std::get<Options>(parsed);
    if (expand_wildcards) options.files = Expanded(options.files);
    if (!TakesMany(options.command) && options.files.size() > 1) {
        streams.WriteError(
            UsageLine("the command takes one file, not " + std::to_string(options.files.size())));
        return kUsage;
    }
    Console console(streams);
    const int status = WorkThrough(options, console);
    if (console.Finish()) return status;
    console.Error("pixora-cli: the results cannot be written");
    return std::max(status, kFailed);
}

}  // namespace pixora::cli
