// Memory for the blocks in which files are read.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "base/pages.h"

namespace pixora {

/// How much is read or written at a time: large enough that the calls cost nothing, small enough to stay in
/// the processor's cache between reading, converting and writing. A whole number of pages, and of the 2, 3,
/// 4, 6 and 9 bytes that pixels take.
inline constexpr std::size_t kBlockBytes = std::size_t{63} * 4096;

/// Memory that begins at a page. What is given back is kept for the next one, for the program's one thread:
/// memory that is touched for the first time costs more than what is read into it.
class BlockMemory {
public:
    /// @param bytes  what it holds then is any. May throw when there is no memory.
    explicit BlockMemory(std::size_t bytes) : size_(bytes), capacity_(std::max(bytes, kBlockBytes)) {
        if (bytes <= kBlockBytes && spare)
            memory_ = std::move(spare);
        else
            Take();
    }
    ~BlockMemory() {
        if (capacity_ == kBlockBytes) spare = std::move(memory_);
    }
    BlockMemory(const BlockMemory&) = delete;
    BlockMemory& operator=(const BlockMemory&) = delete;

    [[nodiscard]] std::span<std::byte> All() { return {memory_.get(), size_}; }

private:
    static constexpr std::align_val_t kPage{kPageBytes};
    struct Free {
        void operator()(std::byte* memory) const noexcept { ::operator delete(memory, kPage); }
    };
    void Take() {
        memory_.reset(static_cast<std::byte*>(::operator new(capacity_, kPage)));
        PreparePages(All());
    }
    static inline std::unique_ptr<std::byte, Free> spare;

    std::size_t size_, capacity_;
    std::unique_ptr<std::byte, Free> memory_;
};

}  // namespace pixora
