#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

namespace core {

/// A value that comes later, perhaps from another thread. Copies share one value; it is set once and stays. Every
/// operation may be called from any thread. T may be void: then there is only the moment of being set.
template <class T>
class Future {
public:
    /// A new value that nobody has set yet.
    Future() : mShared(std::make_shared<Shared>()) {}

    /// Sets the value and wakes the waiters. Only the first call counts; a later one changes nothing and returns false.
    template <class... Value>
    bool set(Value &&...value) {
        static_assert(sizeof...(Value) == (std::is_void_v<T> ? 0 : 1));
        {
            std::lock_guard guard(mShared->mutex);
            if (mShared->value)
                return false;
            mShared->value.emplace(std::forward<Value>(value)...);
        }
        mShared->changed.notify_all();
        return true;
    }

    bool isSet() const {
        std::lock_guard guard(mShared->mutex);
        return mShared->value.has_value();
    }

    /// Waits without limit.
    void wait() const {
        std::unique_lock guard(mShared->mutex);
        waitLocked(guard);
    }

    /// Waits for at most so many milliseconds (0: only asks) and says whether the value is there.
    bool wait(unsigned milliseconds) const {
        std::unique_lock guard(mShared->mutex);
        return mShared->changed.wait_for(guard, std::chrono::milliseconds(milliseconds),
                                         [this] { return mShared->value.has_value(); });
    }

    /// The value; waits for it without limit.
    T get() const {
        std::unique_lock guard(mShared->mutex);
        waitLocked(guard);
        if constexpr (!std::is_void_v<T>)
            return *mShared->value;
    }

private:
    struct Done {};

    struct Shared {
        std::mutex mutex;
        std::condition_variable changed;
        std::optional<std::conditional_t<std::is_void_v<T>, Done, T>> value;
    };

    void waitLocked(std::unique_lock<std::mutex> &guard) const {
        mShared->changed.wait(guard, [this] { return mShared->value.has_value(); });
    }

    std::shared_ptr<Shared> mShared;
};

} // namespace core
