#include "nengine/support/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
constinit std::atomic<std::size_t> allocationCount{0};
}

namespace test {

std::size_t getAllocationCount() {
    return allocationCount.load();
}

} // namespace test

void *operator new(std::size_t size) {
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    if (void *const memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

// The sanitizers bring a form of their own, whose memory the delete below could not free.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size ? size : 1);
}

void operator delete(void *memory) noexcept {
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept {
    std::free(memory);
}
