// The program on systems whose arguments are bytes.
#include <signal.h>  // NOLINT(modernize-deprecated-headers): <csignal> need not have sigaction
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <ctime>
#include <string>
#include <vector>

#include "base/stop.h"
#include "cli/run.h"

namespace pixora::cli {
namespace {

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

class StandardStreams final : public Streams {
public:
    bool WriteOut(std::string_view bytes) override { return WriteAll(STDOUT_FILENO, bytes); }
    void WriteError(std::string_view bytes) override { static_cast<void>(WriteAll(STDERR_FILENO, bytes)); }
    [[nodiscard]] bool OutIsTerminal() const override { return out_; }
    [[nodiscard]] bool ErrorIsTerminal() const override { return error_; }

private:
    bool out_ = isatty(STDOUT_FILENO) != 0, error_ = isatty(STDERR_FILENO) != 0;
};

std::atomic<int> stop_signal{0};
static_assert(std::atomic<int>::is_always_lock_free);

std::atomic<std::time_t> stop_time{0};
static_assert(std::atomic<std::time_t>::is_always_lock_free);

// A second wish ends the program at once, also while it waits for somebody to read its results. Some callers
// send a signal to the program and to its group, so that two at one moment are one wish.
void OnStopSignal(int signal) {
    const std::time_t now = std::time(nullptr);
    std::time_t first = 0;
    if (!stop_time.compare_exchange_strong(first, now) && now - first > 1) {
        ::signal(signal, SIG_DFL);
        raise(signal);  // comes as soon as this handler has returned
    }
    stop_signal.store(signal);
    RequestStop();
}

// A signal that the caller has had ignored stays ignored.
void Watch(int signal) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = OnStopSignal;
    action.sa_flags = SA_RESTART;  // no read or write of ours fails half-way
    sigaction(signal, &action, nullptr);
}

}  // namespace
}  // namespace pixora::cli

int main(int count, char** arguments) {
    using namespace pixora::cli;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) Watch(signal);
    StandardStreams streams;
    const int status = Run({arguments + (count > 0 ? 1 : 0), arguments + count}, streams, false);
    if (const int signal = stop_signal.load()) {  // the caller is told what ended the program
        ::signal(signal, SIG_DFL);
        raise(signal);
    }
    return status;
}
