#include "analysis/level_cursor.h"

#include <algorithm>

#include "base/number_text.h"
#include "dialogs/keys.h"

namespace pixora {
namespace {

constexpr std::int32_t kErrorKind = 1;
constexpr std::int32_t kBetweenBothLimits = 3;

bool IsKnownDepth(std::uint32_t bits) {
    return bits == 8 || bits == 10 || bits == 12 || bits == 14 || bits == 16;
}

PlotKey KeyOf(std::uint64_t code) {
    switch (code) {
        case kReturnKey:
            return PlotKey::enter;
        case kEscapeKey:
            return PlotKey::escape;
        case kLeftKey:
            return PlotKey::left;
        case kUpKey:
            return PlotKey::up;
        case kRightKey:
            return PlotKey::right;
        case kDownKey:
            return PlotKey::down;
        default:
            return PlotKey::none;
    }
}

}  // namespace

std::uint32_t MaxLevel(std::uint32_t bits) {
    return (1u << (IsKnownDepth(bits) ? bits : 8)) - 1;
}

std::uint32_t CentreLevel(std::uint32_t bits) {
    return (MaxLevel(bits) + 1) / 2;
}

LevelEntry CheckLevelEntry(std::wstring_view typed, std::uint32_t bits) {
    InputError input{.ErrorKind = kErrorKind,
                     .CheckMode = kBetweenBothLimits,
                     .InputText = std::wstring(typed),
                     .Limit1 = 0,
                     .Limit2 = static_cast<std::int32_t>(MaxLevel(bits)),
                     .ItemName = L"Level cursor position"};
    if (!CheckValue(input)) return {.level = std::nullopt, .refusal = input};
    return {.level = static_cast<std::uint32_t>(ParseWhole(typed)), .refusal = {}};
}

LevelCursor::LevelCursor(std::uint32_t bits, std::wstring_view setting)
    : bits_(bits), level_(CentreLevel(bits)), shown_(setting == L"ON") {}

void LevelCursor::FollowBits(std::uint32_t bits) {
    if (bits == bits_) return;
    bits_ = bits;
    Centre();
}

void LevelCursor::Up() {
    Set(level_ + 1);
}

void LevelCursor::Down() {
    if (level_ > 0) --level_;
}

void LevelCursor::Set(std::uint32_t level) {
    level_ = std::min(level, MaxLevel(bits_));
}

std::wstring LevelCursor::Text() const {
    return FormatWhole(level_);
}

KeyVerdict PlotKeys::Test(std::uint32_t message, std::uint64_t first_parameter) {
    const bool down = message == kKeyDownMessage;
    if (!down && message != kKeyUpMessage) return {};
    const PlotKey key = KeyOf(first_parameter);
    if (key == PlotKey::none) return {};
    const bool again = key == PlotKey::enter && enter_down_;
    if (key == PlotKey::enter) enter_down_ = down;
    return {.act = down && !again ? key : PlotKey::none, .swallow = true};
}

}  // namespace pixora
