#pragma once

#include <condition_variable>
#include <mutex>

namespace core {

/// A signal between threads. Once set it stays set, and lets every waiter through, until it is reset.
class Event {
public:
    Event() = default;
    Event(const Event &) = delete;
    Event &operator=(const Event &) = delete;

    void set();
    void reset();

    /// Waits without limit.
    void wait();

    /// Waits for at most so many milliseconds (0: only asks) and says whether the event is set.
    bool wait(unsigned milliseconds);

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mSet = false;
};

using Event_mthread = Event;

} // namespace core
