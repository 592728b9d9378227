#include "cli/console.h"

#include "cli/concat.h"

#include <algorithm>

namespace pixora::cli {
namespace {

constexpr std::size_t kResultsAtOnce = std::size_t{64} << 10;
constexpr std::size_t kBarCells = 30;
constexpr std::chrono::milliseconds kBarPause{100};

}  // namespace

std::string ProgressBar(std::size_t done, std::size_t total) {
    const std::size_t filled = total == 0 ? 0 : done * kBarCells / total;
    const std::size_t percent = total == 0 ? 0 : done * 100 / total;
    return Concat({"[", std::string(filled, '#'), std::string(kBarCells - filled, '.'), "] ",
                   std::to_string(percent), "% ", std::to_string(done), "/", std::to_string(total)});
}

void Console::Out(std::string_view lines) {
    results_ += lines;
    if (streams_.OutIsTerminal() || results_.size() >= kResultsAtOnce) Flush();
}

void Console::Error(std::string_view line) {
    HideBar();
    streams_.WriteError(Concat({line, "\n"}));
}

void Console::Progress(std::size_t done, std::size_t total) {
    if (total < 2 || !streams_.ErrorIsTerminal()) return;
    const auto now = std::chrono::steady_clock::now();
    if (bar_width_ > 0 && now - bar_time_ < kBarPause) return;
    const std::string bar = ProgressBar(done, total);
    // What a longer bar left is covered by blanks, which every terminal understands.
    streams_.WriteError(Concat({"\r", bar, std::string(bar_width_ - std::min(bar_width_, bar.size()), ' ')}));
    bar_width_ = bar.size();
    bar_time_ = now;
}

bool Console::Finish() {
    HideBar();
    Flush();
    return !lost_;
}

void Console::Flush() {
    if (streams_.OutIsTerminal()) HideBar();
    if (!results_.empty() && !streams_.WriteOut(results_)) lost_ = true;
    results_.clear();
}

void Console::HideBar() {
    if (bar_width_ == 0) return;
    streams_.WriteError(Concat({"\r", std::string(bar_width_, ' '), "\r"}));
    bar_width_ = 0;
}

}  // namespace pixora::cli
