// Whole numbers in byte order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pixora {

// The readers look at two or four bytes from `offset` on, all of which `bytes` must hold: nothing is checked.

[[nodiscard]] inline std::uint16_t Little16(std::span<const std::byte> bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[offset]) |
                                      std::to_integer<unsigned>(bytes[offset + 1]) << 8);
}

[[nodiscard]] inline std::uint32_t Little32(std::span<const std::byte> bytes, std::size_t offset) {
    return Little16(bytes, offset) | static_cast<std::uint32_t>(Little16(bytes, offset + 2)) << 16;
}

[[nodiscard]] inline std::uint16_t Big16(std::span<const std::byte> bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[offset]) << 8 |
                                      std::to_integer<unsigned>(bytes[offset + 1]));
}

[[nodiscard]] inline std::uint32_t Big32(std::span<const std::byte> bytes, std::size_t offset) {
    return static_cast<std::uint32_t>(Big16(bytes, offset)) << 16 | Big16(bytes, offset + 2);
}

/// Puts a header together, field by field, little-endian.
class ByteBuilder {
public:
    void U8(std::uint32_t value) { bytes_.push_back(static_cast<std::byte>(value & 0xFF)); }
    void U16(std::uint32_t value) {
        U8(value);
        U8(value >> 8);
    }
    void U32(std::uint32_t value) {
        U16(value);
        U16(value >> 16);
    }
    [[nodiscard]] std::span<const std::byte> Bytes() const { return bytes_; }

private:
    std::vector<std::byte> bytes_;
};

}  // namespace pixora
