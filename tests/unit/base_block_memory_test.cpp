#include "base/block_memory.h"

#include <doctest/doctest.h>

#include <cstdint>

using namespace pixora;

namespace {

bool BeginsAtPage(std::span<const std::byte> memory) {
    return reinterpret_cast<std::uintptr_t>(memory.data()) % kPageBytes == 0;
}

}  // namespace

TEST_CASE("the memory of a block is kept for the next one") {
    const std::byte* first = nullptr;
    {
        BlockMemory memory(1000);
        first = memory.All().data();
        CHECK(memory.All().size() == 1000);
        CHECK(BeginsAtPage(memory.All()));
    }
    BlockMemory again(kBlockBytes);
    CHECK(again.All().data() == first);
    CHECK(again.All().size() == kBlockBytes);
    again.All().front() = again.All().back() = std::byte{1};
}

TEST_CASE("blocks at one time have memory of their own") {
    BlockMemory one(kBlockBytes), other(kBlockBytes);
    one.All().back() = std::byte{1};
    other.All().front() = std::byte{2};
    CHECK(one.All().back() == std::byte{1});
    CHECK(one.All().data() != other.All().data());
    CHECK(BeginsAtPage(other.All()));
}

TEST_CASE("a block may be larger than others, and that is not kept") {
    constexpr std::size_t kLarge = 3 * kBlockBytes + 5;
    {
        BlockMemory large(kLarge);
        CHECK(large.All().size() == kLarge);
        CHECK(BeginsAtPage(large.All()));
        large.All().back() = std::byte{1};
    }
    BlockMemory usual(10);
    CHECK(usual.All().size() == 10);
}
