#include "foundation/core/Event.h"

#include <chrono>

namespace core {

void Event::set() {
    // Woken under the lock: a waiter may destroy the event as soon as it is through.
    std::lock_guard guard(mMutex);
    mSet = true;
    mChanged.notify_all();
}

void Event::reset() {
    std::lock_guard guard(mMutex);
    mSet = false;
}

void Event::wait() {
    std::unique_lock guard(mMutex);
    mChanged.wait(guard, [this] { return mSet; });
}

bool Event::wait(unsigned milliseconds) {
    std::unique_lock guard(mMutex);
    return mChanged.wait_for(guard, std::chrono::milliseconds(milliseconds), [this] { return mSet; });
}

} // namespace core
