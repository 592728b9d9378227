// The level cursor of a plot, and the keys that move it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/value_check.h"

namespace pixora {

/// The largest level of a depth: 255, 1023, 4095, 16383 or 65535; 255 for any other depth.
[[nodiscard]] std::uint32_t MaxLevel(std::uint32_t bits);
/// The level in the middle: 128, 512, 2048, 8192 or 32768; 128 for any other depth.
[[nodiscard]] std::uint32_t CentreLevel(std::uint32_t bits);

/// What a "Level =" box holds, judged.
struct LevelEntry {
    std::optional<std::uint32_t> level;  ///< set when the entry is a whole number from 0 to MaxLevel()
    InputError refusal;                  ///< else what the value-range error dialog tells
};
[[nodiscard]] LevelEntry CheckLevelEntry(std::wstring_view typed, std::uint32_t bits);

/// A marked level, in the units of the depth that measurements work with.
class LevelCursor {
public:
    /// @param setting  LVL_CURSOR: "ON" shows the cursor.
    LevelCursor(std::uint32_t bits, std::wstring_view setting);

    /// Takes over the depth; another one than before centres the cursor.
    void FollowBits(std::uint32_t bits);
    void Centre() { level_ = CentreLevel(bits_); }
    /// One level up or down, not beyond the ends of the range.
    void Up();
    void Down();
    /// A level beyond the range gives its end.
    void Set(std::uint32_t level);
    void Toggle() { shown_ = !shown_; }

    [[nodiscard]] std::uint32_t Bits() const { return bits_; }
    [[nodiscard]] std::uint32_t Level() const { return level_; }
    [[nodiscard]] bool Shown() const { return shown_; }
    /// What the "Level =" box shows.
    [[nodiscard]] std::wstring Text() const;
    /// The caption of the button that shows and hides the cursor: what its next press does.
    [[nodiscard]] std::wstring_view ButtonCaption() const { return shown_ ? L"OFF" : L"ON"; }

private:
    std::uint32_t bits_, level_;
    bool shown_;
};

/// The keys that plots know.
enum class PlotKey { none, up, down, left, right, enter, escape };

/// What becomes of a message that is about to be dispatched.
struct KeyVerdict {
    PlotKey act = PlotKey::none;  ///< the key that acts now
    bool swallow = false;         ///< the message carries a key that plots know, acting or not
};

/// Tells the plot keys by their codes, wherever the focus is. A keystroke brings a key-down and a key-up; the
/// key-down alone acts, so a key that closed a box or chose a menu item does nothing when it is released over
/// the view. A key that is held repeats its key-down: the arrow keys go on acting, Enter acts once.
class PlotKeys {
public:
    [[nodiscard]] KeyVerdict Test(std::uint32_t message, std::uint64_t first_parameter);
    /// To be called after a box was shown, which may have got the key-up.
    void Forget() { enter_down_ = false; }

private:
    bool enter_down_ = false;
};

}  // namespace pixora
