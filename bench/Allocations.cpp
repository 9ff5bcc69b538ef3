#include "Allocations.h"

#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> bytes = 0;

void *take(std::size_t size) {
    void *memory = std::malloc(size ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    allocations.fetch_add(1, std::memory_order_relaxed);
    bytes.fetch_add(malloc_usable_size(memory), std::memory_order_relaxed);
    return memory;
}

void give(void *memory) noexcept {
    if (!memory)
        return;
    bytes.fetch_sub(malloc_usable_size(memory), std::memory_order_relaxed);
    std::free(memory);
}

} // namespace

void *operator new(std::size_t size) {
    return take(size);
}

void *operator new[](std::size_t size) {
    return take(size);
}

void operator delete(void *memory) noexcept {
    give(memory);
}

void operator delete[](void *memory) noexcept {
    give(memory);
}

void operator delete(void *memory, std::size_t) noexcept {
    give(memory);
}

void operator delete[](void *memory, std::size_t) noexcept {
    give(memory);
}

namespace bench {

HeapUse getHeapUse() {
    return {allocations.load(std::memory_order_relaxed), bytes.load(std::memory_order_relaxed)};
}

} // namespace bench
