#include "foundation/core/CriticalSection.h"

#include <cassert>

namespace core {

namespace {

/// The address of this variable differs from thread to thread.
thread_local constinit char threadMark = 0;

} // namespace

void CriticalSection::enter() noexcept {
    if (tryEnter())
        return;
    waitUntilTaken();
    mOwner.store(&threadMark, std::memory_order_relaxed);
    mDepth = 1;
}

bool CriticalSection::tryEnter() noexcept {
    // Only this thread itself can have stored its own mark, so a relaxed look is enough.
    if (mOwner.load(std::memory_order_relaxed) == &threadMark) {
        ++mDepth;
        return true;
    }
    std::uint32_t expected = FREE;
    if (!mState.compare_exchange_strong(expected, TAKEN, std::memory_order_acquire, std::memory_order_relaxed))
        return false;
    mOwner.store(&threadMark, std::memory_order_relaxed);
    mDepth = 1;
    return true;
}

void CriticalSection::leave() noexcept {
    assert(mOwner.load(std::memory_order_relaxed) == &threadMark && "left by a thread that is not inside");
    if (--mDepth != 0)
        return;
    mOwner.store(nullptr, std::memory_order_relaxed);
    if (mState.exchange(FREE, std::memory_order_release) == TAKEN_WITH_WAITERS)
        mState.notify_one();
}

void CriticalSection::waitUntilTaken() noexcept {
    // Whoever has waited cannot know whether others still do, so it always takes the section as one with waiters.
    while (mState.exchange(TAKEN_WITH_WAITERS, std::memory_order_acquire) != FREE)
        mState.wait(TAKEN_WITH_WAITERS, std::memory_order_relaxed);
}

} // namespace core
