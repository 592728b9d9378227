#include "tests/unit/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr unsigned long long kNever = std::numeric_limits<unsigned long long>::max();
std::atomic<unsigned long long> allocations{0}, limit{kNever};

void* Take(std::size_t size) {
    if (++allocations > limit) throw std::bad_alloc();
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return Take(size);
}
void* operator new[](std::size_t size) {
    return Take(size);
}
// The library's own would come from somewhere else than what `delete` gives back here.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return ++allocations > limit ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return ++allocations > limit ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace pixora::test {

unsigned long long Allocations() {
    return allocations;
}

ShortMemory::ShortMemory(unsigned long long left) {
    limit = allocations + left;
}
ShortMemory::~ShortMemory() {
    limit = kNever;
}

}  // namespace pixora::test
