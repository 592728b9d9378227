#include "tests/unit/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<unsigned long long> allocations{0};

void* Take(std::size_t size) {
    ++allocations;
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
    ++allocations;
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    ++allocations;
    return std::malloc(size == 0 ? 1 : size);
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

}  // namespace pixora::test
