// The lines of a CSV file: numbers in decimal, put together in a block that is handed on when it is full.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "base/block_memory.h"

namespace pixora {

/// A kind of number and what stands for one that is too large for its field.
struct CsvField {
    std::uint32_t largest;    ///< of at most eight digits
    std::string_view beyond;  ///< of at most eight characters
};
inline constexpr CsvField kPlaceField{99'999, "-----"};  ///< of locations, levels and values
inline constexpr CsvField kCountField{99'999'999, "--------"};
/// How many bytes a field may touch from where it starts; what follows it goes over the rest of them.
inline constexpr std::size_t kFieldBytes = 8;

/// The numbers below a thousand as text.
struct CsvThousand {
    struct Entry {
        std::array<char, 3> text{};
        std::uint8_t length = 0;
    };
    std::array<Entry, 1000> first{};   ///< without zeros before it
    std::array<Entry, 1000> second{};  ///< three digits, to go after other digits

    constexpr CsvThousand() {
        for (std::uint32_t value = 0; value < first.size(); ++value) {
            const std::array<char, 3> digits = {static_cast<char>('0' + value / 100),
                                                static_cast<char>('0' + value / 10 % 10),
                                                static_cast<char>('0' + value % 10)};
            const std::size_t zeros = value < 10 ? 2 : value < 100 ? 1 : 0;
            second[value] = {digits, 3};
            std::copy(digits.begin() + zeros, digits.end(), first[value].text.begin());
            first[value].length = static_cast<std::uint8_t>(digits.size() - zeros);
        }
    }
};
inline constexpr CsvThousand kCsvThousand;

/// Puts a number of seven or eight digits, or what stands for a larger one.
[[nodiscard]] char* PutLargeField(char* at, std::uint32_t value, CsvField field);

/// Puts `value` at `at`. @return where the field ends.
[[nodiscard]] inline char* PutField(char* at, std::uint32_t value, CsvField field) {
    if (value > std::min(field.largest, 999'999u)) return PutLargeField(at, value, field);
    // No branch tells three digits from six: counts go up and down across a thousand too often to be
    // foreseen.
    const std::uint32_t thousands = value / 1000, rest = value % 1000;
    const CsvThousand::Entry& first = kCsvThousand.first[thousands > 0 ? thousands : rest];
    std::memcpy(at, &first, sizeof first);
    at += first.length;
    std::memcpy(at, &kCsvThousand.second[rest], sizeof first);
    return at + (thousands > 0 ? 3 : 0);
}

/// Numbers that go up by one from line to line. Only their last digit changes nine times out of ten.
class CsvCounter {
public:
    CsvCounter(std::uint32_t first, CsvField field) : field_(field), value_(first) { Format(); }

    /// Puts the number at `at`. @return where the field ends.
    [[nodiscard]] char* Put(char* at) const {
        std::memcpy(at, &text_, sizeof text_);
        return at + length_;
    }
    /// Goes on to the next number; after the largest one of all comes 0.
    void Advance() {
        ++value_;
        if (steps_ == 0) return Format();
        --steps_;
        text_ += last_digit_;
    }

private:
    void Format() {
        std::array<char, kFieldBytes> text{};
        length_ = PutField(text.data(), value_, field_) - text.data();
        std::memcpy(&text_, text.data(), sizeof text_);
        last_digit_ = std::uint64_t{1} << (8 * (length_ - 1));
        steps_ = value_ <= field_.largest ? 9 - value_ % 10 : 0;
    }

    CsvField field_;
    std::uint32_t value_;
    std::uint32_t steps_ = 0;  // until another digit than the last one changes
    static_assert(std::endian::native == std::endian::little);  // the first digit is the lowest byte
    // In a register: bytes that have just been written one by one would make a read of all of them wait.
    std::uint64_t text_ = 0, last_digit_ = 0;
    std::ptrdiff_t length_ = 0;
};

/// Gathers lines and hands them on, a block at a time.
class CsvBlock {
public:
    /// Takes the next bytes of a file. @return false when they have no place.
    using Take = std::function<bool(std::string_view)>;

    explicit CsvBlock(const Take& take) : take_(take) {}

    /// Makes room for at least one line. @return for how many; 0 when what came before has no place.
    [[nodiscard]] std::size_t Room() {
        if (bytes_.size() - used_ < kLineBytes && !HandOn()) return 0;
        return (bytes_.size() - used_) / kLineBytes;
    }
    /// Where the next line goes.
    [[nodiscard]] char* Next() { return bytes_.data() + used_; }
    /// Keeps the lines up to `end`.
    void Keep(const char* end) { used_ = static_cast<std::size_t>(end - bytes_.data()); }
    /// Hands on what is kept. @return false when it has no place.
    [[nodiscard]] bool HandOn() {
        const std::string_view text(bytes_.data(), std::exchange(used_, 0));
        return text.empty() || take_(text);
    }

    /// The most that a line touches: four fields, or the words of the first line.
    static constexpr std::size_t kLineBytes = 64;

private:
    const Take& take_;
    BlockMemory memory_{kBlockBytes};
    std::span<char> bytes_{reinterpret_cast<char*>(memory_.All().data()), kBlockBytes};
    std::size_t used_ = 0;
};

/// Ends a line at `at`. @return where the next one starts.
[[nodiscard]] inline char* EndCsvLine(char* at) {
    *at++ = '\r';
    *at++ = '\n';
    return at;
}

}  // namespace pixora
