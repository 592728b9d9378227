// Standard output and standard error of the program.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace pixora::cli {

/// The two streams as the system has them. Texts are UTF-8 with LF.
class Streams {
public:
    virtual ~Streams() = default;
    /// @return false when any of it could not be written.
    [[nodiscard]] virtual bool WriteOut(std::string_view bytes) = 0;
    virtual void WriteError(std::string_view bytes) = 0;
    [[nodiscard]] virtual bool OutIsTerminal() const = 0;
    [[nodiscard]] virtual bool ErrorIsTerminal() const = 0;

protected:
    Streams() = default;
    Streams(const Streams&) = default;
    Streams& operator=(const Streams&) = default;
};

/// Gathers results into large writes, and keeps results, messages and the progress bar apart on a terminal.
class Console {
public:
    explicit Console(Streams& streams) : streams_(streams) {}

    /// Adds to the results; whole lines.
    void Out(std::string_view lines);
    /// Writes a line to standard error, at once.
    void Error(std::string_view line);
    /// Shows how far the work is, when standard error is a terminal and there is more than one piece of work.
    void Progress(std::size_t done, std::size_t total);
    /// Ends the progress bar and writes all results. @return false when some could not be written.
    [[nodiscard]] bool Finish();

private:
    void Flush();
    void HideBar();

    Streams& streams_;
    std::string results_;
    bool lost_ = false;
    std::size_t bar_width_ = 0;  // 0: no bar shows
    std::chrono::steady_clock::time_point bar_time_{};
};

/// "[#####.....] 50% 5/10".
[[nodiscard]] std::string ProgressBar(std::size_t done, std::size_t total);

}  // namespace pixora::cli
