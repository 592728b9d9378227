// The texts of one message window, composed before any window exists.
#pragma once

#include <string>
#include <vector>

namespace pixora {

/// What an error box or notice shows: the caption text after the product's name, and three lines in the order
/// in which the caller passes them. An empty line is left out.
struct Message {
    std::wstring caption;
    std::wstring line1, line2, line3;
    friend bool operator==(const Message&, const Message&) = default;
};

/// What the system's own message box shows beside an exclamation mark.
struct Warning {
    std::wstring title, text;
    friend bool operator==(const Warning&, const Warning&) = default;
};

}  // namespace pixora
