// A set of byte values.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace pixora {

class ByteSet {
public:
    void Insert(std::uint8_t value) { rows_[RowOf(value)] |= BitOf(value); }
    [[nodiscard]] bool Has(std::uint8_t value) const { return (rows_[RowOf(value)] & BitOf(value)) != 0; }
    [[nodiscard]] bool IsEmpty() const { return rows_ == Rows{}; }
    /// True when at least one of the bytes is in the set.
    [[nodiscard]] bool HasAnyOf(std::span<const std::byte> bytes) const;

private:
    // A row holds the values with the same lower four bits: rows 0 .. 15 those below 128, 16 .. 31 the
    // others.
    using Rows = std::array<std::uint8_t, 32>;
    static constexpr std::size_t RowOf(std::uint8_t value) { return value % 16u + 16u * (value / 128u); }
    static constexpr std::uint8_t BitOf(std::uint8_t value) {
        return static_cast<std::uint8_t>(1u << value / 16u % 8u);
    }
    [[nodiscard]] std::size_t LookAtFront(std::span<const std::byte> bytes, bool& found) const;

    Rows rows_{};
};

}  // namespace pixora
