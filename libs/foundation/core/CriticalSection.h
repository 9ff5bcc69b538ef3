#pragma once

#include <atomic>
#include <cstdint>

namespace core {

/// Recursive mutual exclusion in 16 bytes, so that every object that may need one can afford it. Entering a free one
/// costs one atomic exchange; waiting threads sleep. Constant-initialised: usable in static objects at load time.
///
/// The thread that entered must leave as often as it entered. Waiting threads get in in no particular order.
class CriticalSection {
public:
    constexpr CriticalSection() noexcept = default;
    CriticalSection(const CriticalSection &) = delete;
    CriticalSection &operator=(const CriticalSection &) = delete;

    void enter() noexcept;

    /// Enters if that needs no waiting, and says whether it did.
    bool tryEnter() noexcept;

    void leave() noexcept;

private:
    enum State : std::uint32_t { FREE, TAKEN, TAKEN_WITH_WAITERS };

    void waitUntilTaken() noexcept;

    std::atomic<const void *> mOwner{nullptr}; ///< a mark of the thread that is inside
    std::atomic<std::uint32_t> mState{FREE};
    std::uint32_t mDepth = 0; ///< touched by the owner alone
};

static_assert(sizeof(CriticalSection) <= 16);

} // namespace core
