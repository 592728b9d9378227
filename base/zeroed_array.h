// A large array that reads as zero without being written first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <type_traits>

namespace pixora {

/// `count` elements, all zero. The system hands out such memory page by page as it is touched, so an array
/// for a whole image costs nothing until it is filled and is not passed over twice.
template <typename T>
class ZeroedArray {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    ZeroedArray() = default;

    /// @return nothing when the memory cannot be had.
    [[nodiscard]] static std::optional<ZeroedArray> Make(std::uint64_t count) noexcept {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) return std::nullopt;
        const auto size = static_cast<std::size_t>(count);
        T* data = static_cast<T*>(std::calloc(size == 0 ? 1 : size, sizeof(T)));
        if (!data) return std::nullopt;
        return ZeroedArray(data, size);
    }

    [[nodiscard]] std::span<T> All() noexcept { return {data_.get(), size_}; }
    [[nodiscard]] std::span<const T> All() const noexcept { return {data_.get(), size_}; }

private:
    struct Free {
        void operator()(T* data) const noexcept { std::free(data); }
    };
    ZeroedArray(T* data, std::size_t size) noexcept : data_(data), size_(size) {}
    std::unique_ptr<T, Free> data_;
    std::size_t size_ = 0;
};

}  // namespace pixora
