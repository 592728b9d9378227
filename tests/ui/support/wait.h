// Waiting as a person does: until something is to be seen, and not for ever.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace pixora::ui {

/// The program did not do what the test waited for, or could not be operated. Ends the test case.
class UiError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// How long anything may take. Far more than it takes, because the machine may be busy.
inline constexpr int kPatience_ms = 15'000;

/// Runs at every look while something is waited for, and throws when waiting has become pointless because
/// the program has ended. There is one program at a time.
void SetWatch(std::function<void()> watch);

/// Forgets that an earlier test has waited in vain.
void BeginTest();

/// Looks until `condition` holds. Once a test has waited in vain it waits no more: its checks go on after an
/// exception, and each would wait its time. @param what  completes "waited in vain for ...".
void WaitFor(const std::string& what, const std::function<bool()>& condition, int limit_ms = kPatience_ms);

/// Looks until `find` returns something, and returns it.
template <typename Find>
[[nodiscard]] auto WaitForSome(const std::string& what, Find find, int limit_ms = kPatience_ms) {
    decltype(find()) found;
    WaitFor(
        what, [&] { return (found = find()).has_value(); }, limit_ms);
    return *std::move(found);
}

/// Looks until `value` returns the same twice, `still_ms` apart, and returns that.
template <typename Value>
[[nodiscard]] auto WaitUntilStill(const std::string& what, Value value, int still_ms = 250);

/// Milliseconds since some moment.
[[nodiscard]] long long Now_ms();

template <typename Value>
auto WaitUntilStill(const std::string& what, Value value, int still_ms) {
    auto last = value();
    long long since = Now_ms();
    WaitFor(what, [&] {
        auto now = value();
        if (!(now == last)) last = std::move(now), since = Now_ms();
        return Now_ms() - since >= still_ms;
    });
    return last;
}

}  // namespace pixora::ui
